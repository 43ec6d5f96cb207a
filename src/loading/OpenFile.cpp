#include "loading/OpenFile.h"

#include <cerrno>
#include <new>

namespace Schemas {

OpenedFile openFile(const std::string& path) {
#if defined(_WIN32)
  std::FILE* file = nullptr;
  const int error = fopen_s(&file, path.c_str(), "rb");
#else
  errno = 0;
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  const int error = errno;
#endif
  if (file == nullptr && error == ENOMEM) throw std::bad_alloc();
  // Without memory for a buffer of its own the C library would read byte by byte.
  if (file != nullptr) std::setvbuf(file, nullptr, _IONBF, 0);
  return OpenedFile(file);
}

}  // namespace Schemas
