/// RapidJSON as we use it. Its own allocator returns null to code that then writes through the null
/// pointer; ours throws std::bad_alloc. Values live in a pool that is freed as a whole: values that
/// free themselves recurse as deep as the text is nested.
#pragma once

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

/// An allocator for RapidJSON, over `operator new`.
struct ThrowingAllocator {
  static const bool kNeedFree = true;

  void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }

  /// Throws before it touches `block`, which its owner frees later.
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
