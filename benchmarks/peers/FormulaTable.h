#pragma once

#include <array>

namespace peers {

/// A formula that both libraries evaluate to the same value, and a unit for its result.
struct Formula {
  const char* text;
  const char* unit;    // our name; null for a plain number
  const char* symbol;  // libqalculate's name
};

extern const std::array<Formula, 32> formulas;

}  // namespace peers
