/// What the programs of this folder share: a finding is printed where it is made, and the program
/// ends with a failure if there was any.
#pragma once

#include <cstdio>
#include <string>

inline int& findings() {
  static int count = 0;
  return count;
}

inline void check(bool holds, const std::string& what) {
  if (holds) return;
  ++findings();
  std::printf("FINDING %s\n", what.c_str());
  std::fflush(stdout);  // the next step may end the process
}

inline void report(const std::string& figure) { std::printf("%s\n", figure.c_str()); }

/// What `main` returns.
inline int verdict() {
  std::printf("%d findings\n", findings());
  return findings() == 0 ? 0 : 1;
}
