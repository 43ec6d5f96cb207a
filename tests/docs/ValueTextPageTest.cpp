#include "tests/docs/Page.h"
#include "text/ValueText.h"

#include <map>

namespace {

/// `fixed 2, kilogram, trim` or `fractional 3, inch`: the operation, and a symbol if there is one.
struct Call {
  explicit Call(const std::string& text) {
    std::istringstream words(text);
    int digits = 0;
    words >> operation >> digits;
    precision = static_cast<unsigned char>(digits);
    for (std::string word; words.ignore(1, ',') && words >> word;) {
      if (word.back() == ',') word.pop_back();
      if (word == "trim")
        trims = true;
      else
        symbol = typeIdOf("symbol", word);
    }
  }

  std::string operation;
  unsigned char precision = 0;
  std::string symbol;
  bool trims = false;
};

TEST(ValueTextPage, NumbersAreWrittenAsItSays) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogEngine();
  for (const auto& row : rowsOf("value-text.md", {"value", "call", "text"})) {
    const double value = std::stod(row[0]);
    const Call call(row[1]);
    const std::string* const symbol = call.symbol.empty() ? nullptr : &call.symbol;
    EXPECT_EQ(answerOf([&] {
                return call.operation == "fixed"
                           ? engine->formatFixedPoint(value, call.precision, symbol, call.trims)
                           : engine->formatFractional(value, call.precision, symbol);
              }),
              row[2])
        << row[0] << " by " << row[1];
  }
}

TEST(ValueTextPage, TextsAreReadAsItSays) {
  const Units::RecordStore<Units::Symbol> symbols(makeCatalogEngine()->getSymbols());
  const Units::SymbolTexts texts(symbols);
  for (const auto& row : rowsOf("value-text.md", {"text", "value", "symbol"})) {
    double value = 0;
    const Units::Symbol* symbol = nullptr;
    const bool isRead = Units::parseValueText(row[0], &value, &symbol, texts);
    EXPECT_EQ(isRead ? written(value) : "not read", row[1]) << row[0];
    const bool hasSymbol = !row[2].empty() && row[2] != "none";
    EXPECT_EQ(symbol ? symbol->getTypeId() : "", hasSymbol ? typeIdOf("symbol", row[2]) : "")
        << row[0];
  }
}

}  // namespace
