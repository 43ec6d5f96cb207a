/// What a shape takes of the heap, and what it may take.
#pragma once

#include "tests/robustness/Shapes.h"
#include "tests/support/Heap.h"

#include <algorithm>

struct Budget {
  double perByte;
  double fixed;
};

inline bool isFormula(Shape::Kind kind) {
  return kind == Shape::Formula || kind == Shape::UnitFormula;
}
inline Budget budgetOf(Shape::Kind kind) {
  return isFormula(kind) ? Budget{128, 64 * 1024} : Budget{100, 1024 * 1024};
}

struct Taken {
  double bytes = 0;  // of the texts
  double peak = 0;   // of the heap

  double perByte() const { return bytes == 0 ? 0 : peak / bytes; }
  bool isWithin(const Budget& budget) const {
    return bytes == 0 || peak <= budget.perByte * bytes + budget.fixed;
  }
};

/// Runs it.
inline Taken measure(const Work& work) {
  const long before = heap::liveBytes();
  heap::resetPeak();
  work.run();
  return {static_cast<double>(work.bytes + *work.substituted),
          static_cast<double>(heap::peakBytes() - before)};
}
