/// Folders on disk during a test, and what an unprivileged process sees of them.
#pragma once

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>

class FolderTree {
 public:
  FolderTree() {
    std::string pattern = std::filesystem::temp_directory_path() / "trelvon-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for tests");
    root_ = pattern;
    std::filesystem::permissions(root_, std::filesystem::perms(0755));
  }
  ~FolderTree() { std::filesystem::remove_all(root_); }
  FolderTree(const FolderTree&) = delete;
  FolderTree& operator=(const FolderTree&) = delete;

  std::filesystem::path path(const std::string& name = "") const { return root_ / name; }

  /// Makes missing parent folders, too.
  void write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(path(name).parent_path());
    std::ofstream(path(name), std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path root_;
};

/// What `action` returns in a child process that may read only what everybody may read.
inline std::string asNobody(const std::function<std::string()>& action) {
  int pipe[2];
  if (::pipe(pipe) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr unsigned nobody = 65534;
    std::string answer = "no way to give up root";
    if (::getuid() != 0 ||
        (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0))
      answer = action();
    ::_exit(::write(pipe[1], answer.data(), answer.size()) < 0 ? 1 : 0);
  }
  ::close(pipe[1]);
  std::string answer;
  char chunk[256];
  for (ssize_t length; (length = ::read(pipe[0], chunk, sizeof chunk)) > 0;)
    answer.append(chunk, static_cast<std::size_t>(length));
  ::close(pipe[0]);
  ::waitpid(child, nullptr, 0);
  return answer;
}
