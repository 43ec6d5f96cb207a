#include "tools/trelvon/csv/Progress.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace tool {

Progress::Progress() : next_(Clock::now() + std::chrono::seconds(1)) {
  struct stat input {};
  if (isatty(STDERR_FILENO) == 1 && fstat(STDIN_FILENO, &input) == 0 && S_ISREG(input.st_mode))
    size_ = static_cast<std::size_t>(input.st_size);
}

Progress::~Progress() {
  if (isShown_) std::fputs("\r\x1b[K", stderr);
}

void Progress::tell(std::size_t bytesRead) {
  if (size_ == 0 || Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::seconds(1);
  std::fprintf(stderr, "\r%3.0f %%",
               100.0 * static_cast<double>(bytesRead) / static_cast<double>(size_));
  std::fflush(stderr);
  isShown_ = true;
}

}  // namespace tool
