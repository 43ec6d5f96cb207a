/// Checks for programs without a test framework: a finding is printed at once, and the program
/// fails at its end. A fuzz target aborts after the input.
#pragma once

#include <iostream>
#include <string_view>

inline int& findings() {
  static int count = 0;
  return count;
}

template <class... Parts>
void check(bool holds, const Parts&... parts) {
  if (holds) return;
  ++findings();
  ((std::cout << "FINDING ") << ... << parts) << std::endl;
}

template <class Got, class Expected>
void checkEqual(const Got& got, const Expected& expected, std::string_view what) {
  check(got == expected, what, "\n  got:      ", got, "\n  expected: ", expected);
}

template <class... Parts>
void report(const Parts&... parts) {
  (std::cout << ... << parts) << '\n';
}

/// What `main` returns.
inline int verdict() {
  report(findings(), " findings");
  return findings() == 0 ? 0 : 1;
}
