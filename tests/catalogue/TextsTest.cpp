#include "tests/catalogue/Packs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Units {
namespace {

/// How many doubles apart two numbers of one sign are.
std::uint64_t ulpsBetween(double a, double b) {
  std::uint64_t left = 0;
  std::uint64_t right = 0;
  std::memcpy(&left, &a, sizeof left);
  std::memcpy(&right, &b, sizeof right);
  return left > right ? left - right : right - left;
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
        EXPECT_LE(ulpsBetween(value, context.value), 2u) << value;
    }
  }
  EXPECT_GT(count, 6600u);
}

TEST(Texts, HideVariablesThatBeginAsTheyDoButNeverGiveAWrongNumber) {
  const auto two = [](const std::string&) { return std::string("2"); };
  for (const char* name : {"h1", "d_outer", "A1", "m_load", "t", "L", "L\u00e4nge"})
    EXPECT_THROW(catalogue().evaluateUnitlessExpression(std::string(name) + " * 3", two),
                 ParseException)
        << name;
  for (const char* name : {"width", "height", "alpha", "count"})
    EXPECT_EQ(catalogue().evaluateUnitlessExpression(std::string(name) + " * 3", two), 6.0) << name;
}

TEST(Texts, OfCompositeLayoutsMayBeLeftOut) {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  for (const char* folder : {"core", "symbols/length"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(kSchemas + "/" + folder, *engine);
  // An eighth of a foot, but the number has lost its unit and is taken for inches.
  EXPECT_EQ(engine->evaluateExpressionInUnit("trelvon.unit:inch-1.0.0", "1 1/2 in"), 0.125);
}

}  // namespace
}  // namespace Units
