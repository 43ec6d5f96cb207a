#pragma once

#include <chrono>
#include <cstddef>

namespace tool {

/// Shows how much of standard input is read, once a second, if that is a file and standard error is
/// a terminal.
class Progress {
 public:
  Progress();
  ~Progress();  ///< Clears the line.
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void tell(std::size_t bytesRead);

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t size_ = 0;  ///< 0: nothing is shown.
  Clock::time_point next_;
  bool isShown_ = false;
};

}  // namespace tool
