/// What fuzz targets share. Each is one source that defines `fuzz`.
#pragma once

#include "tests/support/Check.h"
#include "tests/support/Outcome.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
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

/// The texts between the separators: one more than there are separators.
inline std::vector<std::string> split(const std::string& bytes, char separator) {
  std::vector<std::string> texts;
  for (std::size_t at = 0; at <= bytes.size();) {
    const std::size_t end = std::min(bytes.find(separator, at), bytes.size());
    texts.push_back(bytes.substr(at, end - at));
    at = end + 1;
  }
  return texts;
}

/// A JSON text without the characters of its numbers, within strings too: RapidJSON does not round
/// the last digit of every number to the nearest double, so that a number which was written may
/// read as its neighbor.
inline std::string jsonShape(std::string text) {
  const auto isOfNumber = [](char c) { return std::strchr("0123456789+-.eE", c) && c != '\0'; };
  text.erase(std::remove_if(text.begin(), text.end(), isOfNumber), text.end());
  return text;
}

/// A text in a heap block of exactly its size, so that a sanitizer sees every byte read beyond.
class ExactText {
 public:
  explicit ExactText(std::string_view text) : bytes_(text.begin(), text.end()) {}
  operator std::string_view() const { return {bytes_.data(), bytes_.size()}; }

 private:
  const std::vector<char> bytes_;
};
