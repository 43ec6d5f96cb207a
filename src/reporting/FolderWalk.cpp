#include "reporting/FolderWalk.h"

#include "loading/SchemaFiles.h"
#include "model/Characters.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace Schemas {

namespace {

using Kind = FolderEntry::Kind;

/// In words that do not depend on the locale.
/// @throws std::bad_alloc  if that is the error.
std::string nameOf(const std::error_code& error) {
  if (error == std::errc::not_enough_memory) throw std::bad_alloc();
  if (error == std::errc::permission_denied) return "permission denied";
  if (error == std::errc::too_many_symbolic_link_levels) return "links that lead to themselves";
  if (error == std::errc::filename_too_long) return "the name is too long";
  if (error == std::errc::no_such_file_or_directory) return "it is gone";
  return "system error " + std::to_string(error.value());
}

bool isAlmostSchemaName(const fs::path& path) {
  std::string name = path.filename().string();
  for (char& c : name) c = Units::toLowerCase(c);
  constexpr std::string_view extension = ".json";
  return name.size() >= extension.size() &&
         name.compare(name.size() - extension.size(), extension.size(), extension) == 0;
}

class Walk {
 public:
  explicit Walk(const std::string& folder) {
    waiting_.emplace_back(folder, 0);
    while (!waiting_.empty()) {
      const auto [path, depth] = std::move(waiting_.back());
      waiting_.pop_back();
      list(path, depth);
    }
  }

  std::vector<FolderEntry> entries;

 private:
  void list(const fs::path& folder, int depth) {
    std::error_code error;
    fs::directory_iterator next(folder, error);
    for (; !error && next != fs::directory_iterator(); next.increment(error)) look(*next, depth);
    if (error) entries.push_back({folder.string(), Kind::Unlisted, false, nameOf(error)});
  }

  void look(const fs::directory_entry& entry, int depth) {
    std::error_code error, ignored;
    const fs::file_status status = entry.status(error);
    const bool isLink = fs::is_symlink(entry.symlink_status(ignored));
    const std::string path = entry.path().string();
    if (status.type() == fs::file_type::none)
      entries.push_back({path, Kind::NoStatus, isLink, nameOf(error)});
    else if (fs::is_directory(status) && !isLink)
      waiting_.emplace_back(entry.path(), depth + 1);
    else if (const auto kind = kindOf(entry.path(), status, isLink, depth))
      entries.push_back({path, *kind, isLink, {}});
  }

  static std::optional<Kind> kindOf(const fs::path& path, const fs::file_status& status,
                                    bool isLink, int depth) {
    if (fs::is_directory(status)) return Kind::LinkedFolder;
    if (isLink && !fs::exists(status) && isSchemaFile(path, depth)) return Kind::DeadLink;
    if (!fs::is_regular_file(status)) return std::nullopt;
    if (isSchemaFile(path, depth)) return Kind::SchemaFile;
    if (isSchemaFile(path, 1)) return Kind::TopFile;
    if (isAlmostSchemaName(path)) return Kind::OtherName;
    return std::nullopt;
  }

  std::vector<std::pair<fs::path, int>> waiting_;
};

}  // namespace

std::vector<FolderEntry> walkFolder(const std::string& folder) {
  std::vector<FolderEntry> entries = Walk(folder).entries;
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return a.path < b.path; });
  return entries;
}

}  // namespace Schemas
