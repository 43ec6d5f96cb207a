#pragma once

#include "text/ClassicNumber.h"

#include <array>
#include <string_view>

namespace Units {

/// Readers of the pieces that value texts are made of. Each takes what it reads off the front of
/// its text; on failure the text and the results stay as they were. "Spaces" are the space
/// character alone, and letters those of the classic locale.

using Words = std::array<std::string_view, 6>;  // the empty ones at the end are no words

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

/// Takes off leading spaces; whether there were any.
bool stripSpaces(std::string_view& text);

/// Whether nothing but spaces is left.
bool isAtEnd(std::string_view text);

/// Takes off leading spaces and the longest of the words that comes then. A word that ends in a
/// letter counts only where no letter follows: "in" is not taken from "inside".
bool stripLeadingWord(std::string_view& text, const Words& words);

/// Takes off leading spaces and a number of digits alone, and adds it to `sum`. Beyond 2147483647
/// it counts as that.
bool readWholeNumber(std::string_view& text, double& sum);

/// Takes off leading spaces and a number as strtod reads it in the classic locale; without one
/// nothing changes.
LeadingNumber stripNumber(std::string_view& text);

/// Adds a number to `sum`. One that is not finite is refused, and so is one that would make the sum
/// negative.
bool addNumber(double number, double& sum);

/// Takes a number off and adds it to `sum`.
bool readNumber(std::string_view& text, double& sum);

}  // namespace Units
