#include "reporting/NumberSpelling.h"

#include "json/JSON.h"
#include "model/Characters.h"
#include "schema/ValidationExceptionFactory.h"
#include "text/ClassicNumber.h"

#include <cmath>
#include <memory>
#include <optional>

namespace Schemas {

namespace {

/// A number as digits without zeros around them and a power of ten: 0.0125 is 125 times 10^-4.
struct Decimal {
  bool isNegative;
  std::string digits;
  long exponent;
};

/// @param written  a JSON number, which is not 0.
Decimal toDecimal(const std::string& written) {
  Decimal made{written.front() == '-', {}, 0};
  std::size_t place = made.isNegative ? 1 : 0;
  bool isFraction = false;
  for (; place < written.size() && (Units::isDigit(written[place]) || written[place] == '.');
       ++place) {
    if (written[place] == '.') {
      isFraction = true;
      continue;
    }
    made.digits += written[place];
    if (isFraction) --made.exponent;
  }
  if (place < written.size()) {
    ++place;  // the letter
    const bool isBelow = written[place] == '-';
    if (!Units::isDigit(written[place])) ++place;
    const auto power =
        static_cast<long>(Units::readClassicDigits(std::string_view(written).substr(place)).value);
    made.exponent += isBelow ? -power : power;
  }
  made.digits.erase(0, made.digits.find_first_not_of('0'));
  while (made.digits.size() > 1 && made.digits.back() == '0') {
    made.digits.pop_back();
    ++made.exponent;
  }
  return made;
}

/// The digits, followed by zeros, with a point after the first `whole` of them, at least one.
std::string spell(const Decimal& number, std::size_t zeros, std::size_t whole) {
  const std::string digits = number.digits + std::string(zeros, '0');
  const long exponent =
      number.exponent + static_cast<long>(number.digits.size()) - static_cast<long>(whole);
  std::string spelled = number.isNegative ? "-" : "";
  spelled += digits.substr(0, whole);
  if (whole < digits.size()) spelled += "." + digits.substr(whole);
  return exponent == 0 ? spelled : spelled + "e" + std::to_string(exponent);
}

std::optional<std::string> findSpelling(const Decimal& number, double wanted) {
  constexpr std::size_t mostZeros = 12;
  for (std::size_t zeros = 0; zeros <= mostZeros; ++zeros)
    for (std::size_t whole = 1; whole <= number.digits.size() + zeros; ++whole) {
      std::string spelled = spell(number, zeros, whole);
      if (numberAsRead(spelled) == wanted) return spelled;
    }
  return std::nullopt;
}

}  // namespace

double numberAsRead(const std::string& written) {
  return JSON::parse(std::make_shared<Units::ValidationExceptionFactory>(), written).getNumber();
}

double nearestDouble(const std::string& written) { return Units::readClassicDouble(written).value; }

std::string shortestSpelling(double number) { return JSON(number).toString(); }

std::string spellingAdvice(const std::string& written) {
  constexpr std::size_t mostDigits = 40;
  const double wanted = nearestDouble(written);
  if (!std::isfinite(wanted)) return "Write a smaller number.";
  const Decimal asWritten = toDecimal(written);
  if (asWritten.digits.size() <= mostDigits)
    if (const auto spelled = findSpelling(asWritten, wanted)) return "Write " + *spelled + ".";
  if (const auto spelled = findSpelling(toDecimal(shortestSpelling(wanted)), wanted))
    return "Write " + *spelled + ".";
  return "Write it as a short number times factors.";
}

}  // namespace Schemas
