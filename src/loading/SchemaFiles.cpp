#include "loading/SchemaFiles.h"

#include "loading/AddOrSkip.h"
#include "loading/FileReader.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace Schemas {

bool isFolder(const fs::path& path) {
  // The system would read the path only up to a NUL.
  if (path.native().find(fs::path::value_type()) != fs::path::string_type::npos) return false;
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::none) throw fs::filesystem_error("exists", path, error);
  return fs::exists(status) && fs::is_directory(status);
}

SchemaFileText readSchemaFile(FileReader& file) {
  // The file may have been replaced by any type of file since the walk found a regular one.
  if (!file.isRegular()) throw std::logic_error("failed to open schema file");
  SchemaFileText read;
  read.fileSize = file.size();
  while (read.text.size() <= longestSchemaText) {
    const std::string_view bytes = file.read();
    const std::size_t nul = bytes.find('\0');
    read.text.append(bytes.substr(0, nul));
    read.endsAtNul = nul != bytes.npos;
    if (read.endsAtNul) break;
    if (file.hasFailed()) throw std::logic_error("failed to read schema file");
    if (bytes.size() < file.chunkBytes) break;
    constexpr std::uintmax_t most = longestSchemaText + FileReader::chunkBytes;
    reserveRest(read.text, std::min(file.size(), most));
  }
  return read;
}

SchemaFileText readSchemaFile(const std::string& path, std::unique_ptr<char[]>& chunk) {
  FileReader file(path, chunk);
  return readSchemaFile(file);
}

}  // namespace Schemas
