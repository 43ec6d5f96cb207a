#include "tests/text/TextSymbols.h"
#include "text/CompositeReaders.h"
#include "text/DisplayText.h"
#include "text/ValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>

namespace Units {
namespace {

const char* const feet = ":feetAndInches-1";
const char* const degrees = ":degreesMinutesSeconds-1";
const char* const meters = ":metersAndCentimeters-1";

class ValueText : public testing::Test {
 protected:
  /// Reads a text that stands before a digit, which it must not see, and compares its type id.
  bool read(const std::string& text, double& value, std::string& symbolTypeId) const {
    const std::string longer = text + "5";
    const Symbol* symbol = nullptr;
    if (!parseValueText(std::string_view(longer).substr(0, text.size()), &value, &symbol, texts_))
      return false;
    symbolTypeId = symbol ? symbol->getTypeId() : "";
    return true;
  }

  const TextSymbols symbols_ = makeTextSymbols();
  const SymbolTexts texts_{symbols_.records()};
};

TEST_F(ValueText, IsReadAsAWhole) {
  const double saturated = 2147483647.0;
  const struct {
    const char* text;
    double value;
    const char* symbol;
  } rows[] = {
      {"12", 12, ""},
      {"12   ", 12, ""},
      {"  - 12.5", -12.5, ""},
      {"+12", 12, ""},
      {"-0", -0.0, ""},
      {"-+1e-5", -1e-5, ""},
      {"0x1p-1", 0.5, ""},
      {"\t12", 12, ""},
      {"3 m", 3, "meter"},
      {"3m ", 3, "meter"},
      {"3 m^2", 3, "squareMeter"},
      {"-3.5  kg  ", -3.5, "kilogram"},
      {"$20", 20, "dollar"},
      {"-$ 20 ", -20, "dollar"},
      {"EUR 7", 7, "euro"},
      {"6\"", 6 / 12.0, feet},
      {"6.5 in", 6.5 / 12.0, feet},
      {"-1/2\"", -(1 / (2 * 12.0)), feet},
      {"6 1/2 inches", 6 / 12.0 + 1 / (2 * 12.0), feet},
      {"--0\"", -0.0, feet},
      {"-5' 6\"", -5.5, feet},
      {"5'6", 5.5, feet},
      {"5 ft 6 in", 5.5, feet},
      {"5foot 6inch", 5.5, feet},
      {"5-6\"", 5.5, feet},
      {"5' - 6 1/2\"", 6 / 12.0 + 5 + 1 / (2 * 12.0), feet},
      {"5' -6''", 5.5, feet},
      {"5 6.5\"", 5 + 6.5 / 12.0, feet},
      {"7 ft2/2", 7 + 2 / (2 * 12.0), feet},
      {"5' 12\"", 6, feet},
      {"99999999999' 6\"", saturated + 0.5, feet},
      {"1/99999999999\"", 1 / (saturated * 12.0), feet},
      {"10\xC2\xB0", 10, degrees},
      {"10\xC2\xB0 30'", 10.5, degrees},
      {"10\xC2\xB0 30", 10.5, degrees},
      {"10\xC2\xB0 15\"", 10 + 15 / 3600.0, degrees},
      {"-10\xC2\xB0 30' 15\"", -(10 + 30 / 60.0 + 15 / 3600.0), degrees},
      {"10\xC2\xB0"
       "30'15\"",
       10 + 30 / 60.0 + 15 / 3600.0, degrees},
      {"10 30' 15\"", 10 + 30 / 60.0 + 15 / 3600.0, degrees},
      {"10 30'15", 10 + 30 / 60.0 + 15 / 3600.0, degrees},
      {"10 30 15\"", 10 + 30 / 60.0 + 15 / 3600.0, degrees},
      {"10 +30.5' +1e1\"", 10 + 30.5 / 60.0 + 10 / 3600.0, degrees},
      {"35cm", 35 / 100.0, meters},
      {"3.5 centimeter", 3.5 / 100.0, meters},
      {"2m 35cm", 35 / 100.0 + 2, meters},
      {"2 m 35", 35 / 100.0 + 2, meters},
      {"-2meter-35", -(35 / 100.0 + 2), meters},
      {"2-35cm", 35 / 100.0 + 2, meters},
      {"2 +35 cm", 35 / 100.0 + 2, meters},
  };
  for (const auto& row : rows) {
    double value = 0;
    std::string symbol;
    EXPECT_TRUE(read(row.text, value, symbol)) << row.text;
    EXPECT_EQ(value, row.value) << row.text;
    EXPECT_EQ(std::signbit(value), std::signbit(row.value)) << row.text;
    EXPECT_EQ(symbol, row.symbol) << row.text;
  }
}

TEST_F(ValueText, IsRefusedAsAWhole) {
  for (const char* text : {"",
                           " ",
                           "-",
                           "x",
                           "- -5",
                           "1e999",
                           "inf",
                           "nan",
                           "12\t",
                           "1,5",
                           "3 mm",
                           "3 m m",
                           "m",
                           "kg 3",
                           "5 $",
                           "$-5",
                           "$",
                           "$5kg",
                           "5 6",
                           "5.5' 6\"",
                           "5'",
                           "6 1/0\"",
                           "1/0 in",
                           "5' +6\"",
                           "6 in 5",
                           "5- 6",
                           "-1/2",
                           "-5' 6\" x",
                           "10 30 15",
                           "10 30'",
                           "10.5\xC2\xB0",
                           "10\xC2\xB0 30' 15\" 5",
                           "10\xC2\xB0 -",
                           "10\xC2\xB0x",
                           "10 15\"x",
                           "2m 35 m",
                           "2 35",
                           "2.5m 35cm",
                           "2-35",
                           "2m+",
                           "5' inf\"",
                           "10\xC2\xB0 nan",
                           "1/2",
                           "6' 1/2 m"}) {
    double value = 7;
    std::string symbol = "before";
    EXPECT_FALSE(read(text, value, symbol)) << text;
    EXPECT_EQ(value, 7) << text;
    EXPECT_EQ(symbol, "before") << text;
  }
}

TEST_F(ValueText, IsWhatAnyCompositeReaderAccepts) {
  const char* const pieces[] = {"1",  "25", ".5",   "e1",       "0x", " ",  " ", "'",
                                "\"", "''", "ft",   "in",       "m",  "cm", "-", "/",
                                "+",  "x",  "inch", "\xC2\xB0", "\t", "*"};
  std::mt19937_64 random(5);
  int accepted = 0;
  for (int round = 0; round < 200000; ++round) {
    std::string text;
    for (auto count = random() % 9; count > 0; --count)
      text += pieces[random() % std::size(pieces)];
    double value = 0;
    const bool isComposite = readInchesOnly(text, value) || readFeetAndInches(text, value) ||
                             readDegreesMinutesSeconds(text, value) ||
                             readMetersAndCentimeters(text, value);
    EXPECT_TRUE(!isComposite || parseValueText(text, nullptr, nullptr, texts_)) << text;
    accepted += isComposite ? 1 : 0;
  }
  EXPECT_GT(accepted, 1000);
}

TEST_F(ValueText, GivesWhatIsWanted) {
  EXPECT_TRUE(parseValueText("3 m", nullptr, nullptr, texts_));
  const SymbolTexts none;
  const Symbol* symbol = &symbols_.records().begin()->second;
  EXPECT_TRUE(parseValueText("5' 6\"", nullptr, &symbol, none));
  EXPECT_EQ(symbol, nullptr);
}

TEST_F(ValueText, BeginsWithTheLongestSymbol) {
  const struct {
    const char* text;
    std::optional<Placement> placement;
    const char* symbol;  // null for none
    const char* rest;
  } rows[] = {
      {"  m^2/s", std::nullopt, "squareMeter", "/s"},
      {"m^x", Placement::Suffix, "meter", "^x"},
      {"m^2", Placement::Prefix, nullptr, "m^2"},
      {" mm", std::nullopt, nullptr, " mm"},
      {"$5", std::nullopt, "dollar", "5"},
      {"$5", Placement::Suffix, nullptr, "$5"},
      {"EURO", std::nullopt, nullptr, "EURO"},
      {"  ", std::nullopt, nullptr, "  "},
  };
  for (const auto& row : rows) {
    std::string_view text = row.text;
    const Symbol* symbol = nullptr;
    EXPECT_EQ(matchLeadingSymbol(text, row.placement, &symbol, texts_), row.symbol != nullptr);
    EXPECT_EQ(text, row.rest) << row.text;
    EXPECT_EQ(symbol ? symbol->getTypeId() : "none", row.symbol ? row.symbol : "none");
  }
}

/// Texts in the form in which they are written: read and written again they are the same, and so is
/// what they are read as.
class ReadingBack : public ValueText {
 protected:
  template <class Write>
  void expectTheSame(const std::string& text, const std::string& symbol, const Write& write) {
    double value = 0;
    std::string found;
    ASSERT_TRUE(read(text, value, found)) << text;
    EXPECT_EQ(found, symbol) << text;
    EXPECT_EQ(write(value, symbol), text);
  }

