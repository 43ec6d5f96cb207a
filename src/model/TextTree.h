#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <list>
#include <string_view>
#include <utility>

namespace Units {

/// Values by text, found by the whole text or by the texts that another one begins with. A search
/// is linear in the text that is looked for, whatever texts are here: a PATRICIA tree (D. R.
/// Morrison, Journal of the ACM 15(4), 1968) for each first byte.
///
/// Each node holds a text, and a bit by which texts part. A descent reads only such bits, so the
/// text where it ends must still be compared. A link that does not lead to a later bit ends it.
/// Each byte counts nine bits, the first of which says that the byte is there: by this bit a text
/// parts from the longer ones that begin with it.
template <class Value>
class TextTree {
 public:
  TextTree() = default;
  TextTree(const TextTree&) = delete;  // the nodes point at each other
  TextTree& operator=(const TextTree&) = delete;
  TextTree(TextTree&& other) noexcept { swap(other); }
  TextTree& operator=(TextTree&& other) noexcept {
    TextTree moved(std::move(other));
    swap(moved);
    return *this;
  }

  /// Null when there is no such text.
  const Value* find(std::string_view text) const {
    const Node* const root = rootOf(text);
    if (!root) return nullptr;
    const Node& end = descend(*root, text);
    return end.text == text ? &end.value : nullptr;
  }

  /// The value of the longest text that `text` begins with and whose length is accepted; null if
  /// none.
  template <class Accepts>
  const Value* findLongestPrefix(std::string_view text, Accepts accepts) const {
    const Node* const root = rootOf(text);
    if (!root) return nullptr;
    const Node& end = descend(*root, text);
    const std::size_t common = commonLength(end.text, text);
    if (common == end.text.size() && accepts(common)) return &end.value;

    // The shorter ones part from the way down where they end.
    const Value* longest = nullptr;
    const Node* node = root->next[1];
    for (Bit last = 0; node->bit > last && placeOf(node->bit) <= common;) {
      last = node->bit;
      if (isPresence(last) && accepts(placeOf(last))) longest = &node->next[0]->value;
      node = node->next[valueOf(last, text)];
    }
    return longest;
  }

  /// Adds a text, unless it is here already. When it throws, nothing has changed.
  /// @param text  not empty; outlives the tree.
  /// @return  the value of the text.
  Value& insert(std::string_view text, const Value& value) {
    std::list<Node> made(1, Node{0, {nullptr, nullptr}, text, value});
    Node& node = made.front();
    if (Node* const known = link(node)) return known->value;
    nodes_.splice(nodes_.end(), made);
    return node.value;
  }

  /// Takes in the texts of another tree, which is left empty. Where a text is here already, `join`
  /// gets the value that stays and the one that goes.
  template <class Join>
  void merge(TextTree& other, Join join) noexcept {
    other.roots_ = {};
    while (!other.nodes_.empty()) {
      Node& node = other.nodes_.front();
      if (Node* const known = link(node)) {
        join(known->value, node.value);
        other.nodes_.pop_front();
      } else {
        nodes_.splice(nodes_.end(), other.nodes_, other.nodes_.begin());
      }
    }
  }

 private:
  using Bit = std::size_t;  // sixteen times the place of a byte, and which of its nine bits

  struct Node {
    Bit bit = 0;
    Node* next[2] = {nullptr, nullptr};
    std::string_view text;
    Value value;
  };

  static std::size_t placeOf(Bit bit) { return bit / 16; }
  static bool isPresence(Bit bit) { return bit % 16 == 0; }

  /// The nine bits of a text at a place: none of them set behind its end.
  static unsigned bitsAt(std::size_t place, std::string_view text) {
    return place < text.size() ? 0x100u | static_cast<unsigned char>(text[place]) : 0u;
  }

  static unsigned valueOf(Bit bit, std::string_view text) {
    return bitsAt(placeOf(bit), text) >> (8 - bit % 16) & 1;
  }

  static std::size_t commonLength(std::string_view a, std::string_view b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t length = 0;
    while (length < shorter && a[length] == b[length]) ++length;
    return length;
  }

  static std::size_t firstByte(std::string_view text) {
    return static_cast<unsigned char>(text.front());
  }

  /// The node that all texts with the first byte of `text` hang on; null when there are none.
  const Node* rootOf(std::string_view text) const {
    return text.empty() ? nullptr : roots_[firstByte(text)];
  }

  static const Node& descend(const Node& root, std::string_view text) {
    const Node* node = root.next[1];
    for (Bit last = 0; node->bit > last;) {
      last = node->bit;
      node = node->next[valueOf(last, text)];
    }
    return *node;
  }

  /// Puts a node into the tree, unless its text is here.
  /// @return  the node of that text; null when there was none.
  Node* link(Node& node) noexcept {
    Node*& root = roots_[firstByte(node.text)];
    if (!root) {  // parts nothing
      node.bit = 0;
      node.next[0] = node.next[1] = root = &node;
      return nullptr;
    }
    const Node& end = descend(*root, node.text);
    const std::size_t place = commonLength(node.text, end.text);
    const unsigned different = bitsAt(place, node.text) ^ bitsAt(place, end.text);
    if (different == 0) return const_cast<Node*>(&end);
    Bit parting = 16 * place;
    while ((different >> (8 - parting % 16) & 1) == 0) ++parting;

    Node** way = &root->next[1];
    for (Bit last = 0; (*way)->bit > last && (*way)->bit < parting;) {
      last = (*way)->bit;
      way = &(*way)->next[valueOf(last, node.text)];
    }
    const unsigned side = valueOf(parting, node.text);
    node.bit = parting;
    node.next[side] = &node;
    node.next[1 - side] = *way;
    *way = &node;
    return nullptr;
  }

  void swap(TextTree& other) noexcept {
    nodes_.swap(other.nodes_);
    roots_.swap(other.roots_);
  }

  std::list<Node> nodes_;
  std::array<Node*, 256> roots_ = {};  // by first byte
};

}  // namespace Units
