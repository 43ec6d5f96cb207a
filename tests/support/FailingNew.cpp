#include "tests/support/FailingNew.h"

#include <cstdlib>

namespace {

// Plain data: allocations happen before and after anything that has a constructor.
thread_local long untilFailure = -1;
thread_local bool failsForGood = false;
thread_local bool failed = false;
thread_local long live = 0;

bool mustFail() {
  if (untilFailure < 0) return false;
  if (untilFailure > 0) return --untilFailure, false;
  if (!failsForGood) untilFailure = -1;
  return failed = true;
}

}  // namespace

FailingNew::FailingNew(long index, bool andAllThatFollow) {
  untilFailure = index;
  failsForGood = andAllThatFollow;
  failed = false;
}

FailingNew::~FailingNew() { untilFailure = -1; }

bool FailingNew::hasFailed() { return failed; }

long FailingNew::liveBlocks() { return live; }

void* operator new(std::size_t size) {
  void* const block = mustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++live;
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) --live;
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
