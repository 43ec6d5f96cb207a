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

/// An error in words that do not depend on the locale.
/// @throws std::bad_alloc  if that is the error.
std::string nameOf(const std::error_code& error) {
  if (error == std::errc::not_enough_memory) throw std::bad_alloc();
  if (error == std::errc::permission_denied) return "permission denied";
  if (error == std::errc::too_many_symbolic_link_levels) return "too many levels of links";
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

  /// Asks the entry for its type, which it knows from the listing unless it is a link.
  void look(const fs::directory_entry& entry, int depth) {
    std::error_code error, ignored;
    const bool isLink = entry.is_symlink(ignored);
    const bool isFolder = entry.is_directory(error);
    if (error && error != std::errc::no_such_file_or_directory)
      entries.push_back({entry.path().string(), Kind::NoStatus, isLink, nameOf(error)});
    else if (isFolder && !isLink)
      waiting_.emplace_back(entry.path(), depth + 1);
    else if (const std::optional<Kind> kind =
                 isFolder ? Kind::LinkedFolder : kindOf(entry, isLink, depth))
      entries.push_back({entry.path().string(), *kind, isLink, {}});
  }

  static std::optional<Kind> kindOf(const fs::directory_entry& entry, bool isLink, int depth) {
    std::error_code ignored;
    const fs::path& path = entry.path();
    if (isLink && !entry.exists(ignored))
      return isSchemaFile(path, depth) ? std::optional(Kind::DeadLink) : std::nullopt;
    if (!entry.is_regular_file(ignored)) return std::nullopt;
    if (isSchemaFile(path, depth)) return Kind::SchemaFile;
    // codes.json is not a definition: it maps the units of a pack to the codes of other systems
    if (depth == 0 && path.filename() == "codes.json") return std::nullopt;
    if (depth == 0 && path.extension() == ".json") return Kind::TopFile;
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