  std::uint64_t below(std::uint64_t limit) { return random_() % limit; }
  std::string number(std::uint64_t limit) { return std::to_string(below(limit)); }
  std::string sign() { return below(2) == 0 ? "-" : ""; }

  std::mt19937_64 random_{3};
};

TEST_F(ReadingBack, NumbersWithTexts) {
  for (int round = 0; round < 20000; ++round) {
    const double value = static_cast<double>(random_() >> (24 + below(40))) / 1024.0;
    const auto places = static_cast<unsigned char>(below(4));
    const bool trims = below(2) == 0;
    for (const char* const symbol : {"meter", "squareMeter", "kilogram", "dollar", "euro"}) {
      const auto write = [&](double number, const std::string& typeId) {
        return formatFixedPoint(number, places, &typeId, trims, symbols_.records());
      };
      expectTheSame(write(below(2) == 0 ? -value : value, symbol), symbol, write);
    }
  }
}

TEST_F(ReadingBack, FeetAndInchesWithFractions) {
  for (int round = 0; round < 20000; ++round) {
    const auto precision = static_cast<unsigned char>(below(10));
    const std::uint64_t denominator = std::uint64_t{1} << precision;
    const std::uint64_t numerator = below(denominator);
    const std::uint64_t divisor = std::gcd(numerator, denominator);
    const std::uint64_t inches = below(12);
    std::string text = sign() + number(100000) + (below(2) == 0 ? "' " : "' - ");
    if (inches != 0 || numerator == 0) text += std::to_string(inches);
    if (inches != 0 && numerator != 0) text += ' ';
    if (numerator != 0)
      text += std::to_string(numerator / divisor) + "/" + std::to_string(denominator / divisor);
    text += '"';
    expectTheSame(text, feet, [&](double value, const std::string& typeId) {
      const std::string& layout =
          text.find("' -") == std::string::npos ? typeId : ":feetHyphenInches-1";
      return formatFractional(value, precision, &layout, symbols_.records());
    });
  }
}

TEST_F(ReadingBack, CompositesWithDecimals) {
  const auto write = [&](double value, const std::string& typeId) {
    return formatFixedPoint(value, 1, &typeId, false, symbols_.records());
  };
  for (int round = 0; round < 20000; ++round) {
    const std::string tenths = "." + number(10);
    expectTheSame(
        sign() + number(360) + "\xC2\xB0 " + number(60) + "' " + number(60) + tenths + '"', degrees,
        write);
    expectTheSame(sign() + number(100000) + "m " + number(100) + tenths + "cm", meters, write);
    expectTheSame(sign() + number(100000) + "' " + number(12) + tenths + '"', feet, write);
  }
}

}  // namespace
}  // namespace Units
