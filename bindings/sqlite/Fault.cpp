#include "bindings/sqlite/Fault.h"

#include <algorithm>
#include <cstdint>
#include <new>

namespace Sql {

namespace {

/// The length of the valid code point that a text begins with; 0 if there is none.
std::size_t codePointLength(std::string_view text) {
  const auto byte = [text](std::size_t index) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(text[index]));
  };
  const std::uint32_t first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  std::uint32_t value = first & (0xFFU >> (length + 1));
  for (std::size_t index = 1; index < length; ++index) {
    if ((byte(index) & 0xC0) != 0x80) return 0;
    value = value << 6 | (byte(index) & 0x3F);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  return overlong || (value >= 0xD800 && value < 0xE000) || value > 0x10FFFF ? 0 : length;
}

}  // namespace

std::string shown(std::string_view message) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string out;
  while (!message.empty()) {
    const std::size_t length = codePointLength(message);
    if (length == 0 || message[0] == '\0') {
      const auto byte = static_cast<unsigned char>(message[0]);
      out += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
    } else {
      out += message.substr(0, length);
    }
    message.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return out;
}

void refuse(trelvon_status status, Owned<trelvon_error> error) {
  if (status == TRELVON_MEMORY) throw std::bad_alloc();
  throw Fault{std::string(viewOf(trelvon_error_message(error.get())))};
}

}  // namespace Sql
