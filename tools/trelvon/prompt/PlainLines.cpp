#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/prompt/LineReader.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tool {

namespace {

constexpr std::size_t blockSize = 1U << 16U, longestLine = 1U << 20U;

class PlainLines : public LineReader {
 public:
  explicit PlainLines(const char* prompt) : prompt_(prompt) {}

  std::optional<std::string> next() override {
    if (prompt_ != nullptr) writeAll(STDOUT_FILENO, prompt_);
    std::size_t searched = begin_, end = 0;
    while ((end = buffer_.find('\n', searched)) == std::string::npos) {
      searched = buffer_.size() - begin_;
      if (searched > longestLine)
        throw Failure(Status::Findings, "a line has more than 1 MiB, so reading stops here");
      buffer_.erase(0, begin_);
      begin_ = 0;
      if (!readBlock()) {
        if (buffer_.empty()) return std::nullopt;
        buffer_ += '\n';  // of a last line without one
      }
    }
    std::string line = buffer_.substr(begin_, end - begin_);
    begin_ = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
  }

 private:
  bool readBlock() {
    const std::size_t before = buffer_.size();
    buffer_.resize(before + blockSize);
    ssize_t count = 0;
    do count = ::read(STDIN_FILENO, buffer_.data() + before, blockSize);
    while (count < 0 && errno == EINTR);
    if (count < 0)
      throw Failure(Status::Files,
                    "cannot read standard input: " + std::generic_category().message(errno));
    buffer_.resize(before + static_cast<std::size_t>(count));
    return count > 0;
  }

  const char* const prompt_;
  std::string buffer_;
  std::size_t begin_ = 0;  ///< Of what is not yet returned.
};

}  // namespace

std::unique_ptr<LineReader> readPlainLines(const char* prompt) {
  return std::make_unique<PlainLines>(prompt);
}

}  // namespace tool
