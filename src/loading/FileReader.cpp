#include "loading/FileReader.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <new>

#if defined(_WIN32)
#include <fcntl.h>

#include <io.h>
#include <share.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

// Files are read without the C library's streams, which would allocate for each file and try to
// read past its end.
namespace Schemas {

namespace {

#if defined(_WIN32)

using Status = struct _stat64;

int statusOf(int file, Status& status) { return _fstat64(file, &status); }

bool isRegularFile(const Status& status) { return (status.st_mode & _S_IFMT) == _S_IFREG; }

void waitForData(int) {}

int readSome(int file, char* bytes, std::size_t length) {
  return _read(file, bytes, static_cast<unsigned>(length));
}

void closeFile(int file) { _close(file); }

/// Negative, and `errno` set, if the file cannot be opened.
int openToRead(const char* path) {
  int file = -1;
  errno = _sopen_s(&file, path, _O_RDONLY | _O_BINARY | _O_NOINHERIT, _SH_SECURE, 0);
  return file;
}

#else

using Status = struct stat;

int statusOf(int file, Status& status) { return ::fstat(file, &status); }

bool isRegularFile(const Status& status) { return S_ISREG(status.st_mode); }

/// Makes reads wait for the writer's data; opening did not wait.
void waitForData(int file) { ::fcntl(file, F_SETFL, ::fcntl(file, F_GETFL) & ~O_NONBLOCK); }

ssize_t readSome(int file, char* bytes, std::size_t length) { return ::read(file, bytes, length); }

void closeFile(int file) { ::close(file); }

/// Negative, and `errno` set, if the file cannot be opened.
int openToRead(const char* path) {
  // Without O_NONBLOCK, opening a FIFO waits for a writer.
  return ::open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
}

#endif

}  // namespace

FileReader::FileReader(const std::string& path, std::unique_ptr<char[]>& chunk) : chunk_(chunk) {
  if (!chunk_) chunk_.reset(new char[chunkBytes]);  // not cleared: most files touch little of it
  // The system would read a path with a NUL up to there, and open another file.
  if (path.find('\0') != std::string::npos) return;
  file_ = openToRead(path.c_str());
  if (!isOpen()) {
    if (errno == ENOMEM) throw std::bad_alloc();
    return;
  }
  Status status;
  isRegular_ = statusOf(file_, status) == 0 && isRegularFile(status);
  if (isRegular_) size_ = static_cast<std::uintmax_t>(status.st_size);
  if (!isRegular_) waitForData(file_);
}

FileReader::~FileReader() {
  if (isOpen()) closeFile(file_);
}

std::string_view FileReader::read(std::size_t length) {
  std::size_t size = 0;
  while (size < length && !hasFailed_) {
    const auto count = readSome(file_, chunk_.get() + size, length - size);
    hasFailed_ = count < 0;
    if (count <= 0) break;
    size += static_cast<std::size_t>(count);
    read_ += static_cast<std::uintmax_t>(count);
    if (read_ == size_) break;  // where a regular file ended when it was opened
  }
  return {chunk_.get(), size};
}

void reserveRest(std::string& text, std::uintmax_t fileSize) {
  if (fileSize > text.max_size()) throw std::bad_alloc();
  if (fileSize > text.size()) text.reserve(static_cast<std::size_t>(fileSize));
}

}  // namespace Schemas
