#include "tests/support/Heap.h"

#include "tests/support/Build.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>

namespace {

// Plain data: allocations happen before and after anything that has a constructor.
thread_local long untilFailure = -1;
thread_local bool failsForGood = false;
thread_local bool isPaused = false;
thread_local bool failed = false;
thread_local long blocks = 0;
thread_local long bytes = 0;
thread_local long peak = 0;

bool mustFail() {
  if (untilFailure < 0 || isPaused) return false;
  if (untilFailure > 0) return --untilFailure, false;
  if (!failsForGood) untilFailure = -1;
  errno = ENOMEM;
  return failed = true;
}

void* counted(void* block) {
  if (block == nullptr) return nullptr;
  ++blocks;
  bytes += static_cast<long>(malloc_usable_size(block));
  peak = std::max(peak, bytes);
  return block;
}

void uncount(void* block) {
  if (block == nullptr) return;
  --blocks;
  bytes -= static_cast<long>(malloc_usable_size(block));
}

}  // namespace

namespace heap {

void fail(long index, bool andAllThatFollow) {
  failed = false;
  failsForGood = andAllThatFollow;
  isPaused = false;
  untilFailure = index;
}

void succeed() { untilFailure = -1; }
bool hasFailed() { return failed; }
void pause(bool paused) { isPaused = paused; }
long liveBlocks() { return blocks; }
long liveBytes() { return bytes; }
long peakBytes() { return peak; }
void resetPeak() { peak = bytes; }

}  // namespace heap

#if defined(__GLIBC__) && !defined(TRELVON_TESTS_SANITIZED)

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) { return mustFail() ? nullptr : counted(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) {
  return mustFail() ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) {
  if (mustFail()) return nullptr;
  const long before = block == nullptr ? 0 : static_cast<long>(malloc_usable_size(block));
  void* const moved = __libc_realloc(block, size);
  if (moved == nullptr) return nullptr;
  if (block != nullptr) --blocks;
  bytes -= before;
  return counted(moved);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return mustFail() ? nullptr : counted(__libc_memalign(alignment, size));
}

/// libc++ allocates exceptions by it.
int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  *block = mustFail() ? nullptr : counted(__libc_memalign(alignment, size));
  return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) {
  uncount(block);
  __libc_free(block);
}

}  // extern "C"

#else

void* operator new(std::size_t size) {
  void* const block = mustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return counted(block);
}

/// Sorting and merging get their buffers by it.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  void* const block = mustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
  return block == nullptr ? nullptr : counted(block);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  void* const block =
      mustFail() ? nullptr : std::aligned_alloc(step, (size + step - 1) / step * step);
  if (block == nullptr) throw std::bad_alloc();
  return counted(block);
}

void operator delete(void* block) noexcept {
  uncount(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { operator delete(block); }
void operator delete(void* block, std::align_val_t) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  operator delete(block);
}

#endif
