#include "model/EditDistance.h"

#include "model/Characters.h"
#include "model/CodePoints.h"

namespace Units {

EditDistance::CodePoints::CodePoints(std::string_view bytes) noexcept {
  while (!bytes.empty() && size < points.size()) {
    const CodePoint first = firstCodePoint(bytes);
    points[size++] =
        first.number < 0x80 ? static_cast<unsigned char>(toLowerCase(bytes.front())) : first.number;
    bytes.remove_prefix(first.bytes);
  }
}

EditDistance::EditDistance(std::string_view text) noexcept
    : isTooLong_(text.size() > longestText),
      text_(text),
      bound_(std::min<std::size_t>(3, (text_.size + 1) / 3)) {}

std::optional<Nearness> EditDistance::to(std::string_view other) const noexcept {
  if (isTooLong_ || other.size() > longestText) return std::nullopt;
  const CodePoints otherText(other);
  const std::size_t distance = distanceTo(otherText);
  if (distance > bound_) return std::nullopt;
  const std::size_t shorter = std::min(text_.size, otherText.size);
  std::size_t prefix = 0;
  while (prefix < shorter && text_.points[prefix] == otherText.points[prefix]) ++prefix;
  return Nearness{distance, prefix};
}

/// Fills only the band of the usual table that distances within the bound can pass through, row by
/// row, and stops at a row that is beyond the bound everywhere.
/// @return  more than the bound if the texts are further apart than that.
std::size_t EditDistance::distanceTo(const CodePoints& other) const noexcept {
  const std::size_t beyond = bound_ + 1;
  const auto& [rows, a] = text_;
  const auto& [columns, b] = other;
  if (std::max(rows, columns) - std::min(rows, columns) > bound_) return beyond;

  // Three rows, each from column 0, with a column more on the right side of the band.
  std::array<std::size_t, longestText + 2> storage[3];
  auto *before = &storage[0], *last = &storage[1], *row = &storage[2];
  for (std::size_t column = 0; column <= std::min(columns + 1, beyond); ++column)
    (*last)[column] = column;
  for (std::size_t i = 1; i <= rows; ++i) {
    const std::size_t begin = i > bound_ ? i - bound_ : 1;
    const std::size_t end = std::min(columns, i + bound_);
    (*row)[begin - 1] = begin == 1 ? std::min(i, beyond) : beyond;
    std::size_t least = (*row)[begin - 1];
    for (std::size_t j = begin; j <= end; ++j) {
      std::size_t cell = std::min({(*last)[j] + 1, (*row)[j - 1] + 1,
                                   (*last)[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1), beyond});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        cell = std::min(cell, (*before)[j - 2] + 1);
      (*row)[j] = cell;
      least = std::min(least, cell);
    }
    (*row)[end + 1] = beyond;
    if (least == beyond) return beyond;
    auto* const unused = before;
    before = last;
    last = row;
    row = unused;
  }
  return (*last)[columns];
}

}  // namespace Units
