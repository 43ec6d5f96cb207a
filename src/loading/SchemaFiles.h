#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

/// Which files loaders read, and how.
namespace Schemas {

class FileReader;

/// Whether a folder exists. A path with a NUL names nothing.
///
/// @throws std::filesystem::filesystem_error  its status cannot be determined.
bool isFolder(const std::filesystem::path& path);

/// Whether a regular file is read as a schema.
/// @param depth  how many folders are between it and the folder that is loaded.
inline bool isSchemaFile(const std::filesystem::path& path, int depth) {
  return path.extension() == ".json" && depth > 0;
}

/// What was read of a file.
struct SchemaFileText {
  std::string text;  // up to the first NUL; of a text too long for engines, its beginning
  bool endsAtNul = false;
  std::uintmax_t fileSize = 0;  // when it was opened; 0 where that is not known
};

/// Reads a file up to its first NUL. Stops as soon as a text is too long for an engine.
///
/// @throws std::logic_error  "failed to open schema file", "failed to read schema file"
SchemaFileText readSchemaFile(FileReader& file);

/// @param chunk  memory to read with, for one file after the other. Made when it is null.
SchemaFileText readSchemaFile(const std::string& path, std::unique_ptr<char[]>& chunk);

}  // namespace Schemas
