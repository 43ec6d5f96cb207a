#include "text/DisplayText.h"

#include "tests/support/FailingAllocations.h"
#include "tests/support/Messages.h"
#include "tests/unit/text/TextSymbols.h"
#include "text/FixedPointNumberRenderer.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace Units {
namespace {

enum class Style { Fixed, Trimmed, Fractional };

struct Call {
  double value;
  Style style;
  unsigned char precision;
  const char* symbol;  // null for none
};

class DisplayText : public testing::Test {
 protected:
  std::string write(const Call& call) const {
    const std::string symbol = call.symbol ? call.symbol : "";
    const std::string* const typeId = call.symbol ? &symbol : nullptr;
    if (call.style == Style::Fractional)
      return formatFractional(call.value, call.precision, typeId, symbols_);
    return formatFixedPoint(call.value, call.precision, typeId, call.style == Style::Trimmed,
                            symbols_);
  }

  const RecordStore<Symbol> symbols_{makeTextSymbols()};
};

TEST_F(DisplayText, PutsSymbolsAroundNumbers) {
  const char* const feet = ":feetAndInches-1";
  const char* const degrees = ":degreesMinutesSeconds-1";
  const char* const meters = ":metersAndCentimeters-1";
  const struct {
    Call call;
    const char* text;
  } rows[] = {
      {{3.5, Style::Fixed, 1, "meter"}, "3.5m"},
      {{3.5, Style::Fixed, 1, "kilogram"}, "3.5 kg"},
      {{-5, Style::Fixed, 0, "dollar"}, "-$ 5"},
      {{-1.5, Style::Fractional, 1, "euro"}, "-EUR1 1/2"},
      {{-5, Style::Trimmed, 3, nullptr}, "-5"},
      {{-5, Style::Fixed, 3, "count"}, "-5.000"},
      {{-0.001, Style::Fixed, 2, "kilogram"}, "0.00 kg"},
      {{100.0, Style::Trimmed, 1, nullptr}, "100"},
      {{-0.004, Style::Trimmed, 2, nullptr}, "0"},
      {{5e-324, Style::Fixed, 12, nullptr}, "0.000000000000"},
      {{0.4999999985, Style::Fixed, 0, nullptr}, "0"},
      {{0.4999999995, Style::Fixed, 0, nullptr}, "1"},  // a billionth short of a half is one
      {{18446744073709551616.0, Style::Fixed, 1, nullptr}, "18446744073709551616.0"},
      {{1e60, Style::Fixed, 0, nullptr},
       "999999999999999949387135297074018866963645011013410073083904"},
      {{1e308, Style::Fixed, 12, nullptr}, "inf"},  // more steps than a double counts
      {{-std::nan(""), Style::Fixed, 2, nullptr}, "nan"},
      {{-1.25, Style::Fractional, 2, nullptr}, "-1 1/4"},
      {{-0.01, Style::Fractional, 2, nullptr}, "0"},
      {{4194303.998046875, Style::Fractional, 9, nullptr}, "4194303 511/512"},
      {{9223372036854775808.0, Style::Fractional, 9, nullptr}, "9223372036854775808"},
      {{18446744073709551616.0, Style::Fractional, 0, nullptr}, "18446744073709551616"},
      {{-1e25, Style::Fractional, 4, nullptr}, "-10000000000000000905969664"},
      {{-HUGE_VAL, Style::Fractional, 0, nullptr}, "-inf"},
      {{1.0 / 512, Style::Fractional, 9, nullptr}, "1/512"},
      {{-0.0, Style::Fixed, 0, feet}, "0' 0\""},
      {{5.25, Style::Trimmed, 2, feet}, "5' 3\""},
      {{0.9999, Style::Fixed, 0, degrees}, "0\xC2\xB0 59' 60\""},
      {{2.5, Style::Fixed, 0, "~:metersAndCentimeters-1:feetAndInches-1.0.0"}, "2' 6\""},
      {{-18446744073709551616.0, Style::Fixed, 0, feet}, "-18446744073709551616' 0\""},
      {{1e25, Style::Fractional, 4, meters}, "10000000000000000905969664m 0cm"},
      {{-HUGE_VAL, Style::Fixed, 1, degrees}, "-inf\xC2\xB0 0' 0.0\""},
      {{std::nan(""), Style::Fractional, 1, feet}, "nan' nan\""},
  };
  for (const auto& row : rows) EXPECT_EQ(write(row.call), row.text);
}

TEST_F(DisplayText, RefusesPrecisionsFirst) {
  const auto refusalOf = [&](const Call& call) {
    return messageOf<PrecisionException>([&] { write(call); });
  };
  EXPECT_EQ(refusalOf({5, Style::Fixed, 13, "unknown"}),
            "Requested fixed point precision of 13 decimal places, but the maximum is 12.");
  EXPECT_EQ(refusalOf({5, Style::Fractional, 10, "unknown"}),
            "Requested fractional precision of 2^(-10), but the maximum is 2^(-9).");

  const auto missing = [&](const Call& call) {
    return messageOf<UnrecognizedIdentifierException>([&] { write(call); });
  };
  EXPECT_EQ(missing({5, Style::Fractional, 9, "unknown"}),
            "Could not find symbol with typeid unknown.");
  EXPECT_EQ(missing({5, Style::Fixed, 12, "none"}),
            "Could not find special symbol with typeid none.");
}

TEST(FixedPointNumberRenderer, StepsByPowersOfTen) {
  for (int places = 0; places <= FixedPointNumberRenderer::maximumPrecision; ++places)
    EXPECT_EQ(FixedPointNumberRenderer::steps[places], std::pow(10.0, -places));
}

TEST_F(DisplayText, AllocatesNothingButTheText) {
  for (const char* typeId : {"meter", "kilogram", "dollar", "long", ":feetAndInches-1",
                             ":degreesMinutesSeconds-1", ":metersAndCentimeters-1"})
    for (const double value : {0.0, 5.5, -12345.678, -999999999.9, 3e15, -1e22, 1e200, DBL_MAX})
      for (const auto precision : std::initializer_list<unsigned char>{0, 3, 9}) {
        const std::string symbol = typeId;
        const auto fixed = [&] { formatFixedPoint(value, precision, &symbol, true, symbols_); };
        const auto fraction = [&] { formatFractional(value, precision, &symbol, symbols_); };
        constexpr long growths = 3;  // for digits, symbol and sign; each at least doubles the text
        EXPECT_LE(failEachAllocation(fixed), growths) << symbol << value;
        EXPECT_LE(failEachAllocation(fraction), growths) << symbol << value;
      }
}

}  // namespace
}  // namespace Units
