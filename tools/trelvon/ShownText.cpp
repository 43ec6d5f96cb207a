#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <cstdint>

namespace tool {

namespace {

/// A code point at the beginning of a text. A length of 0 means that there is no valid one.
struct CodePoint {
  std::uint32_t value = 0;
  std::size_t length = 0;
};

CodePoint firstCodePoint(std::string_view text) {
  const auto byte = [text](std::size_t index) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[index]));
  };
  const std::uint32_t first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return {};
  std::uint32_t value = first & (0xFFU >> (length + 1));
  for (std::size_t index = 1; index < length; ++index) {
    if ((byte(index) & 0xC0) != 0x80) return {};
    value = value << 6 | (byte(index) & 0x3F);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  if (overlong || (value >= 0xD800 && value < 0xE000) || value > 0x10FFFF) return {};
  return {value, length};
}

bool isControl(std::uint32_t value) { return value < 0x20 || (value >= 0x7F && value < 0xA0); }

void appendHidden(std::string& out, std::string_view bytes) {
  constexpr char digits[] = "0123456789ABCDEF";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    out += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
  }
}

std::string readable(std::string_view text, bool hidesControls) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const CodePoint point = firstCodePoint(text);
    const std::string_view bytes = text.substr(0, std::max<std::size_t>(point.length, 1));
    if (point.length == 0 || (hidesControls && isControl(point.value)))
      appendHidden(out, bytes);
    else
      out += bytes;
    text.remove_prefix(bytes.size());
  }
  return out;
}

}  // namespace

std::string shown(std::string_view text) { return readable(text, true); }

std::string inQuotes(std::string_view text) { return '"' + shown(text) + '"'; }

std::string validUtf8(std::string_view text) { return readable(text, false); }

std::size_t widthOf(std::string_view validText) {
  return static_cast<std::size_t>(std::count_if(validText.begin(), validText.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

}  // namespace tool
