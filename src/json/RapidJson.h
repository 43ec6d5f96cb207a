/// RapidJSON as this room uses it. Its own allocator hands a null on to code that writes through
/// it; ours throws, and so do the containers above. What they hold lies in a pool that goes as a
/// whole: values that freed themselves would do so recursively, as deep as a text likes to nest.
#pragma once

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

/// RapidJSON's concept of an allocator, over `operator new`.
struct ThrowingAllocator {
  static const bool kNeedFree = true;

  void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }

  /// Throws before it touches `block`, which its owner goes on to free.
  void* Realloc(void* block, std::size_t size, std::size_t newSize) {
    void* const moved = Malloc(newSize);
    if (block != nullptr && moved != nullptr) std::memcpy(moved, block, std::min(size, newSize));
    Free(block);
    return moved;
  }

  static void Free(void* block) { ::operator delete(block); }
};

using RapidPool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
using RapidValue = rapidjson::GenericValue<rapidjson::UTF8<>, RapidPool>;
using RapidDocument = rapidjson::GenericDocument<rapidjson::UTF8<>, RapidPool, ThrowingAllocator>;
using RapidBuffer = rapidjson::GenericStringBuffer<rapidjson::UTF8<>, ThrowingAllocator>;
using RapidWriter =
    rapidjson::Writer<RapidBuffer, rapidjson::UTF8<>, rapidjson::UTF8<>, ThrowingAllocator>;
