#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <utility>

/// The memory of one formula's tree: a single piece for all its nodes, unless the formula is very
/// long or its identifiers stand for more text than it has. A node that is deleted ends; its memory
/// goes with the arena, which must outlive the tree.
class NodeArena {
 public:
  /// @param textLength  of the formula, in bytes.
  explicit NodeArena(std::size_t textLength) : memory_(firstPiece(textLength)) {}

  template <class Node, class... Arguments>
  std::unique_ptr<Node> make(Arguments&&... arguments) {
    return std::unique_ptr<Node>(new (memory_) Node(std::forward<Arguments>(arguments)...));
  }

 private:
  // As many as "1+1+1" wants, of all formulas the most: 48 for an operator and 96 for a number.
  static constexpr std::size_t bytesPerCharacter = 72;

  // A long text may hold few nodes: it must not fail for room that it would not use.
  static constexpr std::size_t mostAtOnce = std::size_t{16} << 20;

  static std::size_t firstPiece(std::size_t textLength) {
    return std::min(bytesPerCharacter * (textLength + 1), mostAtOnce);
  }

  std::pmr::monotonic_buffer_resource memory_;
};
