#include "display/Rounding.h"

#include "display/Natural.h"
#include "display/SignificantDigits.h"
#include "model/Tolerances.h"
#include "text/ClassicNumber.h"
#include "text/FixedPointNumberRenderer.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Units {

const std::array<std::uint32_t, 10> powersOfTen = {
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

namespace {

/// From here on a quotient of doubles is too coarse to round.
constexpr double mostSteps = 0x1p50;

/// A count as a `Natural`, if it fits in 64 bits.
class ShortNatural {
 public:
  explicit ShortNatural(std::uint64_t value) : value_(value) {}

  std::uint32_t divide(std::uint32_t divisor) {
    const auto rest = static_cast<std::uint32_t>(value_ % divisor);
    value_ /= divisor;
    return rest;
  }

  void appendDigits(std::string& out) const { appendWhole(out, value_); }

 private:
  std::uint64_t value_;
};

/// Splits a count of units of the last part.
template <class Count>
void splitUnits(Count& count, const NumberForm& form, RoundedNumber& number) {
  if (form.layout)
    for (std::size_t part = form.layout->count - 1; part > 0; --part)
      number.parts[part - 1] =
          count.divide(static_cast<std::uint32_t>(form.layout->components[part - 1].ratio));
  count.appendDigits(number.whole);
}

/// Splits a count of steps.
template <class Count>
void splitSteps(Count count, const NumberForm& form, RoundedNumber& number) {
  if (form.kind == NumberForm::Kind::Fraction) {
    number.denominator = static_cast<std::uint32_t>(form.digits);
    number.fraction = count.divide(number.denominator);
  } else {
    number.places = form.digits;
    const int low = std::min(form.digits, 9);
    number.fraction = count.divide(powersOfTen[static_cast<std::size_t>(low)]);
    if (form.digits > low)
      number.fraction += std::uint64_t{powersOfTen[9]} *
                         count.divide(powersOfTen[static_cast<std::size_t>(form.digits - low)]);
  }
  splitUnits(count, form, number);
}

void multiplyByTens(Natural& number, int power) {
  for (int rest = power; rest > 0; rest -= 9)
    number.multiply(powersOfTen[static_cast<std::size_t>(std::min(rest, 9))]);
}

/// The number of steps in the exact value, rounded, halves up. There are at least 2^50.
Natural countExactly(double magnitude, const NumberForm& form) {
  int exponent = 0;
  const double fraction = std::frexp(magnitude, &exponent);
  exponent -= 53;
  Natural count(static_cast<std::uint64_t>(std::ldexp(fraction, 53)));
  count.multiply(form.lastUnits);
  if (form.kind == NumberForm::Kind::Fraction)
    count.multiply(static_cast<std::uint32_t>(form.digits));
  if (form.kind == NumberForm::Kind::Places) multiplyByTens(count, form.digits);
  constexpr int most = 31;
  if (exponent < 0) count.add(std::uint64_t{1} << (-exponent - 1));  // fewer than 2^55, by 2^50
  for (; exponent < 0; exponent += std::min(-exponent, most))
    count.divide(std::uint32_t{1} << std::min(-exponent, most));
  for (; exponent > 0; exponent -= std::min(exponent, most))
    count.multiply(std::uint32_t{1} << std::min(exponent, most));
  return count;
}

void roundToSteps(double magnitude, const NumberForm& form, RoundedNumber& number) {
  const double step = form.kind == NumberForm::Kind::Places
                          ? FixedPointNumberRenderer::steps[form.digits]
                          : 1.0 / form.digits;
  const double steps = magnitude * form.lastUnits / step;
  if (steps < mostSteps)  // as the engine rounds
    splitSteps(ShortNatural(static_cast<std::uint64_t>(steps + 0.5 + roundingTolerance)), form,
               number);
  else
    splitSteps(countExactly(magnitude, form), form, number);
}

void splitDigits(const SignificantDigits& rounded, const NumberForm& form, RoundedNumber& number) {
  if (rounded.exponent >= 0) {
    Natural count(rounded.digits);
    multiplyByTens(count, rounded.exponent);
    return splitUnits(count, form, number);
  }
  number.places = -rounded.exponent;
  constexpr int mostPlaces = 18;  // no number of 17 digits has as many before the point
  std::uint64_t one = 1;
  for (int place = 0; place < std::min(number.places, mostPlaces); ++place) one *= 10;
  number.fraction = rounded.digits % one;
  ShortNatural count(rounded.digits / one);
  splitUnits(count, form, number);
}

bool isZero(const RoundedNumber& number) {
  return number.fraction == 0 && number.whole == "0" && number.parts[0] == 0 &&
         number.parts[1] == 0;
}

/// A composite has no more places than a reader accepts.
void roundToMostPlaces(double magnitude, const NumberForm& form, RoundedNumber& number) {
  NumberForm inPlaces = form;
  inPlaces.kind = NumberForm::Kind::Places;
  inPlaces.digits = FixedPointNumberRenderer::maximumPrecision;
  roundToSteps(magnitude, inPlaces, number);
  if (isZero(number)) number.places = std::min(form.digits - 1, inPlaces.digits);  // as zero has
}

void roundToDigits(double magnitude, const NumberForm& form, RoundedNumber& number) {
  constexpr double alwaysInRange = 1e308;  // with fewer digits, a larger one might be infinite
  constexpr int mostDigits = 17;
  const double total = magnitude * form.lastUnits;
  if (std::isfinite(total)) {
    const SignificantDigits rounded =
        significantDigits(total, magnitude < alwaysInRange ? form.digits : mostDigits);
    const bool isTooFine = -rounded.exponent > FixedPointNumberRenderer::maximumPrecision;
    return form.layout && isTooFine ? roundToMostPlaces(magnitude, form, number)
                                    : splitDigits(rounded, form, number);
  }
  Natural count = countExactly(magnitude, form);
  splitUnits(count, form, number);
}

void reduceFraction(RoundedNumber& number) {
  const auto divisor = std::gcd(static_cast<std::uint32_t>(number.fraction), number.denominator);
  number.fraction /= divisor;
  number.denominator /= divisor;
}

}  // namespace

RoundedNumber roundNumber(double value, const NumberForm& form) {
  RoundedNumber number;
  const double magnitude = std::fabs(value);
  if (form.kind == NumberForm::Kind::Significant)
    roundToDigits(magnitude, form, number);
  else
    roundToSteps(magnitude, form, number);
  if (number.denominator != 0) reduceFraction(number);
  if (form.trims)
    for (; number.places > 0 && number.fraction % 10 == 0; --number.places) number.fraction /= 10;
  number.isNegative = value < 0.0 && !isZero(number);
  return number;
}

}  // namespace Units
