#include "tests/docs/Page.h"

#include <TrelvonUnits/ValueDisplay.h>

namespace {

/// `kilogram, groups, places 2, de`: a symbol and options.
Units::ValueDisplay displayOf(const Units::UnitsEngine& engine, const std::string& text) {
  Units::DisplayOptions options;
  std::istringstream words(text);
  std::string word;
  std::getline(words, word, ',');
  options.symbol = typeIdOf("symbol", word);
  const auto number = [&] {
    int value = 0;
    words >> value;
    words.ignore(1, ',');
    return value;
  };
  while (words >> word) {
    if (word.back() == ',') word.pop_back();
    if (word == "places")
      options.places = number();
    else if (word == "denominator")
      options.denominator = number();
    else if (word == "significant")
      options.significant = number();
    else if (word == "groups")
      options.groups = true;
    else
      options.locale = word;
  }
  return Units::ValueDisplay(engine, options);
}

TEST(DisplayPage, ValuesAreShownAndReadAsItSays) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogEngine();
  for (const auto& row : rowsOf("display.md", {"display", "value", "text"}))
    EXPECT_EQ(displayOf(*engine, row[0]).show(std::stod(row[1])), row[2]) << row[0];
  for (const auto& row : rowsOf("display.md", {"display", "text", "read as"})) {
    const auto reading = displayOf(*engine, row[0]).read(row[1]);
    EXPECT_EQ(reading.isRead() ? written(reading.value()) : '"' + reading.sentence() + '"', row[2])
        << row[1];
  }
}

TEST(DisplayPage, AllLocalesAreThere) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  std::vector<std::vector<std::string>> rows;
  for (const std::string& locale : Units::ValueDisplay::locales()) {
    const auto show = [&](double value, int places) {
      Units::DisplayOptions options;
      options.groups = true;
      options.locale = locale;
      options.places = places;
      return Units::ValueDisplay(*engine, options).show(value);
    };
    rows.push_back({locale, show(1234567.89, 2), show(-1234, 0)});
  }
  EXPECT_EQ(rowsOf("display.md", {"locale", "1234567.89", "-1234"}), rows);
}

}  // namespace
