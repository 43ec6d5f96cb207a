#pragma once

#include <cstddef>
#include <string_view>

/// Character classes of the C locale, independent of the process's locale.
namespace Units {

inline bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
inline bool isSpace(char c) { return c == ' '; }
inline bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// ASCII letters in lower case; other bytes as they are.
inline char toLowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
}

/// Whether a byte separates the tokens of a formula.
inline bool isSeparator(char c) { return c == '\n' || c == ' ' || c == '\t'; }

/// How many bytes at the start of a text pass a test: countLeading<isDigit>("12.5") is 2.
template <bool (*test)(char)>
std::size_t countLeading(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && test(text[count])) ++count;
  return count;
}

}  // namespace Units
