#include <TrelvonUnits/SchemaUtility.h>

#include <TrelvonUnits/Exceptions.h>

#include "loading/OpenFile.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kChunkBytes = 65536;  // tuning

/// A status, where "not found" is an answer. All else is a failure of `operation`.
fs::file_status checked(fs::file_status status, const std::error_code& error, const fs::path& path,
                        const char* operation) {
  if (status.type() == fs::file_type::none) throw fs::filesystem_error(operation, path, error);
  return status;
}

/// A path with a NUL names nothing, but the system would read it up to there.
bool isFolder(const fs::path& path) {
  if (path.native().find(fs::path::value_type()) != fs::path::string_type::npos) return false;
  std::error_code error;
  const fs::file_status status = checked(fs::status(path, error), error, path, "exists");
  return fs::exists(status) && fs::is_directory(status);
}

/// Regular, named as a schema and in a sub folder, in this order: the status of every entry is
/// asked for, so that one that cannot be told is never passed over. What the folder itself says of
/// an entry that is no link is its status.
bool isSchemaFile(const fs::recursive_directory_iterator& walk) {
  std::error_code error;
  const fs::path& path = walk->path();
  const fs::file_status status = checked(walk->status(error), error, path, "status");
  return fs::is_regular_file(status) && path.extension() == ".json" && walk.depth() > 0;
}

/// The bytes of a file up to the first NUL. `buffer` is a chunk to read with.
std::string readText(const fs::path& path, std::vector<char>& buffer) {
  const Schemas::OpenedFile file = Schemas::openFile(path.string());
  if (!file) throw std::logic_error("failed to open schema file");
  std::string text;
  std::size_t length = 0;
  do {
    length = std::fread(buffer.data(), 1, buffer.size(), file.get());
    void* const nul = std::memchr(buffer.data(), '\0', length);
    if (nul != nullptr) return text.append(buffer.data(), static_cast<char*>(nul));
    if (std::ferror(file.get())) throw std::logic_error("failed to read schema file");
    text.append(buffer.data(), length);
  } while (length == buffer.size());
  return text;
}

}  // namespace

namespace Schemas {

void SchemaUtility::addDefinitionsFromFolder(const std::string& folder,
                                             Units::UnitsEngine& engine) {
  const fs::path root(folder);
  if (!isFolder(root)) throw std::logic_error("schema folder not found");

  // The walk's own throwing forms name their operations differently in each standard library.
  std::error_code error;
  fs::recursive_directory_iterator walk(root, error);
  if (error)
    throw fs::filesystem_error("recursive_directory_iterator::recursive_directory_iterator", root,
                               error);

  std::vector<char> buffer(kChunkBytes);
  while (walk != fs::recursive_directory_iterator()) {
    const fs::path path = walk->path();
    if (isSchemaFile(walk)) {
      const std::string text = readText(path, buffer);
      try {
        engine.addDefinition(text);
      } catch (const Units::ValidationException&) {
        // No schema, or one whose type id is taken: the file is passed over.
      }
    }
    walk.increment(error);
    if (error) throw fs::filesystem_error("recursive_directory_iterator::operator++", path, error);
  }
  engine.buildSchemas();
}

}  // namespace Schemas
