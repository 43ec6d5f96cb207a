#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

/// Allocates the nodes of one formula's tree in blocks. All memory is freed with the arena, which
/// must outlive the tree.
class NodeArena {
 public:
  /// An arena for a tree that is kept. Its first block is small.
  NodeArena() = default;
  NodeArena(const NodeArena&) = delete;
  NodeArena& operator=(const NodeArena&) = delete;

  template <class Node, class... Arguments>
  std::unique_ptr<Node> make(Arguments&&... arguments) {
    static_assert(sizeof(Node) <= 2 * fewestBytes && alignof(Node) <= alignment);
    return std::unique_ptr<Node>(new (*this) Node(std::forward<Arguments>(arguments)...));
  }

  /// @param size  the size of a node that `make` accepts.
  void* allocate(std::size_t size) {
    size = (size + alignment - 1) / alignment * alignment;
    if (size > free_) addBlock();
    free_ -= size;
    return std::exchange(next_, next_ + size);
  }

 protected:
  static constexpr std::size_t alignment = alignof(std::max_align_t);

  void useFirst(std::byte* block, std::size_t size) {
    next_ = block;
    free_ = blockBytes_ = size;
  }

 private:
  static constexpr std::size_t fewestBytes = 64;           // tuning
  static constexpr std::size_t largestBlockBytes = 65536;  // tuning

  void addBlock() {
    const std::size_t size = std::min(2 * blockBytes_, largestBlockBytes);  // tuning
    blocks_.push_back(std::unique_ptr<std::byte[]>(new std::byte[size]));
    next_ = blocks_.back().get();
    free_ = blockBytes_ = size;
  }

  std::byte* next_ = nullptr;
  std::size_t free_ = 0;
  std::size_t blockBytes_ = fewestBytes;  // size of the last block
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
};

/// The memory of a tree that lives as long as a call. The first block is part of it.
class LocalNodeArena : public NodeArena {
 public:
  LocalNodeArena() { useFirst(firstBlock_.data(), firstBlockBytes); }

 private:
  static constexpr std::size_t firstBlockBytes = 1024;  // tuning: enough for most formulas

  alignas(alignment) std::array<std::byte, firstBlockBytes> firstBlock_;
};
