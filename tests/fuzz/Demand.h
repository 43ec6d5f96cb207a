/// What must hold for every input: where it does not, the process ends, which a fuzzer and a replay
/// both take for a finding.
#pragma once

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

template <class... Parts>
void demand(bool holds, const Parts&... parts) {
  if (holds) return;
  ((std::cerr << "not so: ") << ... << parts) << std::endl;
  std::abort();
}

template <class Got, class Expected>
void demandEqual(const Got& got, const Expected& expected, std::string_view what) {
  demand(got == expected, what, "\n  got:      ", got, "\n  expected: ", expected);
}

/// The same bits, but that one not-a-number is as good as another.
inline bool areSame(double a, double b) {
  return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

/// The message of an exception of class `E`; empty when nothing is thrown.
template <class E, class Action>
std::string messageOrNone(const Action& action) {
  try {
    action();
  } catch (const E& thrown) {
    return thrown.what();
  }
  return "";
}

/// What an action gives, or the message of the exception of class `E` that it throws.
template <class E, class Action>
std::string textOrMessage(const Action& action) {
  try {
    return action();
  } catch (const E& thrown) {
    return thrown.what();
  }
}

/// A text in a heap block of exactly its size, so that a sanitizer sees every byte read beyond.
class ExactText {
 public:
  explicit ExactText(std::string_view text) : bytes_(text.begin(), text.end()) {}
  operator std::string_view() const { return {bytes_.data(), bytes_.size()}; }

 private:
  const std::vector<char> bytes_;
};
