#include "json/LongExponents.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace {

/// Significant digits of an exponent that RapidJSON may see: 999999999 plus a count of places fits
/// an int.
constexpr std::size_t safeDigits = 9;

/// Digits of an exponent, from `begin` up to `end`; both are the end of the text if there is none.
struct Digits {
  std::size_t begin;
  std::size_t end;
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isExponent(std::string_view text, std::size_t begin) {
  if (begin > 0 && (text[begin - 1] == '-' || text[begin - 1] == '+')) --begin;
  return begin > 0 && (text[begin - 1] == 'e' || text[begin - 1] == 'E');
}

/// The next exponent that is too long. Ten digits in a row cover every tenth place, so it is enough
/// to look at every tenth byte.
Digits nextLongExponent(std::string_view text, std::size_t from) {
  for (std::size_t place = from + safeDigits; place < text.size(); place += safeDigits + 1) {
    if (!isDigit(text[place])) continue;
    std::size_t begin = place;
    std::size_t end = place + 1;
    while (begin > from && isDigit(text[begin - 1])) --begin;
    while (end < text.size() && isDigit(text[end])) ++end;
    if (end - begin > safeDigits && isExponent(text, begin)) return {begin, end};
    place = end;
  }
  return {text.size(), text.size()};
}

void bound(std::string& text, Digits digits) {
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(digits.begin);
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(digits.end);
  const auto nines = end - static_cast<std::ptrdiff_t>(safeDigits);
  if (std::all_of(begin, nines, [](char c) { return c == '0'; })) return;
  std::fill(begin, nines, '0');
  std::fill(nines, end, '9');
}

}  // namespace

void boundExponents(std::string& text) {
  bool inString = false;
  std::size_t place = 0;
  for (Digits digits = nextLongExponent(text, 0); digits.begin < digits.end;
       digits = nextLongExponent(text, digits.end)) {
    for (; place < digits.begin; ++place) {
      if (text[place] == '"') inString = !inString;
      if (text[place] == '\\' && inString) ++place;
    }
    if (!inString) bound(text, digits);
  }
}
