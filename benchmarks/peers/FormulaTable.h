#pragma once

#include <array>

namespace peers {

/// A formula that both read alike, and a unit of its result by our name and by its symbol.
struct Formula {
  const char* text;
  const char* unit;  // null for a bare number
  const char* symbol;
};

extern const std::array<Formula, 32> formulas;

}  // namespace peers
