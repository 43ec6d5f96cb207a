#include "tools/trelvon/Files.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/ShownText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace tool {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const std::string& what, const std::string& path,
                       const std::error_code& error) {
  throw Failure(Status::Files, "cannot " + what + ' ' + inQuotes(path) + ": " + error.message());
}

[[noreturn]] void failByErrno(const std::string& what, const std::string& path) {
  fail(what, path, std::error_code(errno, std::generic_category()));
}

/// Holds signals back, so that Ctrl-C takes effect before a file is written or after it is
/// complete.
class WithoutSignals {
 public:
  WithoutSignals() {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &before_);
  }
  ~WithoutSignals() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  WithoutSignals(const WithoutSignals&) = delete;
  WithoutSignals& operator=(const WithoutSignals&) = delete;

 private:
  sigset_t before_{};
};

void writeBytes(int file, std::string_view content, const std::string& path) {
  while (!content.empty()) {
    const ssize_t count = ::write(file, content.data(), content.size());
    if (count < 0 && errno != EINTR) failByErrno("write", path);
    if (count > 0) content.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// Whether the path is something other than a file or folder, such as a device, which must not be
/// replaced.
bool isSpecial(const std::string& path) {
  std::error_code unknown;
  const fs::file_status status = fs::status(path, unknown);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

void writeInto(const std::string& path, std::string_view content) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) failByErrno("open", path);
  try {
    writeBytes(file, content, path);
  } catch (...) {
    close(file);
    throw;
  }
  close(file);
}

/// A new file next to a path. It is removed at the end unless it has replaced the file at that
/// path.
class FileBeside {
 public:
  explicit FileBeside(const std::string& path) : path_(path), name_(path + ".XXXXXX") {
    file_ = mkstemp(name_.data());
    if (file_ < 0) failByErrno("write", path_);
  }
  ~FileBeside() {
    if (file_ >= 0) close(file_);
    unlink(name_.c_str());
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  void write(std::string_view content) {
    writeBytes(file_, content, path_);
    const mode_t unwanted = umask(0);
    umask(unwanted);
    if (fchmod(file_, 0666 & ~unwanted) != 0 || fsync(file_) != 0) failByErrno("write", path_);
  }

  /// Linking never replaces an existing file; renaming does.
  void putInPlace(bool mayReplace) {
    const int result =
        mayReplace ? std::rename(name_.c_str(), path_.c_str()) : link(name_.c_str(), path_.c_str());
    if (result != 0) failByErrno(mayReplace ? "replace" : "make", path_);
  }

 private:
  const std::string path_;
  std::string name_;
  int file_ = -1;
};

}  // namespace

std::vector<std::string> schemaFiles(const std::string& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error))
    throw Failure(Status::Files, inQuotes(folder) + " is not a folder");
  std::vector<std::string> files;
  fs::recursive_directory_iterator entry(folder, error);
  for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    std::error_code unknown;
    if (entry.depth() > 0 && entry->path().extension() == ".json" &&
        entry->is_regular_file(unknown))
      files.push_back(entry->path().string());
  }
  if (error) fail("list", folder, error);
  std::sort(files.begin(), files.end());
  return files;
}

std::string readFile(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) throw Failure(Status::Files, inQuotes(path) + " is a folder");
  std::ifstream file(path, std::ios::binary);
  if (!file) failByErrno("open", path);
  std::string content;
  char block[1U << 16U];
  while (file.read(block, sizeof block) || file.gcount() > 0)
    content.append(block, static_cast<std::size_t>(file.gcount()));
  if (file.bad()) failByErrno("read", path);
  return content;
}

void refuseToReplace(const std::string& path) {
  std::error_code unknown;
  if (fs::exists(fs::symlink_status(path, unknown)))
    throw Failure(Status::Files, inQuotes(path) + " already exists and is not replaced");
}

void writeFile(const std::string& given, std::string_view content, bool mayReplace) {
  std::error_code error;
  if (mayReplace && isSpecial(given)) return writeInto(given, content);
  const fs::path target = fs::canonical(given, error);  // of a link, what it leads to
  const std::string path = error ? given : target.string();
  error.clear();
  const fs::path folder = fs::path(path).parent_path();
  if (!folder.empty()) fs::create_directories(folder, error);
  if (error) fail("make the folder", folder.string(), error);
  if (!mayReplace) refuseToReplace(path);
  const WithoutSignals held;
  FileBeside beside(path);
  beside.write(content);
  beside.putInPlace(mayReplace);
}

void forEachBundled(const std::string& path, std::string_view bundle,
                    const std::function<void(std::string_view)>& action) {
  constexpr std::string_view header = "TrelvonUnits-schema-bundle-1\n";
  if (bundle.substr(0, header.size()) != header ||
      (bundle.size() > header.size() && bundle.back() != '\0'))
    throw Failure(Status::Files, inQuotes(path) + " is not a schema bundle");
  bundle.remove_prefix(header.size());
  while (!bundle.empty()) {
    const std::size_t end = bundle.find('\0');
    action(bundle.substr(0, end));
    bundle.remove_prefix(end + 1);
  }
}

}  // namespace tool
