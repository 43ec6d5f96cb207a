#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <utility>

/// The memory of one formula's tree: a single piece for all its nodes, unless identifiers stand for
/// more text than the formula has. A node that is deleted ends; its memory goes with the arena,
/// which must outlive the tree.
class NodeArena {
 public:
  /// @param textLength  of the formula, in bytes.
  explicit NodeArena(std::size_t textLength) : memory_(bytesPerCharacter * (textLength + 1)) {}

  template <class Node, class... Arguments>
  std::unique_ptr<Node> make(Arguments&&... arguments) {
    return std::unique_ptr<Node>(new (memory_) Node(std::forward<Arguments>(arguments)...));
  }

 private:
  // As many as "1+1+1" wants, of all formulas the most: 48 for an operator and 96 for a number.
  static constexpr std::size_t bytesPerCharacter = 72;

  std::pmr::monotonic_buffer_resource memory_;
};
