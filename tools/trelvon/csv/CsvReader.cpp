#include "tools/trelvon/csv/CsvReader.h"

#include "tools/trelvon/Failure.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace tool {

namespace {

constexpr std::size_t longestRow = 64U << 20U;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

const char* find(char c, const char* begin, const char* end) {
  return static_cast<const char*>(std::memchr(begin, c, static_cast<std::size_t>(end - begin)));
}

}  // namespace

/// Walks over the cells of one row.
struct CsvReader::Scan {
  const char* at;
  const char* const end;
  const bool isAtEnd;  ///< Whether no bytes come after `end`.
  const std::string& separator;
  bool needsMore = false;

  /// Skips a quoted part, including its closing quote.
  void skipQuoted() {
    for (++at;; ++at) {
      at = find('"', at, end);
      if (at == nullptr || at + 1 == end) {
        needsMore = !isAtEnd;
        at = end;
        return;
      }
      if (*++at != '"') return;
    }
  }

  /// Goes to the end of a cell: a separator, a line feed or the end.
  void skipCell() {
    if (at != end && *at == '"') skipQuoted();
    const char first = separator.front();
    for (; at != end && *at != '\n'; ++at)
      if (*at == first && isSeparator()) return;
    if (at == end) needsMore = !isAtEnd;
  }

  bool isSeparator() {
    if (separator.size() == 1) return true;
    if (static_cast<std::size_t>(end - at) < separator.size()) {
      needsMore = !isAtEnd;
      return false;
    }
    return std::memcmp(at, separator.data(), separator.size()) == 0;
  }

  bool isAtLineEnd() const { return at == end || *at == '\n'; }
};

CsvReader::CsvReader(int file, std::string separator, std::size_t block)
    : file_(file), separator_(std::move(separator)), block_(block), buffer_(2 * block, '\0') {}

void CsvReader::read() {
  ssize_t count = 0;
  do {
    count = ::read(file_, buffer_.data() + filled_, buffer_.size() - filled_);
  } while (count < 0 && errno == EINTR);
  if (count < 0)
    throw Failure(Status::Files,
                  "cannot read standard input: " + std::generic_category().message(errno));
  isAtEnd_ = count == 0;
  filled_ += static_cast<std::size_t>(count);
  bytesRead_ += static_cast<std::size_t>(count);
}

void CsvReader::checkLength(std::size_t length) const {
  if (length > longestRow)
    throw Failure(Status::Findings,
                  "line " + std::to_string(line_) +
                      ": the row has more than 64 MiB; maybe a quote is not closed");
}

/// Reads more of the row. For a row that is longer than a block, doubles what was read, so that
/// rescanning it each time costs no more than a few scans.
bool CsvReader::readMore() {
  if (isAtEnd_) return false;
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, filled_ - begin_);
    filled_ -= begin_;
    begin_ = 0;
  }
  checkLength(filled_);
  const std::size_t wanted = filled_ < block_ ? filled_ + 1 : std::min(2 * filled_, longestRow + 1);
  if (buffer_.size() < wanted) buffer_.resize(2 * buffer_.size());
  while (!isAtEnd_ && filled_ < wanted) read();
  return true;
}

bool CsvReader::scan() {
  const char* const start = buffer_.data() + begin_;
  Scan scan{start, buffer_.data() + filled_, isAtEnd_, separator_};
  if (isFirst_ && std::string_view(start, filled_ - begin_).substr(0, 3) == byteOrderMark)
    scan.at += byteOrderMark.size();
  places_.assign(columns_.size(), CellPlace());
  std::size_t wanted = 0;
  bool mayBeShort = true;
  for (std::size_t column = 0;; ++column) {
    const char* const cell = scan.at;
    // After the last column only the end of the line matters, which quotes may hide.
    if (wanted == columns_.size() && mayBeShort) {
      mayBeShort = false;
      const char* const feed = find('\n', cell, scan.end);
      if (feed != nullptr && find('"', cell, feed) == nullptr) {
        scan.at = feed;
        break;
      }
    }
    scan.skipCell();
    if (scan.needsMore) return false;
    if (wanted < columns_.size() && columns_[wanted] == column) {
      const bool hasReturn =
          scan.at != scan.end && *scan.at == '\n' && scan.at > cell && scan.at[-1] == '\r';
      places_[wanted++] = {static_cast<std::size_t>(cell - start),
                           static_cast<std::size_t>(scan.at - start) - (hasReturn ? 1 : 0),
                           cell != scan.end && *cell == '"', false};
    }
    if (scan.isAtLineEnd()) break;
    scan.at += separator_.size();
  }
  const std::size_t length = static_cast<std::size_t>(scan.at - start);
  isBlank_ = length == 0 || (length == 1 && *start == '\r');
  end_ = begin_ + length + (scan.at == scan.end ? 0 : 1);
  return true;
}

bool CsvReader::next() {
  isFirst_ = line_ == 0;
  line_ = nextLine_;
  begin_ = end_;
  while (begin_ == filled_ || !scan()) {
    if (!readMore() && begin_ == filled_) return false;
  }
  checkLength(row().size());
  nextLine_ += static_cast<std::size_t>(std::count(row().begin(), row().end(), '\n'));
  return true;
}

std::vector<CellPlace> CsvReader::allPlaces() const {
  CsvReader row(-1, separator_);
  row.buffer_ = this->row();
  row.filled_ = row.buffer_.size();
  row.isAtEnd_ = true;
  row.isFirst_ = isFirst_;
  for (std::size_t count = 16;; count *= 2) {
    row.columns_.resize(count);
    for (std::size_t column = 0; column < count; ++column) row.columns_[column] = column;
    row.scan();
    if (row.places_.back().isMissing) break;
  }
  const auto isMissing = [](const CellPlace& place) { return place.isMissing; };
  row.places_.erase(std::find_if(row.places_.begin(), row.places_.end(), isMissing),
                    row.places_.end());
  return row.places_;
}

std::string CsvReader::textOf(const CellPlace& place) const {
  const std::string_view raw = row().substr(place.begin, place.end - place.begin);
  if (!place.isQuoted) return std::string(raw);
  std::string text;
  std::size_t at = 1;
  for (; at < raw.size(); ++at) {
    if (raw[at] == '"' && (++at == raw.size() || raw[at] != '"')) break;
    text += raw[at];
  }
  return text.append(raw.substr(std::min(at, raw.size())));
}

}  // namespace tool
