#include "text/CharConversion.h"

#include "model/Characters.h"
#include "text/WrittenExponent.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <new>

namespace Units::byCLibrary {

namespace {

/// A decimal number for strtod, spelled as digits and an exponent alone: a decimal point would be
/// the locale's.
class Spelling {
 public:
  /// @param digits  of the number, from the first that is not 0, with or without a point.
  /// @param scale   the number is 0.DIGITS times 10 to this power.
  Spelling(std::string_view digits, int scale) {
    int count = 0;
    bool isExact = true;
    for (const char c : digits) {
      if (c == '.') continue;
      if (count < mostDigits)
        text_[count++] = c;
      else
        isExact = isExact && c == '0';
    }
    if (!isExact) text_[count++] = '1';  // tells the number from one halfway between two doubles
    std::snprintf(text_ + count, exponentBytes, "e%d", scale - count);
  }

  double value() const { return std::strtod(text_, nullptr); }

 private:
  static constexpr int mostDigits = 800;  // no number halfway between two doubles has more than 767
  static constexpr int exponentBytes = 16;

  char text_[mostDigits + 1 + exponentBytes];
};

/// @param mantissa  digits, with or without a point.
double toDouble(std::string_view mantissa, std::int64_t exponent) {
  const std::size_t first = mantissa.find_first_not_of("0.");
  if (first == mantissa.npos) return 0.0;
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto wholeDigits = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  const std::int64_t scale = (wholeDigits < 0 ? wholeDigits + 1 : wholeDigits) + exponent;
  if (scale > DBL_MAX_10_EXP + 1) return HUGE_VAL;
  if (scale < DBL_MIN_10_EXP - DBL_DIG - 1) return 0.0;
  return Spelling(mantissa.substr(first), static_cast<int>(scale)).value();
}

}  // namespace

LeadingNumber readDecimal(std::string_view text) {
  const std::size_t wholeDigits = countLeading<isDigit>(text);
  const bool hasPoint = wholeDigits < text.size() && text[wholeDigits] == '.';
  const std::size_t places = hasPoint ? countLeading<isDigit>(text.substr(wholeDigits + 1)) : 0;
  if (wholeDigits + places == 0) return {};
  const std::size_t length = wholeDigits + (hasPoint ? 1 : 0) + places;
  const WrittenExponent exponent = readExponent(text.substr(length), 'e');
  return {toDouble(text.substr(0, length), exponent.value), length + exponent.length};
}

void appendFixed(std::string& out, double magnitude, unsigned char decimalPlaces) {
  if (!std::isfinite(magnitude)) {
    out += std::isnan(magnitude) ? "nan" : "inf";
    return;
  }
  constexpr std::size_t mostWholeDigits = DBL_MAX_10_EXP + 1;
  constexpr std::size_t mostPlaces = std::numeric_limits<unsigned char>::max();
  char text[mostWholeDigits + MB_LEN_MAX + mostPlaces + 1];
  const int length = std::snprintf(text, sizeof text, "%.*f", int{decimalPlaces}, magnitude);
  if (length < 0) throw std::bad_alloc();
  std::string_view written(text, static_cast<std::size_t>(length));
  out += written.substr(0, countLeading<isDigit>(written));
  if (decimalPlaces == 0) return;
  out += '.';  // the locale's is of any length
  out += written.substr(written.size() - decimalPlaces);
}

std::string shortNumber(double value) {
  char text[24 + MB_LEN_MAX];
  if (std::snprintf(text, sizeof text, "%.15g", value) < 0) throw std::bad_alloc();
  std::string written = text;
  const std::size_t sign = written[0] == '-' ? 1 : 0;
  const std::size_t mark = sign + countLeading<isDigit>(std::string_view(written).substr(sign));
  const std::size_t behind = written.find_first_of("0123456789e", mark);
  if (mark > sign && mark < behind && behind != written.npos)
    written.replace(mark, behind - mark, ".");  // the locale's is of any length
  return written;
}

}  // namespace Units::byCLibrary
