/// Allocations that fail when a test says so.
#pragma once

#include <gtest/gtest.h>

#include <new>

/// While it lives, one `operator new` of this thread throws std::bad_alloc, or that one and all
/// that follow.
class FailingNew {
 public:
  /// @param index  how many allocations succeed before.
  FailingNew(long index, bool andAllThatFollow);
  ~FailingNew();
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;

  static bool hasFailed();

  /// Blocks that this thread has allocated and not freed.
  static long liveBlocks();
};

/// Runs `action` again and again, failing a later allocation each time, until it needs no more; it
/// must throw std::bad_alloc each time and leave no block behind. Returns how many it needs.
template <class Action>
long failEachAllocation(const Action& action) {
  for (long index = 0;; ++index)
    for (const bool andAllThatFollow : {false, true}) {
      const long before = FailingNew::liveBlocks();
      bool threw = false;
      bool failed = false;
      {
        const FailingNew failing(index, andAllThatFollow);
        try {
          action();
        } catch (const std::bad_alloc&) {
          threw = true;
        }
        failed = FailingNew::hasFailed();
      }
      EXPECT_EQ(threw, failed) << "allocation " << index;
      EXPECT_EQ(FailingNew::liveBlocks(), before) << "allocation " << index;
      if (!failed) return index;
    }
}
