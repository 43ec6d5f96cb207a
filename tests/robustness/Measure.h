/// What a work takes of the heap, and what it may take.
#pragma once

#include "tests/robustness/Shapes.h"
#include "tests/support/Heap.h"

#include <algorithm>

struct Taken {
  double bytes = 0;  // of the texts
  double peak = 0;   // of the heap
  double share = 0;  // of what it may take

  double perByte() const { return bytes == 0 ? 0 : peak / bytes; }
};

/// Runs it.
inline Taken measure(const Work& work) {
  const long before = heap::liveBytes();
  heap::resetPeak();
  work.run();
  const auto bytes = static_cast<double>(work.bytes + *work.substituted);
  const auto peak = static_cast<double>(heap::peakBytes() - before);
  constexpr double perBytes[] = {100, 128, 512}, fixedBytes[] = {0x1p20, 0x1p16, 0x1p20};
  const double perByte = perBytes[work.kind], fixed = fixedBytes[work.kind];
  return {bytes, peak, std::max(0.0, peak - fixed) / (perByte * std::max(bytes, 1.0))};
}
