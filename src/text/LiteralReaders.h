#pragma once

#include "model/Characters.h"
#include "text/ClassicNumber.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace Units {

/// Readers for the pieces of value texts. Each removes what it reads from the front of its text; on
/// failure the text and the results do not change. A "space" is the space character only, and
/// letters are those of the classic locale.

using Words = std::array<std::string_view, 6>;  // unused slots at the end are empty

inline constexpr Words feetMarks = {"feet", "foot", "'", "ft.", "ft"};
inline constexpr Words inchMarks = {"inches", "inch", "\"", "in.", "in", "''"};
inline constexpr Words meterMarks = {"meter", "m"};
inline constexpr Words centimeterMarks = {"centimeter", "cm"};
inline constexpr Words degreeMark = {"\xC2\xB0"};
inline constexpr Words minuteMark = {"'"};
inline constexpr Words secondMark = {"\""};
inline constexpr Words minus = {"-"};
inline constexpr Words slash = {"/"};
inline constexpr Words plus = {"+"};

/// Removes leading spaces. Returns whether there were any.
inline bool stripSpaces(std::string_view& text) {
  const std::size_t spaces = countLeading<isSpace>(text);
  text.remove_prefix(spaces);
  return spaces > 0;
}

/// Whether nothing but spaces is left.
bool isAtEnd(std::string_view text);

/// Removes leading spaces and the longest of the words that follows them. A word that ends in a
/// letter counts only if no letter follows: "in" is not removed from "inside".
bool stripLeadingWord(std::string_view& text, const Words& words);

/// Removes leading spaces and a number that consists of digits only, and adds it to `sum`, a number
/// above 2147483647 as 2147483647.
bool readWholeNumber(std::string_view& text, double& sum);

/// Removes leading spaces and a number, as strtod reads it in the classic locale.
LeadingNumber stripNumber(std::string_view& text);

/// Adds a number to `sum`. Rejects one that is not finite, or that would make the sum negative.
bool addNumber(double number, double& sum);

/// Removes a number, as `stripNumber` does, and adds it to `sum`.
bool readNumber(std::string_view& text, double& sum);

}  // namespace Units
