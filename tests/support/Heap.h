/// The heap of tests: it counts allocations, and makes them fail on request.
///
/// Outside the sanitizers it stands in for `malloc`, so that every library in the process draws on
/// it; under a sanitizer, which has the `malloc` of its own, for `operator new` alone.
#pragma once

#include <cstddef>

namespace heap {

/// From here on, after `index` more allocations of this thread, the next one fails, or that one and
/// all that follow it, until `succeed`.
void fail(long index, bool andAllThatFollow);
void succeed();

/// Whether an allocation has failed since `fail`.
bool hasFailed();

/// Stops and resumes the count of `fail`, for code during which others allocate.
void pause(bool paused);

/// Blocks that this thread has allocated and not freed.
long liveBlocks();

/// The same in bytes, as rounded by the allocator, and the maximum since `resetPeak`.
long liveBytes();
long peakBytes();
void resetPeak();

}  // namespace heap
