/// RapidJSON's number reader counts the decimal places of a fraction and the value of an exponent
/// in two ints and adds them, unchecked: 0.11111111111e-2147483639 overflows, which is undefined
/// and crashes some builds. A large positive exponent may overflow too, after a fraction of some
/// hundred million zeros. Such exponents are shown to it as 999999999, under as many zeros as keep
/// the length. That changes no result: in a text of at most half a GiB the places of a fraction are
/// too few to balance either exponent, so that the number is 0 or too big with both, and the
/// reader tells the offset of the number's first character when it is too big.
#pragma once

#include <string>

/// Replaces every exponent of ten or more significant digits so. Strings in the text stay as they
/// are.
void boundExponents(std::string& text);
