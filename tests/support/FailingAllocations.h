/// Allocations that fail when a test wants them to.
#pragma once

#include "tests/support/Heap.h"

#include <gtest/gtest.h>

#include <new>

/// Runs `action` again and again, failing a later allocation each time, until it needs no more; it
/// must throw std::bad_alloc each time and leave no block behind. Returns how many it needs.
template <class Action>
long failEachAllocation(const Action& action) {
  try {
    throw std::bad_alloc();  // libc++ keeps what it allocates for the first exception of a thread
  } catch (const std::bad_alloc&) {
  }
  for (long index = 0;; ++index)
    for (const bool andAllThatFollow : {false, true}) {
      const long before = heap::liveBlocks();
      bool threw = false;
      heap::fail(index, andAllThatFollow);
      try {
        action();
      } catch (const std::bad_alloc&) {
        threw = true;
      }
      heap::succeed();
      EXPECT_EQ(threw, heap::hasFailed()) << "allocation " << index;
      EXPECT_EQ(heap::liveBlocks(), before) << "allocation " << index;
      if (!threw) return index;
    }
}
