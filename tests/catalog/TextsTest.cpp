#include "tests/catalog/Packs.h"
#include "tests/support/Bits.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Units {
namespace {

/// How many doubles apart two numbers of one sign are.
std::uint64_t ulpsBetween(double a, double b) {
  return std::max(bitsOf(a), bitsOf(b)) - std::min(bitsOf(a), bitsOf(b));
}

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
  for (const auto& [typeId, symbol] : catalog().getSymbols()) {
    const auto decoration = symbol.getPrefixOrSuffix();
    if (!decoration || decoration->getText().empty()) continue;
    const std::string unit = symbol.getUnit().getTypeId();
    const auto absolute = symbol.getUnit().getAbsoluteUnitComponent();
    const bool percentage = catalog().canConvert(unit, "trelvon.unit:unity-1.0.0");
    for (const Context& context : kContexts) {
      if ((absolute && !context.ofScales) || (percentage && !context.ofPercentages)) continue;
      const std::string formula = put(decoration->getText(), context.formula);
      SCOPED_TRACE(formula + " in " + unit);
      double value = 0;
      ASSERT_NO_THROW(value = catalog().evaluateExpressionInUnit(unit, formula));
      ++count;
      if (absolute)
        EXPECT_NEAR(value, context.value, 2e-15 * std::max(1.0, absolute->getOffset()));
      else
        EXPECT_LE(ulpsBetween(value, context.value), 2u) << value;
    }
  }
  EXPECT_GT(count, 6600u);
}

}  // namespace
}  // namespace Units
