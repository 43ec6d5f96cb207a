#include "loading/AddOrSkip.h"
#include "loading/FileReader.h"

#include <TrelvonUnits/SchemaUtility.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// A status, where "not found" is an answer. Throws any other error as a failure of `operation`.
fs::file_status checked(fs::file_status status, const std::error_code& error, const fs::path& path,
                        const char* operation) {
  if (status.type() == fs::file_type::none) throw fs::filesystem_error(operation, path, error);
  return status;
}

/// A path with a NUL names nothing, but the system would read it only up to the NUL.
bool isFolder(const fs::path& path) {
  if (path.native().find(fs::path::value_type()) != fs::path::string_type::npos) return false;
  std::error_code error;
  const fs::file_status status = checked(fs::status(path, error), error, path, "exists");
  return fs::exists(status) && fs::is_directory(status);
}

/// Whether an entry is a regular file, named as a schema, in a sub folder. Asks for the status of
/// every entry first, so that one without a status is never skipped.
bool isSchemaFile(const fs::recursive_directory_iterator& walk) {
  std::error_code error;
  const fs::path& path = walk->path();
  const fs::file_status status = checked(walk->status(error), error, path, "status");
  return fs::is_regular_file(status) && path.extension() == ".json" && walk.depth() > 0;
}

/// The bytes of a file up to its first NUL. Of a text that is too long for an engine no more is
/// read than shows that.
std::string readText(const fs::path& path, std::unique_ptr<char[]>& chunk) {
  Schemas::FileReader file(path.string(), chunk);
  // Replaced since the walk found a regular file there, it may be of any type.
  if (!file.isRegular()) throw std::logic_error("failed to open schema file");
  std::string text;
  while (text.size() <= Schemas::longestSchemaText) {
    const std::string_view bytes = file.read();
    const std::size_t nul = bytes.find('\0');
    text.append(bytes.substr(0, nul));
    if (nul != bytes.npos) break;
    if (file.hasFailed()) throw std::logic_error("failed to read schema file");
    if (bytes.size() < file.chunkBytes) break;
    constexpr std::uintmax_t most = Schemas::longestSchemaText + Schemas::FileReader::chunkBytes;
    Schemas::reserveRest(text, std::min(file.size(), most));
  }
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

  std::unique_ptr<char[]> chunk;
  while (walk != fs::recursive_directory_iterator()) {
    const fs::path path = walk->path();
    if (isSchemaFile(walk)) addOrSkip(readText(path, chunk), engine);
    walk.increment(error);
    if (error) throw fs::filesystem_error("recursive_directory_iterator::operator++", path, error);
  }
  engine.buildSchemas();
}

}  // namespace Schemas
