#include "tests/catalogue/Packs.h"
#include "tests/catalogue/Ulps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace Units {
namespace {

class Texts : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    engine_.reset(CreateUnitsEngine());
    loadPacks(*engine_);
  }
  static void TearDownTestSuite() { engine_.reset(); }

  /// Nothing when the formula is refused, and a failure of the test.
  static std::optional<double> evaluate(const std::string& unit, const std::string& formula) {
    try {
      return engine_->evaluateExpressionInUnit(unit, formula);
    } catch (const std::exception& refusal) {
      ADD_FAILURE() << formula << " in " << unit << ": " << refusal.what();
      return std::nullopt;
    }
  }

  inline static std::unique_ptr<UnitsEngine> engine_;
};

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

TEST_F(Texts, AreReadInFormulasAsTheUnitThatTheyShow) {
  std::uint64_t worst = 0;
  std::size_t count = 0;
  for (const auto& [typeId, symbol] : engine_->getSymbols()) {
    const auto decoration = symbol.getPrefixOrSuffix();
    if (!decoration || decoration->getText().empty()) continue;
    const Unit unit = symbol.getUnit();
    const auto absolute = unit.getAbsoluteUnitComponent();
    const bool percentage = engine_->canConvert(unit.getTypeId(), "trelvon.unit:unity-1.0.0");
    for (const Context& context : kContexts) {
      if ((absolute && !context.ofScales) || (percentage && !context.ofPercentages)) continue;
      const std::string formula = put(decoration->getText(), context.formula);
      const auto value = evaluate(unit.getTypeId(), formula);
      if (!value) continue;
      ++count;
      if (absolute) {
        EXPECT_NEAR(*value, context.value, 2e-15 * std::max(1.0, absolute->getOffset())) << formula;
      } else {
        EXPECT_TRUE(areWithin2Ulps(*value, context.value)) << formula << " in " << typeId;
        worst = std::max(worst, ulpsBetween(*value, context.value));
      }
    }
  }
  EXPECT_GT(count, 6600u);
  RecordProperty("formulas", static_cast<int>(count));
  RecordProperty("worstUlps", static_cast<int>(worst));
}

const std::string kFeet = "trelvon.symbol:feetAndInches-1.0.0";
const std::string kHyphen = "trelvon.symbol:feetHyphenInches-1.0.0";
const std::string kDegrees = "trelvon.symbol:degreesMinutesSeconds-1.0.0";
const std::string kMeters = "trelvon.symbol:metersAndCentimeters-1.0.0";

struct Composite {
  const std::string& symbol;
  double value;
  bool fractional;
  unsigned char precision;
  const char* text;
  double read;
};

TEST_F(Texts, OfCompositeLayoutsAreWrittenAndReadBack) {
  const Composite rows[] = {
      {kFeet, 5.5, false, 0, "5' 6\"", 5.5},
      {kFeet, -5.5, false, 0, "-5' 6\"", -5.5},
      {kFeet, 0.0, false, 0, "0' 0\"", 0.0},
      {kFeet, -0.5, false, 0, "-0' 6\"", -0.5},
      {kFeet, 5.999, false, 0, "5' 12\"", 6.0},
      {kFeet, 5.53125, false, 3, "5' 6.375\"", 5.53125},
      {kFeet, 5.53125, true, 4, "5' 6 3/8\"", 5.53125},
      {kFeet, 0.0625, true, 4, "0' 3/4\"", 0.0625},
      {kHyphen, 5.5, false, 0, "5' - 6\"", 5.5},
      {kHyphen, -5.5, false, 0, "-5' - 6\"", -5.5},
      {kHyphen, 5.53125, true, 4, "5' - 6 3/8\"", 5.53125},
      {kDegrees, 10.5, false, 0, "10\u00b0 30' 0\"", 10.5},
      {kDegrees, -0.25, false, 0, "-0\u00b0 15' 0\"", -0.25},
      {kDegrees, 0.9999, false, 0, "0\u00b0 59' 60\"", 1.0},
      {kDegrees, 10.5078125, false, 3, "10\u00b0 30' 28.125\"", 10.5078125},
      {kMeters, 2.35, false, 0, "2m 35cm", 2.35},
      {kMeters, -2.355, false, 1, "-2m 35.5cm", -2.355},
      {kMeters, 0.05, false, 0, "0m 5cm", 0.05},
  };
  for (const Composite& row : rows) {
    SCOPED_TRACE(row.text);
    const std::string text =
        row.fractional ? engine_->formatFractional(row.value, row.precision, &row.symbol)
                       : engine_->formatFixedPoint(row.value, row.precision, &row.symbol, false);
    EXPECT_EQ(text, row.text);
    const auto read = evaluate(engine_->getSymbol(row.symbol).getUnit().getTypeId(), text);
    ASSERT_TRUE(read);
    EXPECT_TRUE(areWithin2Ulps(*read, row.read));
  }
}

TEST_F(Texts, OfCompositeLayoutsAreReadBackAndWrittenAgain) {
  const auto format = [](const std::string& symbol, double value) {
    return symbol == kFeet || symbol == kHyphen
               ? engine_->formatFractional(value, 4, &symbol)
               : engine_->formatFixedPoint(value, 0, &symbol, false);
  };
  for (const std::string& symbol : {kFeet, kHyphen, kDegrees, kMeters}) {
    const std::string unit = engine_->getSymbol(symbol).getUnit().getTypeId();
    const double step = symbol == kMeters ? 1.0 / 100 : symbol == kDegrees ? 7.0 / 3600 : 1.0 / 192;
    for (int count = -500; count <= 500; ++count) {
      const std::string text = format(symbol, count * step);
      const auto read = evaluate(unit, text);
      ASSERT_TRUE(read);
      EXPECT_EQ(format(symbol, *read), text);
    }
  }
}

}  // namespace
}  // namespace Units
