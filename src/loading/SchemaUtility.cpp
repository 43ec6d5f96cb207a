#include "loading/AddOrSkip.h"
#include "loading/FileReader.h"
#include "loading/SchemaFiles.h"

#include <TrelvonUnits/SchemaUtility.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

using Walk = fs::recursive_directory_iterator;

bool hasSchemaName(const Walk& walk) { return Schemas::isSchemaFile(walk->path(), walk.depth()); }

/// Whether the listing of its folder says that an entry is a schema file.
bool isListedAsSchema(const Walk& walk) {
  std::error_code ignored;
  return hasSchemaName(walk) && !walk->is_symlink(ignored) && walk->is_regular_file(ignored);
}

/// Asks for the status of an entry, so that one without a status is never skipped.
bool isSchemaByStatus(const Walk& walk) {
  std::error_code error;
  const fs::file_status status = walk->status(error);
  if (status.type() == fs::file_type::none)
    throw fs::filesystem_error("status", walk->path(), error);
  return fs::is_regular_file(status) && hasSchemaName(walk);
}

/// The text of an entry that is to be read. A file that opens has a status, so there is no need to
/// ask for it if the listing shows a file.
std::optional<std::string> readEntry(const Walk& walk, const std::string& path,
                                     std::unique_ptr<char[]>& chunk) {
  if (!isListedAsSchema(walk) && !isSchemaByStatus(walk)) return std::nullopt;
  Schemas::FileReader file(path, chunk);
  if (!file.isOpen() && !isSchemaByStatus(walk)) return std::nullopt;
  return Schemas::readSchemaFile(file).text;
}

}  // namespace

namespace Schemas {

void SchemaUtility::addDefinitionsFromFolder(const std::string& folder,
                                             Units::UnitsEngine& engine) {
  const fs::path root(folder);
  if (!isFolder(root)) throw std::logic_error("schema folder not found");

  // The throwing overloads of the walk name their operations differently in each standard library.
  std::error_code error;
  Walk walk(root, error);
  if (error)
    throw fs::filesystem_error("recursive_directory_iterator::recursive_directory_iterator", root,
                               error);

  std::unique_ptr<char[]> chunk;
  while (walk != Walk()) {
    const std::string path = walk->path().string();
    if (const auto text = readEntry(walk, path, chunk)) addOrSkip(*text, engine);
    walk.increment(error);
    if (error) throw fs::filesystem_error("recursive_directory_iterator::operator++", path, error);
  }
  engine.buildSchemas();
}

}  // namespace Schemas
