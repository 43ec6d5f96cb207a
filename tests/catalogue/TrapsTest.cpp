/// Formulas that surprise, as the guide for their authors explains them, with everything loaded.

#include "tests/catalogue/Packs.h"
#include "tests/catalogue/Ulps.h"
#include "tests/support/Messages.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace Units {
namespace {

double evaluate(const std::string& unit, const std::string& formula) {
  return catalogue().evaluateExpressionInUnit("trelvon.unit:" + unit + "-1.0.0", formula);
}

struct Value {
  const char* formula;
  const char* unit;
  double value;
};

TEST(Traps, GiveWhatTheGuideSays) {
  constexpr Value kValues[] = {
      // a "-" between meters and centimeters, or feet and inches, only separates them
      {"10 m - 35 cm", "meter", 10.35},
      {"10 m - (35 cm)", "meter", 9.65},
      {"10 m + -35 cm", "meter", 9.65},
      {"10 m - 350 mm", "meter", 9.65},
      {"12 in - 5 in", "inch", 7.0},
      {"1-1/2\"", "inch", 12.5},
      {"1 1/2\"", "inch", 1.5},
      {"3 m - 1", "meter", 3.01},
      {"100 m - 2 cm * 3", "meter", 300.06},
      {"4 ft * 3 - 6 in", "squareFoot", 14.0},
      // a power after a literal is a power of the unit only where the text with it is a symbol
      {"7 ft2/2", "foot", 7.0 + 1.0 / 12.0},
      {"7 ft^2 / 2", "squareFoot", 3.5},
      {"5 m^2", "squareMeter", 5.0},
      {"5 ft2", "squareFoot", 5.0},
      {"(5 m)^2", "squareMeter", 25.0},
      {"5 * (1 s)^2 / (1 s)", "second", 5.0},
      {"5 m / (2 s)^2", "meterPerSecondSquared", 1.25},
      {"5 s^-1", "hertz", 5.0},
      // readings of a thermometer count from absolute zero
      {"20 \u00b0C + 5 \u00b0C", "degreeCelsius", 298.15},
      {"20 \u00b0C + 5 K", "degreeCelsius", 25.0},
      {"20 \u00b0C + 5 \u0394\u00b0C", "degreeCelsius", 25.0},
      {"20 \u00b0C - 10 \u00b0C", "kelvin", 10.0},
      {"3 kg * 5% + 2 kg", "kilogram", 2.15},
      {"1 + 1*5%", "unity", 1.05},
      {"sin(30 \u00b0 / 1 rad)", "unity", 0.5},
      {"ln(100)", "unity", 4.605170185988092},
      {"round(1.4 ft)", "foot", 0.0},
      {"round(1.4 ft / 1 ft) * 1 ft", "foot", 1.0},
      {"30'", "foot", 30.0},
      {"30\u2032", "degree", 0.5},
      {"10\u00b0 30' 15\"", "degree", 10.504166666666666},
      {"5 Hz", "second", 0.2},
      // one over two millimeters, and reciprocals convert
      {"1/2 mm", "millimeter", 2.0},
      {"(1/2) mm", "millimeter", 0.5},
      {"100 kPag", "kilopascalGauge", 99.99999999999999},
  };
  for (const Value& row : kValues) {
    SCOPED_TRACE(row.formula);
    double value = 0.0;
    ASSERT_NO_THROW(value = evaluate(row.unit, row.formula));
    EXPECT_TRUE(areWithin2Ulps(value, row.value));
  }
}

TEST(Traps, AreRefusedWhereTheGuideSaysSo) {
  const std::string cannot = "Unable to parse expression.";
  for (const char* formula : {"1 + 5%", "2*5% + 3%"})
    EXPECT_EQ(messageOf<ParseException>([&] { evaluate("percent", formula); }), cannot) << formula;
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("kilogram", "5% * 3 kg + 2 kg"); }), cannot);
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("foot", "4 ft * 3 - 6 in"); }), cannot);
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("unity", "sin(30\u00b0)"); }),
            "Function input must be unitless.");
  // fractions are read with inch marks alone
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("millimeter", "1 1/2 mm"); }),
            "Unrecognized identifier: 1 1.");
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("meter", "2m 35 1/2cm"); }),
            "Unrecognized identifier: 2m 35 1.");
  EXPECT_EQ(messageOf<ParseException>([] { evaluate("degree", "10\u00b0 30' 15 1/4\""); }),
            "Unrecognized identifier: 10\u00b0 30' 15 1.");
  EXPECT_EQ(messageOf<std::logic_error>([] { evaluate("percent", "5%^2"); }),
            "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003");
}

TEST(Traps, HideVariablesThatBeginAsATextDoesButNeverGiveAWrongNumber) {
  const auto two = [](const std::string&) { return std::string("2"); };
  for (const char* name : {"h1", "d_outer", "A1", "m_load", "t", "L", "L\u00e4nge"})
    EXPECT_THROW(catalogue().evaluateUnitlessExpression(std::string(name) + " * 3", two),
                 ParseException)
        << name;
  for (const char* name : {"width", "height", "alpha", "count"})
    EXPECT_EQ(catalogue().evaluateUnitlessExpression(std::string(name) + " * 3", two), 6.0) << name;
}

TEST(Traps, OfHostsThatLeaveTheCompositeTextsOut) {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  for (const char* folder : {"core", "symbols/length"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(kSchemas + "/" + folder, *engine);
  // An eighth of a foot, but the number has lost its unit and is taken for inches.
  EXPECT_EQ(engine->evaluateExpressionInUnit("trelvon.unit:inch-1.0.0", "1 1/2 in"), 0.125);
}

}  // namespace
}  // namespace Units
