#include "tools/trelvon/Output.h"

#include "tools/trelvon/Failure.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace tool {

namespace {

constexpr std::size_t blockSize = 1U << 16U;
constexpr int signalStatus = 128;  // what shells add to the number of a signal

bool wantsColors(int file, const std::string& choice) {
  if (choice != "auto") return choice == "always";
  const char* const refusal = std::getenv("NO_COLOR");
  return isatty(file) == 1 && (refusal == nullptr || *refusal == '\0');
}

[[noreturn]] void endWithTheReader() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  _exit(signalStatus + SIGPIPE);
}

}  // namespace

void writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      endWithTheReader();
    } else if (errno != EINTR) {
      throw Failure(Status::Files,
                    "cannot write to standard output: " + std::generic_category().message(errno));
    }
  }
}

Output::Output(Stream stream, const std::string& choice)
    : file_(static_cast<int>(stream)), isColored_(wantsColors(file_, choice)) {}

void Output::write(std::string_view text) {
  waiting_ += text;
  if (waiting_.size() >= blockSize) flush();
}

void Output::flush() {
  const std::string bytes = std::move(waiting_);
  waiting_.clear();
  writeAll(file_, bytes);
}

std::string Output::tinted(std::string_view text, Tint tint) const {
  constexpr const char* starts[] = {"\x1b[1;31m", "\x1b[1;33m", "\x1b[32m", "\x1b[36m"};
  if (!isColored_) return std::string(text);
  return starts[static_cast<int>(tint)] + std::string(text) + "\x1b[0m";
}

void occupyStandardStreams() {
  for (int file = STDIN_FILENO; file <= STDERR_FILENO; ++file) {
    if (fcntl(file, F_GETFD) != -1) continue;
    const int opened = open("/dev/null", file == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    if (opened != file && opened >= 0) close(opened);
  }
}

}  // namespace tool
