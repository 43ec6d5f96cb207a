#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace Schemas {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenedFile = std::unique_ptr<std::FILE, CloseFile>;

/// A file to read bytes from, without a buffer of the C library's; nothing where it cannot be
/// opened.
/// @throws std::bad_alloc  the system has no memory for an opened file.
OpenedFile openFile(const std::string& path);

}  // namespace Schemas
