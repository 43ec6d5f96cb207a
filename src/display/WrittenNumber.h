#pragma once

#include "display/NumberForm.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Units {

/// Digits and the marks between them, as they appear in a text.
struct WrittenNumber {
  std::size_t bytes = 0;  // 0: there is none
  /// ASCII digits and a character for each mark: `.` and `,` themselves, `d` and `g` of Arabic, `a`
  /// for an apostrophe, `s` for a space.
  std::string characters;
  bool mixesDigits = false;  // has ASCII digits and those of the locale
};

/// A number by the rules of a style.
struct PlainNumber {
  std::string digits;      // ASCII, with a point if there are places
  std::size_t places = 0;  // after the point
};

/// What is written at the start of a text.
///
/// @param hasMarks      whether marks belong to the number.
/// @param isInPart      whether marks of a composite are around it: an apostrophe is then not part
///                      of the number.
WrittenNumber findNumber(std::string_view text, const NumberStyle& style, bool hasMarks,
                         bool isInPart);

/// Reads a number strictly: digits must be grouped correctly or not at all.
std::optional<PlainNumber> readStrictly(const WrittenNumber& written, const NumberStyle& style);

/// Reads a number with `.` or `,` as its decimal mark. All other marks count as group marks.
std::optional<PlainNumber> readLeniently(const WrittenNumber& written, char decimalMark);

/// Whether the only mark is a point or a comma that might be a decimal mark or a group mark:
/// "1,234".
bool isDoubtful(const WrittenNumber& written);

/// The bytes of spaces at the start of a text: U+0020, U+00A0 and U+202F.
std::size_t spacesIn(std::string_view text);

/// Whether a mark is `.`, `,` ..., in the notation of `characters`.
char markOf(std::string_view mark);

}  // namespace Units
