#include "loading/FileReader.h"

#include <sys/stat.h>

#include <cerrno>
#include <new>

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace Schemas {

namespace {

#if defined(_WIN32)

using Status = struct _stat64;

int statusOf(std::FILE* file, Status& status) { return _fstat64(_fileno(file), &status); }

bool isRegularFile(const Status& status) { return (status.st_mode & _S_IFMT) == _S_IFREG; }

void waitForData(std::FILE*) {}

/// Null, and `errno` set, if the file cannot be opened.
std::FILE* openToRead(const char* path) {
  std::FILE* file = nullptr;
  errno = fopen_s(&file, path, "rb");
  return file;
}

#else

using Status = struct stat;

int statusOf(std::FILE* file, Status& status) { return ::fstat(::fileno(file), &status); }

bool isRegularFile(const Status& status) { return S_ISREG(status.st_mode); }

/// Has reading wait for the writer's data, which opening did not.
void waitForData(std::FILE* file) {
  const int descriptor = ::fileno(file);
  ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
}

/// Null, and `errno` set, if the file cannot be opened.
std::FILE* openToRead(const char* path) {
  // Without O_NONBLOCK, opening a FIFO waits for a writer.
  const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (descriptor < 0) return nullptr;
  std::FILE* const file = ::fdopen(descriptor, "rb");
  if (file == nullptr) {
    const int error = errno;
    ::close(descriptor);
    errno = error;
  }
  return file;
}

#endif

}  // namespace

FileReader::FileReader(const std::string& path, std::unique_ptr<char[]>& chunk) : chunk_(chunk) {
  if (!chunk_) chunk_.reset(new char[chunkBytes]);  // not cleared: most files touch little of it
  // The system would read a path with a NUL up to there, and open another file.
  if (path.find('\0') != std::string::npos) return;
  file_.reset(openToRead(path.c_str()));
  if (!file_) {
    if (errno == ENOMEM) throw std::bad_alloc();
    return;
  }
  // Without memory for a buffer of its own the C library would read byte by byte.
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  Status status;
  isRegular_ = statusOf(file_.get(), status) == 0 && isRegularFile(status);
  if (isRegular_) size_ = static_cast<std::uintmax_t>(status.st_size);
  if (!isRegular_) waitForData(file_.get());
}

std::string_view FileReader::read(std::size_t length) {
  return {chunk_.get(), std::fread(chunk_.get(), 1, length, file_.get())};
}

bool FileReader::hasFailed() const { return std::ferror(file_.get()) != 0; }

void reserveRest(std::string& text, std::uintmax_t fileSize) {
  if (fileSize > text.max_size()) throw std::bad_alloc();
  if (fileSize > text.size()) text.reserve(static_cast<std::size_t>(fileSize));
}

}  // namespace Schemas
