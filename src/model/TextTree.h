#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <list>
#include <string_view>
#include <utility>

namespace Units {

/// A map with string keys that finds a key equal to a text, or the longest key that is a prefix of
/// a text. A search is linear in the length of the text, regardless of the keys. There is a
/// PATRICIA tree (D. R. Morrison, Journal of the ACM 15(4), 1968) for each first byte.
///
/// Each node stores a key and the index of a bit in which keys differ. A descent tests only these
/// bits, so the key where it ends must still be compared. A descent ends at a link that does not
/// lead to a later bit. Each byte has nine bits. The first one is set if the byte exists, so it
/// separates a key from longer keys that begin with it.
template <class Value>
class TextTree {
 public:
  TextTree() = default;
  TextTree(const TextTree&) = delete;  // the nodes point to each other
  TextTree& operator=(const TextTree&) = delete;
  TextTree(TextTree&& other) noexcept { swap(other); }
  TextTree& operator=(TextTree&& other) noexcept {
    TextTree moved(std::move(other));
    swap(moved);
    return *this;
  }

  /// Whether any key has the first byte of a text.
  bool anyBeginsAs(std::string_view text) const { return rootOf(text) != nullptr; }

  /// Null if there is no such key.
  const Value* find(std::string_view text) const {
    const Node* const root = rootOf(text);
    if (!root) return nullptr;
    const Node& end = descend(*root, text);
    return end.text == text ? &end.value : nullptr;
  }

  /// The value of the longest key that `text` begins with and whose length `accepts` accepts, or
  /// null.
  template <class Accepts>
  const Value* findLongestPrefix(std::string_view text, Accepts accepts) const {
    const Node* const root = rootOf(text);
    if (!root) return nullptr;
    const Value* longest = nullptr;
    std::size_t compared = 0;  // bytes that the text shares with all keys from here on
    const auto beginsWith = [&](std::string_view key) {
      const std::size_t shorter = std::min(key.size(), text.size());
      while (compared < shorter && text[compared] == key[compared]) ++compared;
      return compared == key.size();
    };
    const Node* node = root->next[1];
    for (Bit last = 0; node->bit > last;) {
      last = node->bit;
      const unsigned side = valueOf(last, text);
      if (isPresence(last) && side == 1) {  // a key ends here, others go on
        if (!beginsWith(node->next[0]->text)) return longest;
        if (accepts(compared)) longest = &node->next[0]->value;
      }
      node = node->next[side];
    }
    return beginsWith(node->text) && accepts(compared) ? &node->value : longest;
  }

  /// Adds a key if it is not in the tree yet. If it throws, nothing has changed.
  /// @param text  not empty; must outlive the tree.
  /// @return  the value of the key, old or new.
  Value& insert(std::string_view text, const Value& value) {
    std::list<Node> made(1, Node{0, {nullptr, nullptr}, text, value});
    Node& node = made.front();
    if (Node* const known = link(node)) return known->value;
    nodes_.splice(nodes_.end(), made);
    return node.value;
  }

  /// Moves all keys of another tree to this one. If a key is in both, calls `join` with the value
  /// that stays and the value that is dropped.
  template <class Join>
  void merge(TextTree& other, Join join) noexcept {
    if (nodes_.empty()) return swap(other);
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
  using Bit = std::size_t;  // 16 * index of the byte + index of one of its nine bits

  struct Node {
    Bit bit = 0;
    Node* next[2] = {nullptr, nullptr};
    std::string_view text;
    Value value;
  };

  static std::size_t placeOf(Bit bit) { return bit / 16; }
  static bool isPresence(Bit bit) { return bit % 16 == 0; }

  /// The nine bits of a text at an index. All are 0 beyond its end.
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

  /// The root of the tree for the first byte of `text`, or null.
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

  /// Inserts a node unless its key is in the tree already.
  /// @return  the node that has the key already, or null.
  Node* link(Node& node) noexcept {
    Node*& root = roots_[firstByte(node.text)];
    if (!root) {  // the first key of this tree: there is no bit to test
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
