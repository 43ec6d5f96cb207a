#pragma once

#include "model/Characters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Units {

/// The exponent that follows a number's digits, "e-5" or "p3". A length of 0 says that there is
/// none, or not a complete one.
struct WrittenExponent {
  std::int64_t value = 0;
  std::size_t length = 0;
};

/// @param mark  'e' or 'p'; its capital is the same.
inline WrittenExponent readExponent(std::string_view text, char mark) {
  if (text.empty() || (text[0] != mark && text[0] != mark - 'a' + 'A')) return {};
  const bool isSigned = text.size() > 1 && (text[1] == '+' || text[1] == '-');
  const std::size_t begin = isSigned ? 2 : 1;
  const std::size_t digits = countLeading<isDigit>(text.substr(begin));
  if (digits == 0) return {};
  // Stops growing where no text is long enough for digits to make up for it.
  constexpr std::int64_t largest = std::int64_t{1} << 55;
  std::int64_t value = 0;
  for (const char c : text.substr(begin, digits)) value = std::min(value * 10 + (c - '0'), largest);
  return {isSigned && text[1] == '-' ? -value : value, begin + digits};
}

}  // namespace Units
