#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Where a cell lies in its row.
struct CellPlace {
  std::size_t begin = 0, end = 0;
  bool isQuoted = false;  ///< Whether it begins with a quote.
  bool isMissing = true;  ///< Whether the row ends before it.
};

/// Reads rows from a file descriptor, as RFC 4180 and Python's csv module define them: a cell that
/// begins with a quote continues to the next single quote, across separators and lines; two quotes
/// in it stand for one. Anywhere else, a quote is a byte like any other. Lines end in LF or CRLF.
///
/// It holds one block, or one row if that is longer.
class CsvReader {
 public:
  /// @param separator  not empty.
  /// @param block      how much is read at a time.
  CsvReader(int file, std::string separator, std::size_t block = 1U << 18U);

  /// @param columns  the columns whose places are needed, from 0, in ascending order.
  void setColumns(const std::vector<std::size_t>& columns) { columns_ = columns; }

  /// Moves to the next row. Returns false at the end.
  /// @throws Failure  the file cannot be read, or the row has more than 64 MiB.
  bool next();

  /// All bytes of the row, with the end of its line.
  std::string_view row() const { return {buffer_.data() + begin_, end_ - begin_}; }

  /// The places of the columns in the row.
  const std::vector<CellPlace>& places() const { return places_; }

  /// The number of the row's first line, from 1.
  std::size_t line() const { return line_; }

  bool isBlank() const { return isBlank_; }  ///< Whether the row is an empty line.
  std::size_t bytesRead() const { return bytesRead_; }

  /// All cells of the row.
  std::vector<CellPlace> allPlaces() const;

  /// The text of a cell, without its quotes.
  std::string textOf(const CellPlace& place) const;

 private:
  struct Scan;

  bool readMore();
  void read();
  void checkLength(std::size_t length) const;
  bool scan();

  const int file_;
  const std::string separator_;
  const std::size_t block_;
  std::vector<std::size_t> columns_;
  std::vector<CellPlace> places_;
  std::string buffer_;  ///< Its size is what is allocated; `filled_` bytes are read.
  std::size_t filled_ = 0, begin_ = 0, end_ = 0;
  std::size_t line_ = 0, nextLine_ = 1, bytesRead_ = 0;
  bool isAtEnd_ = false, isFirst_ = false, isBlank_ = false;
};

}  // namespace tool
