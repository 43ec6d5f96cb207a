#include "loading/AddOrSkip.h"
#include "loading/SchemaFiles.h"

#include <TrelvonUnits/SchemaUtility.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// Asks for the status of every entry first, so that one without a status is never skipped.
bool isRead(const fs::recursive_directory_iterator& walk) {
  std::error_code error;
  const fs::file_status status = walk->status(error);
  if (status.type() == fs::file_type::none)
    throw fs::filesystem_error("status", walk->path(), error);
  return fs::is_regular_file(status) && Schemas::isSchemaFile(walk->path(), walk.depth());
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
    if (isRead(walk)) addOrSkip(readSchemaFile(path.string(), chunk).text, engine);
    walk.increment(error);
    if (error) throw fs::filesystem_error("recursive_directory_iterator::operator++", path, error);
  }
  engine.buildSchemas();
}

}  // namespace Schemas
