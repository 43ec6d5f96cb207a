#include "tools/trelvon/prompt/History.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/ShownText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tool {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostLines = 1000;
constexpr mode_t forOthers = 0077;

/// Files that are made in the meantime cannot be read by anybody else.
class Private {
 public:
  Private() : before_(umask(forOthers)) {}
  ~Private() { umask(before_); }
  Private(const Private&) = delete;
  Private& operator=(const Private&) = delete;

 private:
  const mode_t before_;
};

/// The path in a variable. By the XDG specification, a path that is not absolute is ignored.
std::string absolutePath(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value == '/' ? value : "";
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0, end = 0; (end = text.find('\n', begin)) != std::string::npos;
       begin = end + 1)
    lines.push_back(validUtf8(text.substr(begin, end - begin)));
  return lines;
}

}  // namespace

History::History() {
  const std::string home = absolutePath("HOME");
  path_ = absolutePath("XDG_STATE_HOME");
  if (path_.empty() && !home.empty()) path_ = home + "/.local/state";
  if (!path_.empty()) path_ += "/trelvon/history";
}

std::vector<std::string> History::load() const {
  std::error_code unknown;
  if (!fs::is_regular_file(path_, unknown)) return {};
  try {
    std::vector<std::string> lines = linesOf(readFile(path_));
    const bool isLong = lines.size() > 2 * mostLines;
    if (lines.size() > mostLines) lines.erase(lines.begin(), lines.end() - mostLines);
    if (!isLong) return lines;
    std::string text;
    for (const std::string& line : lines) text += line + '\n';
    const Private own;
    writeFile(path_, text, true);
    return lines;
  } catch (const Failure&) {  // reported when the first line is added
    return {};
  }
}

void History::add(const std::string& line) const {
  if (path_.empty()) return;
  const Private own;
  std::error_code error;
  fs::create_directories(fs::path(path_).parent_path(), error);
  const int file =
      open(path_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0600);
  const std::string text = line + '\n';
  struct stat opened {};
  // Some people link the file to /dev/null, which must stay as it is.
  const bool isOurs = file >= 0 && fstat(file, &opened) == 0 && S_ISREG(opened.st_mode);
  const bool isWritten = file >= 0 && (!isOurs || fchmod(file, 0600) == 0) &&
                         write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  const int reason = errno;
  if (file >= 0) close(file);
  if (!isWritten)
    throw Failure(Status::Files, "cannot write the history, " + inQuotes(path_) + ": " +
                                     std::generic_category().message(reason));
}

}  // namespace tool
