#pragma once

#include <cstddef>
#include <string_view>

namespace Units {

/// The code point at the start of a text, and how many bytes it has. A byte that does not begin
/// well-formed UTF-8 counts by itself, with a number above all code points.
struct CodePoint {
  char32_t number;
  std::size_t bytes;
};

/// @param text  any bytes; not empty.
inline CodePoint firstCodePoint(std::string_view text) {
  const auto byteAt = [text](std::size_t place) -> unsigned char {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0;
  };
  const unsigned char lead = byteAt(0);
  const CodePoint notUtf8 = {char32_t{0x110000} + lead, 1};
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xC2 || lead > 0xF4) return notUtf8;
  const std::size_t bytes = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t number = lead & (0x7Fu >> bytes);
  for (std::size_t place = 1; place < bytes; ++place) {
    if ((byteAt(place) & 0xC0) != 0x80) return notUtf8;
    number = number << 6 | (byteAt(place) & 0x3Fu);
  }
  const bool isTooLong = (bytes == 3 && number < 0x800) || (bytes == 4 && number < 0x10000);
  const bool isSurrogate = number >= 0xD800 && number < 0xE000;
  return isTooLong || isSurrogate || number > 0x10FFFF ? notUtf8 : CodePoint{number, bytes};
}

}  // namespace Units
