#include "text/ValueText.h"

#include "tests/unit/text/TextSymbols.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace Units {
namespace {

const char* const feet = ":feetAndInches-1";
const char* const degrees = ":degreesMinutesSeconds-1";
const char* const meters = ":metersAndCentimeters-1";

class ValueText : public testing::Test {
 protected:
  /// Reads a text that stands before a digit, which must not be seen.
  bool read(const std::string& text, double& value, std::string& symbolTypeId) const {
    const std::string longer = text + "5";
    const Symbol* symbol = nullptr;
    if (!parseValueText(std::string_view(longer).substr(0, text.size()), &value, &symbol, texts_))
      return false;
    symbolTypeId = symbol ? symbol->getTypeId() : "";
    return true;
  }

  const RecordStore<Symbol> symbols_{makeTextSymbols()};
  const SymbolTexts texts_{symbols_};
};

TEST_F(ValueText, IsReadAsAWhole) {
  const double angle = 10 + 30 / 60.0 + 15 / 3600.0;
  const double length = 35 / 100.0 + 2;
  const double mostWhole = 2147483647.0;
  const std::string longAngle = std::string(70, '0') + "10 30' 15\"";
  const struct {
    double value;
    const char* symbol;
    std::vector<const char*> texts;
  } rows[] = {
      {12, "", {"12", "12   ", "+12", "\t12", "0xC"}},
      {-1e-5, "", {"-1e-5", "  - 1e-5", "-+.1e-4"}},
      {-0.0, "", {"-0", "--0"}},
      {3, "meter", {"3 m", "3m "}},
      {3, "squareMeter", {"3 m^2"}},
      {-3.5, "kilogram", {"-3.5  kg  "}},
      {-20, "dollar", {"-$20", "- $ 20 "}},
      {7, "euro", {"EUR 7"}},
      {6.5 / 12.0, feet, {"6.5\"", "6.5 in.", "\t6.5\"", "\r6.5\"", "65e-1\""}},
      {3 / (5 * 12.0), feet, {"3/5\"", "3 / 5 inch"}},
      {6 / 12.0 + 1 / (2 * 12.0), feet, {"6 1/2''", "6 1/2 inches"}},
      {-0.0, feet, {"-0\"", "--0\""}},
      {5.5,
       feet,
       {"5'6", "5 ft 6 in", "5 ft.6 inches", "5foot 6inch", "5-6\"", "5' -6''", "5 6\"",
        "5feet-6/1"}},
      {-(7 / 12.0 + 1 + 1 / (2 * 12.0)), feet, {"-1' - 7 1/2\"", "-1 7 1/2 in"}},
      {7 + 2 / (2 * 12.0), feet, {"7 ft2/2"}},
      {6, feet, {"5' 12\""}},
      {mostWhole + 0.5, feet, {"2147483648' 6\"", "99999999999' 6\""}},
      {1 / (mostWhole * 12.0), feet, {"1/99999999999\""}},
      {10, degrees, {"10\xC2\xB0"}},
      {10.5, degrees, {"10\xC2\xB0 30'", "10 \xC2\xB0 30"}},
      {10 + 15 / 3600.0, degrees, {"10\xC2\xB0 15\"", "10\xC2\xB0 15 \""}},
      {-angle, degrees, {"-10\xC2\xB0 30' 15\"", "-10\xC2\xB0 30 15"}},
      {angle,
       degrees,
       {"10 30' 15\"", "10 30'15", "10 30 15\"", "10 +30' +1.5e1\"", longAngle.c_str()}},
      {35 / 100.0, meters, {"35cm", "35 centimeter"}},
      {length, meters, {"2m 35cm", "2 m 35", "2meter-35", "2-35cm", "2 35 cm", "2 +35 cm"}},
  };
  for (const auto& row : rows)
    for (const char* const text : row.texts) {
      double value = 0;
      std::string symbol;
      EXPECT_TRUE(read(text, value, symbol)) << text;
      EXPECT_EQ(value, row.value) << text;
      EXPECT_EQ(std::signbit(value), std::signbit(row.value)) << text;
      EXPECT_EQ(symbol, row.symbol) << text;
    }
}

TEST_F(ValueText, IsRefusedAsAWhole) {
  const struct {
    const char* cause;
    std::vector<const char*> texts;
  } rows[] = {
      {"no number", {"", " ", "-", "x", "m", "$", "EUR x"}},
      {"a second sign", {"- -5", "$-5", "5' +6\"", "2m+", "10\xC2\xB0 -"}},
      {"not finite", {"1e999", "inf", "nan", "5' inf\"", "10\xC2\xB0 nan"}},
      {"something left", {"12\t", "1,5", "3 mm", "3 m m", "$5kg", "6 in 5", "-5' 6\" x"}},
      {"something left",
       {"6' 1/2 m", "10\xC2\xB0x", "10\xC2\xB0 30' 15\" 5", "2m 35 m", "10 15\"x"}},
      {"a symbol on the wrong side", {"kg 3", "5 $"}},
      {"no mark",
       {"5 6", "5- 6", "1/2", "10\xC2\xB0 5+5\"", "10 30 15", "10 30'", "2 35", "2-35", "5 6e0",
        "2 35e0"}},
      {"not whole",
       {"5.5' 6\"", "10.5\xC2\xB0", "2.5m 35cm", "1.5/2\"", "1/2.5\"", "5:' 6\"", ".5' 6\"",
        ".5\xC2\xB0", ".5m 3cm"}},
      {"no inches", {"5'", "5 ft"}},
      {"no denominator", {"6 1/0\"", "1/0 in", "1/\""}},
  };
  for (const auto& row : rows)
    for (const char* const text : row.texts) {
      double value = 7;
      std::string symbol = "before";
      EXPECT_FALSE(read(text, value, symbol)) << text << " has " << row.cause;
      EXPECT_EQ(value, 7) << text;
      EXPECT_EQ(symbol, "before") << text;
    }
}

TEST_F(ValueText, GivesWhatIsWanted) {
  EXPECT_TRUE(parseValueText("3 m", nullptr, nullptr, texts_));
  const SymbolTexts none;
  const Symbol* symbol = &symbols_.nodes().begin()->second.record;
  EXPECT_TRUE(parseValueText("5' 6\"", nullptr, &symbol, none));
  EXPECT_EQ(symbol, nullptr);
}

}  // namespace
}  // namespace Units
