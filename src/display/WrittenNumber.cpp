#include "display/WrittenNumber.h"

#include "model/Characters.h"
#include "model/TextEdges.h"

#include <algorithm>

namespace Units {

namespace {

struct Mark {
  std::string_view text;
  char character;
};

constexpr Mark marks[] = {
    {".", '.'}, {",", ','}, {"\xD9\xAB", 'd'}, {"\xD9\xAC", 'g'},    {"\xE2\x80\x99", 'a'},
    {"'", 'a'}, {" ", 's'}, {"\xC2\xA0", 's'}, {"\xE2\x80\xAF", 's'}};

const Mark* markAt(std::string_view text) {
  for (const Mark& mark : marks)
    if (startsWith(text, mark.text)) return &mark;
  return nullptr;
}

/// A digit at the start of a text, of ASCII or of the locale.
struct Digit {
  std::size_t bytes = 0;  // 0: there is none
  char digit = '0';
  bool isAscii = true;
};

Digit digitAt(std::string_view text, const NumberStyle& style) {
  if (!text.empty() && isDigit(text.front())) return {1, text.front(), true};
  const std::size_t bytes = style.zero.size();
  if (bytes == 1 || text.size() < bytes) return {};
  const std::string_view lead = std::string_view(style.zero).substr(0, bytes - 1);
  const int digit =
      static_cast<unsigned char>(text[bytes - 1]) - static_cast<unsigned char>(style.zero.back());
  if (!startsWith(text, lead) || digit < 0 || digit > 9) return {};
  return {bytes, static_cast<char>('0' + digit), false};
}

/// Whether a text begins with three digits of a group, and not with a numerator.
bool isGroup(std::string_view text, const NumberStyle& style) {
  int count = 0;
  for (Digit digit; (digit = digitAt(text, style)).bytes != 0; ++count)
    text.remove_prefix(digit.bytes);
  return count == primaryGroup && !startsWith(text, "/");
}

/// Whether a mark continues a number. Spaces and apostrophes have other uses, too.
bool continues(const Mark& mark, std::string_view rest, const NumberStyle& style, bool isInPart) {
  if (mark.character != 's' && mark.character != 'a') return digitAt(rest, style).bytes != 0;
  if (mark.character != markOf(style.groupMark)) return false;
  return !(mark.text == "'" && isInPart) && isGroup(rest, style);
}

}  // namespace

char markOf(std::string_view mark) {
  const Mark* const found = markAt(mark);
  return found ? found->character : '\0';
}

std::size_t spacesIn(std::string_view text) {
  std::size_t bytes = 0;
  for (const Mark* mark = nullptr; (mark = markAt(text.substr(bytes))) && mark->character == 's';)
    bytes += mark->text.size();
  return bytes;
}

WrittenNumber findNumber(std::string_view text, const NumberStyle& style, bool hasMarks,
                         bool isInPart) {
  WrittenNumber number;
  bool hasAscii = false;
  bool hasOthers = false;
  while (true) {
    const std::string_view rest = text.substr(number.bytes);
    if (const Digit digit = digitAt(rest, style); digit.bytes != 0) {
      (digit.isAscii ? hasAscii : hasOthers) = true;
      number.characters += digit.digit;
      number.bytes += digit.bytes;
      continue;
    }
    const Mark* const mark = hasMarks && number.bytes != 0 ? markAt(rest) : nullptr;
    if (!mark || !continues(*mark, rest.substr(mark->text.size()), style, isInPart)) break;
    number.characters += mark->character;
    number.bytes += mark->text.size();
  }
  number.mixesDigits = hasAscii && hasOthers;
  return number;
}

namespace {

bool isMark(char c) { return !isDigit(c); }

/// Takes group marks out of whole digits; whether all of them were in their places.
bool ungroup(std::string_view whole, const NumberStyle& style, std::string& digits) {
  std::size_t group = 0;  // digits since the last mark, from the end
  std::size_t expected = primaryGroup;
  bool isGrouped = false;
  for (std::size_t i = whole.size(); i-- > 0;) {
    if (!isMark(whole[i])) {
      digits += whole[i];
      ++group;
      continue;
    }
    if (whole[i] != markOf(style.groupMark) || group != expected) return false;
    isGrouped = true;
    expected = static_cast<std::size_t>(style.secondaryGroup);
    group = 0;
  }
  std::reverse(digits.begin(), digits.end());
  return !isGrouped || (group > 0 && group <= expected && digits.front() != '0');
}

}  // namespace

std::optional<PlainNumber> readStrictly(const WrittenNumber& written, const NumberStyle& style) {
  const std::string_view all = written.characters;
  const std::size_t point = std::min(all.find(markOf(style.decimalMark)), all.size());
  PlainNumber number;
  if (!ungroup(all.substr(0, point), style, number.digits)) return std::nullopt;
  if (point == all.size()) return number;
  const std::string_view places = all.substr(point + 1);
  if (std::any_of(places.begin(), places.end(), isMark)) return std::nullopt;
  number.digits.append(".").append(places);
  number.places = places.size();
  return number;
}

std::optional<PlainNumber> readLeniently(const WrittenNumber& written, char decimalMark) {
  PlainNumber number;
  bool isBehind = false;
  for (const char c : written.characters) {
    if (c == 'd' || (c == decimalMark && isBehind)) return std::nullopt;
    if (c == decimalMark) isBehind = true;
    if (c == decimalMark) number.digits += '.';
    if (isMark(c)) continue;
    number.digits += c;
    if (isBehind) ++number.places;
  }
  return number;
}

bool isDoubtful(const WrittenNumber& written) {
  const std::string_view all = written.characters;
  const std::size_t mark = all.find_first_of(".,dgas");
  if (mark == std::string_view::npos || (all[mark] != '.' && all[mark] != ',')) return false;
  return mark <= primaryGroup && all.size() == mark + 1 + primaryGroup && all.front() != '0' &&
         std::none_of(all.begin() + static_cast<std::ptrdiff_t>(mark) + 1, all.end(), isMark);
}

}  // namespace Units
