/// The heap of tests: it counts, and fails when it is told to.
///
/// Outside the sanitizers it stands in for `malloc`, so that every library in the process draws on
/// it; under a sanitizer, which has the `malloc` of its own, for `operator new` alone.
#pragma once

#include <cstddef>

namespace heap {

/// From here on the allocation after `index` more of this thread fails, or that one and all that
/// follow it, until `succeed`.
void fail(long index, bool andAllThatFollow);
void succeed();

/// Whether an allocation has failed since `fail`.
bool hasFailed();

/// Stops and resumes the count of `fail`, for callers in whose midst others allocate.
void pause(bool paused);

/// Blocks that this thread has allocated and not freed.
long liveBlocks();

/// Bytes likewise, as the allocator rounds them, and the most there have been since `resetPeak`.
long liveBytes();
long peakBytes();
void resetPeak();

}  // namespace heap
