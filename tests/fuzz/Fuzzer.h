/// What fuzz targets share. Each is one source that defines `fuzz`.
#pragma once

#include "tests/support/Check.h"
#include "tests/support/Outcome.h"
#include "tests/support/Random.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Checks one input.
void fuzz(Random& input);

/// The same bits, or both NaN.
inline bool areSame(double a, double b) { return written(a) == written(b); }

/// What an action returns, or its refusal, which must be a ValidationException.
template <class Action>
std::string validated(const Action& action) {
  const std::string said = outcome(action);
  check(!isRefusal(said) || said.find("ValidationException: ") == 0, said);
  return said;
}

/// A text in a heap block of exactly its size, so that a sanitizer sees every byte read beyond.
class ExactText {
 public:
  explicit ExactText(std::string_view text) : bytes_(text.begin(), text.end()) {}
  operator std::string_view() const { return {bytes_.data(), bytes_.size()}; }

 private:
  const std::vector<char> bytes_;
};
