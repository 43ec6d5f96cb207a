/// RapidJSON's number reader keeps the count of decimal places and the exponent in two ints and
/// adds them, unchecked. 0.11111111111e-2147483639 overflows, which is undefined behavior and
/// crashes some builds. A large positive exponent can overflow too, after a fraction of some
/// hundred million zeros.
///
/// So we show such exponents to RapidJSON as 999999999, with leading zeros that keep the length.
/// That changes no result. In a text of at most half a GiB a fraction has too few places to balance
/// either exponent, so the number is 0 or too big with both; and for a number that is too big
/// RapidJSON reports the offset of its first character.
#pragma once

#include <string>

/// Replaces every exponent of ten or more significant digits in this way. Does not change strings
/// in the text.
void boundExponents(std::string& text);
