#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Schemas {

/// Reads a file from its beginning, chunk by chunk.
class FileReader {
 public:
  static constexpr std::size_t chunkBytes = 65536;  // tuning

  /// Opens a file of any type. Never waits for a writer: a FIFO that nobody has open for writing
  /// reads as an empty file.
  ///
  /// @param chunk  memory to read with, for one reader after the other. Made when it is null.
  /// @throws std::bad_alloc  there is no memory for an open file or a chunk.
  FileReader(const std::string& path, std::unique_ptr<char[]>& chunk);
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;
  ~FileReader();

  bool isOpen() const { return file_ >= 0; }

  /// Whether the opened file is a regular one, whatever the path named before.
  bool isRegular() const { return isRegular_; }

  /// The size in bytes of a regular file when it was opened; 0 if that is not known.
  std::uintmax_t size() const { return size_; }

  /// The next bytes, at most a chunk. Fewer than asked for only at the end of the file or at an
  /// error. Valid until the next call.
  std::string_view read(std::size_t length = chunkBytes);

  /// Whether reading has failed.
  bool hasFailed() const { return hasFailed_; }

 private:
  int file_ = -1;  // negative if the file could not be opened
  bool isRegular_ = false;
  bool hasFailed_ = false;
  std::uintmax_t size_ = 0;
  std::uintmax_t read_ = 0;  // bytes
  std::unique_ptr<char[]>& chunk_;
};

/// Makes room in `text` for the rest of a file, so that appending it chunk by chunk allocates once.
///
/// @throws std::bad_alloc  there is none.
void reserveRest(std::string& text, std::uintmax_t fileSize);

}  // namespace Schemas
