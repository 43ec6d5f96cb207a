#include "tests/catalogue/Packs.h"
#include "tests/catalogue/Ulps.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Units {
namespace {

/// Where a text may stand in a formula; @ is the text.
struct Context {
  const char* formula;
  double value;
  bool ofScales;       // sums of two readings of a thermometer mean something else
  bool ofPercentages;  // a product drops their power of 0, and the sum misses it
};

constexpr Context kContexts[] = {
    {"7 @", 7.0, true, true},      {"7@", 7.0, true, true},
    {"(3+4) @", 7.0, true, true},  {"1e-5 @", 1e-5, true, true},
    {"9 @-2 @", 7.0, false, true}, {"2 * 7 @ + 3 @", 17.0, false, false},
};

std::string put(const std::string& text, std::string formula) {
  for (std::size_t at = 0; (at = formula.find('@', at)) != std::string::npos; at += text.size())
    formula.replace(at, 1, text);
  return formula;
}

TEST(Texts, AreReadInFormulasAsTheUnitThatTheyShow) {
  std::size_t count = 0;
  for (const auto& [typeId, symbol] : catalogue().getSymbols()) {
    const auto decoration = symbol.getPrefixOrSuffix();
    if (!decoration || decoration->getText().empty()) continue;
    const std::string unit = symbol.getUnit().getTypeId();
    const auto absolute = symbol.getUnit().getAbsoluteUnitComponent();
    const bool percentage = catalogue().canConvert(unit, "trelvon.unit:unity-1.0.0");
    for (const Context& context : kContexts) {
      if ((absolute && !context.ofScales) || (percentage && !context.ofPercentages)) continue;
      const std::string formula = put(decoration->getText(), context.formula);
      SCOPED_TRACE(formula + " in " + unit);
      double value = 0;
      ASSERT_NO_THROW(value = catalogue().evaluateExpressionInUnit(unit, formula));
      ++count;
      if (absolute)
        EXPECT_NEAR(value, context.value, 2e-15 * std::max(1.0, absolute->getOffset()));
      else
        EXPECT_TRUE(areWithin2Ulps(value, context.value));
    }
  }
  EXPECT_GT(count, 6600u);
}

TEST(Texts, OfCompositeLayoutsAreWrittenAndReadBack) {
  const struct {
    const char* layout;
    double value;
    unsigned char places;
    const char* text;
  } rows[] = {
      {"feetAndInches", 5.53125, 3, "5' 6.375\""},
      {"feetAndInches", -0.5, 0, "-0' 6\""},
      {"feetHyphenInches", -5.5, 0, "-5' - 6\""},
      {"degreesMinutesSeconds", 10.5078125, 3, "10\u00b0 30' 28.125\""},
      {"metersAndCentimeters", -2.355, 1, "-2m 35.5cm"},
  };
  for (const auto& row : rows) {
    const std::string symbol = std::string("trelvon.symbol:") + row.layout + "-1.0.0";
    const std::string unit = catalogue().getSymbol(symbol).getUnit().getTypeId();
    EXPECT_EQ(catalogue().formatFixedPoint(row.value, row.places, &symbol, false), row.text);
    EXPECT_TRUE(areWithin2Ulps(catalogue().evaluateExpressionInUnit(unit, row.text), row.value));
  }
}

}  // namespace
}  // namespace Units
