#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

/// Allocates the nodes of one formula's tree in blocks. The first block is part of the arena
/// itself. All memory is freed with the arena, which must outlive the tree.
class NodeArena {
 public:
  NodeArena() = default;
  NodeArena(const NodeArena&) = delete;
  NodeArena& operator=(const NodeArena&) = delete;

  template <class Node, class... Arguments>
  std::unique_ptr<Node> make(Arguments&&... arguments) {
    static_assert(sizeof(Node) <= firstBlockBytes && alignof(Node) <= alignment);
    return std::unique_ptr<Node>(new (*this) Node(std::forward<Arguments>(arguments)...));
  }

  /// @param size  the size of a node that `make` accepts.
  void* allocate(std::size_t size) {
    size = (size + alignment - 1) / alignment * alignment;
    if (size > free_) addBlock();
    free_ -= size;
    return std::exchange(next_, next_ + size);
  }

 private:
  static constexpr std::size_t alignment = alignof(std::max_align_t);
  static constexpr std::size_t firstBlockBytes = 1024;     // tuning: enough for most formulas
  static constexpr std::size_t largestBlockBytes = 65536;  // tuning

  void addBlock() {
    const std::size_t size = std::min(2 * blockBytes_, largestBlockBytes);  // tuning
    blocks_.push_back(std::unique_ptr<std::byte[]>(new std::byte[size]));
    next_ = blocks_.back().get();
    free_ = blockBytes_ = size;
  }

  alignas(alignment) std::array<std::byte, firstBlockBytes> firstBlock_;
  std::byte* next_ = firstBlock_.data();
  std::size_t free_ = firstBlockBytes;
  std::size_t blockBytes_ = firstBlockBytes;  // size of the last block
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
};
