#include "tests/docs/Page.h"
#include "tests/support/HostEngine.h"

#include <TrelvonUnits/ValueDisplay.h>

#include <limits>
#include <regex>

namespace Units {
namespace {

const UnitsEngine& engine() {
  static const std::unique_ptr<UnitsEngine> made = makeCatalogEngine();
  return *made;
}

/// JSON that is written with single quotes and without the catalog's name.
std::string jsonOf(std::string text) {
  std::replace(text.begin(), text.end(), '\'', '"');
  return std::regex_replace(text, std::regex("\"(symbol|quantity|unit):(\\w+)\""),
                            "\"trelvon.$1:$2-1.0.0\"");
}

ValueDisplay displayOf(const std::string& json) {
  return ValueDisplay::fromJson(engine(), jsonOf(json));
}

struct Row {
  const char* json;
  const char* said;
};

TEST(ValueDisplay, CannotBeWhatMakesNoSense) {
  const Row rows[] = {
      {"{'places':13}",
       "Requested fixed point precision of 13 decimal places, but the maximum is 12."},
      {"{'places':999}",
       "Requested fixed point precision of 255 decimal places, but the maximum is 12."},
      {"{'places':1,'significant':1}",
       "display: only one of places, denominator and significant can be given."},
      {"{'denominator':3}", "display: a denominator must be 1, 2, 4 and so on up to 512, not 3."},
      {"{'denominator':1024}",
       "display: a denominator must be 1, 2, 4 and so on up to 512, not 1024."},
      {"{'significant':18}", "display: the number of significant digits must be 1 to 17, not 18."},
      {"{'denominator':2,'trims':true}", "display: a fraction has no zeros to trim."},
      {"{'symbol':'symbol:degreesMinutesSeconds','denominator':2}",
       "display: only inches can have fractions, not the last part of "
       "trelvon.symbol:degreesMinutesSeconds-1.0.0."},
      {"{'symbol':'symbol:feetAndInches','showsUnit':false}",
       "display: a composite symbol cannot be shown without its marks."},
      {"{'locale':'xx'}", "display: there is no locale \"xx\"."},
      {"{'locale':'de-XX'}", "display: there is no locale \"de-XX\"."},
      {"{'decimalMark':';'}", "display: \";\" is not a decimal mark."},
      {"{'groupMark':'1'}", "display: \"1\" is not a group mark."},
      {"{'decimalMark':','}", "display: the decimal mark and the group mark are the same."},
      {"{'minus':'plus'}", "display, 1:10: \"minus\" must be locale, hyphen or sign."},
      {"{'symbol':'nothing'}", "Could not find symbol with typeid nothing."},
      {"{'unit':'nothing'}", "Could not find unit with typeid nothing."},
      {"{'unit':'unit:foot','symbol':'symbol:kilogram'}",
       "Cannot convert between units trelvon.unit:foot-1.0.0 and trelvon.unit:kilogram-1.0.0."},
      {"{'best':{'quantity':'quantity:length'}}",
       "display: a number without a unit cannot have a best unit."},
      {"{'symbol':'symbol:meter','best':{'symbols':['symbol:meter'],'least':0}}",
       "display: the least number of the best unit must be above 0."},
      {"{'symbol':'symbol:meter','best':{'symbols':['symbol:meter'],'quantity':'quantity:length'}}",
       "display: the best unit comes from a list or from a quantity, not from both."},
      {"{'symbol':'symbol:foot','best':{'symbols':['symbol:feetAndInches']}}",
       "display: the best unit cannot be shown with trelvon.symbol:feetAndInches-1.0.0, which is "
       "composite."},
      {"{'symbol':'symbol:hertz','best':{'symbols':['symbol:second']}}",
       "display: trelvon.symbol:second-1.0.0 cannot be the best unit: it has a different zero or "
       "direction."},
      {"{'symbol':'symbol:meter','showsUnit':false,'best':{'quantity':'quantity:length'}}",
       "display: the best unit cannot be shown without its text."},
      {"{'symbol':'symbol:feetAndInches','best':{'quantity':'quantity:length'}}",
       "display: a composite symbol cannot have a best unit."},
      {"{'x':1}", "display, 1:2: there is no member \"x\"."},
      {"{\n 'places':1,\n 'places':1}", "display, 3:2: \"places\" is given twice."},
      {"{'places':-1}", "display, 1:11: \"places\" must be a whole number."},
      {"{'trims':1}", "display, 1:10: \"trims\" must be true or false."},
      {"[]", "display, 1:1: this must be an object."},
      {"{'places':", "display, 1:11: Invalid value."}};
  for (const auto& [json, said] : rows)
    EXPECT_EQ(answerOf([&, text = json] { return displayOf(text).toJson(); }),
              '"' + std::string(said) + '"');
}

TEST(ValueDisplay, ChecksPlacesWhateverAHostsEngineAccepts) {
  struct Lax : HostEngine {
    std::string formatFixedPoint(double, unsigned char, const std::string*, bool) const override {
      return "";
    }
  };
  DisplayOptions options;
  options.places = 200;
  EXPECT_THROW(ValueDisplay(Lax(), options), PrecisionException);
}

TEST(ValueDisplay, IsDataThatAHostStores) {
  const std::string all =
      "{'unit':'unit:foot','symbol':'symbol:meter','places':3,'trims':true,'groups':true,"
      "'locale':'de-DE','decimalMark':'.','groupMark':' ','minus':'sign','noBreakSpaces':true,"
      "'best':{'symbols':['symbol:kilometer','symbol:foot'],'least':0.5}}";
  const ValueDisplay display = displayOf(all);
  EXPECT_EQ(display.toJson(), jsonOf(all));
  EXPECT_EQ(ValueDisplay(engine(), display.options()).show(-5000), display.show(-5000));
  EXPECT_EQ(display.show(-5000),
            "\xE2\x88\x92"
            "1.524\xC2\xA0km");
  EXPECT_EQ(display.unitTypeId(), "trelvon.unit:foot-1.0.0");
  EXPECT_EQ(displayOf("{}").toJson(), "{}");
}

TEST(ValueDisplay, ChoosesTheBestUnitByRules) {
  const auto shown = [](const char* json) {
    const ValueDisplay display = displayOf(json);
    std::string texts;
    for (const double value : {0.0, 0.4, 0.96, 999.94, 999.95, -1200.0, 3e9})
      texts += display.show(value) + ", ";
    return texts;
  };
  EXPECT_EQ(
      shown("{'symbol':'symbol:millimeter','places':1,'best':{'quantity':'quantity:length'}}"),
      "0.0 mm, 400.0 \xC2\xB5m, 960.0 \xC2\xB5m, 999.9 mm, 1.0 m, -1.2 m, 3000.0 km, ");
  EXPECT_EQ(
      shown("{'symbol':'symbol:inch','places':1,'best':{'symbols':['symbol:mile','symbol:foot'],"
            "'least':2}}"),
      "0.0 in, 0.4 in, 1.0 in, 83.3 ft, 83.3 ft, -100.0 ft, 47348.5 mi, ");
}

TEST(ValueDisplay, TakesTextsOfSymbolsAsTheyAre) {
  const std::unique_ptr<UnitsEngine> own = makeCatalogEngine();
  const Unit foot = own->getUnit("trelvon.unit:foot-1.0.0");
  own->addSymbol(Symbol("edges", foot, PrefixOrSuffix(" a b ", Placement::Suffix, true)));
  const auto display = ValueDisplay::fromJson(*own, R"({"symbol":"edges","noBreakSpaces":true})");
  EXPECT_EQ(display.show(5),
            "5\xC2\xA0\xC2\xA0"
            "a\xC2\xA0"
            "b\xC2\xA0");
  for (const std::string& text : {display.show(5), std::string("5 a b"),
                                  std::string("5a\xE2\x80\xAF"
                                              "b")})
    EXPECT_EQ(display.read(text).value(), 5) << text;
  EXPECT_EQ(display.read("5 ab").isRead(), false);
  for (const char* text : {"-", "\xE2\x88\x92$", "5"}) {
    own->addSymbol(Symbol(text, foot, PrefixOrSuffix(text, Placement::Prefix, false)));
    const std::string json = R"({"symbol":")" + std::string(text) + R"("})";
    EXPECT_EQ(
        answerOf([&] { return ValueDisplay::fromJson(*own, json).toJson(); }),
        "\"display: the text of " + std::string(text) + " would look like part of the number.\"");
  }
}

TEST(ValueDisplay, ReadsStrictlyAndSaysWhyNot) {
  const std::string inches = "{'symbol':'symbol:feetAndInches','denominator':16}";
  const std::string german =
      "{'symbol':'symbol:millimeter','places':2,'groups':true,'locale':'de'}";
  const std::string whole = "{'symbol':'symbol:millimeter','places':0,'groups':true}";
  const std::string best = "{'symbol':'symbol:foot','best':{'symbols':['symbol:inch']}}";
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {inches, " \xE2\x88\x92 5'6 3/8\" ", "-5.53125"},
      {inches,
       "5'\xC2\xA0"
       "6.5\"",
       "5.541666666666667"},
      {inches, "5' 1/3\"",
       "3-6 `1/3` is not a fraction below 1 in halves, quarters and so on down to 512ths."},
      {inches, "5.5' 6\"", "0-3 `5.5` must be a whole number."},
      {inches, "5' 6\" 7", "6-7 `7` is not expected."},
      {inches, "5' 6.0000000000001\"", "0-19 `0000000000001` has more than 12 decimal places."},
      {german, "-1,234.5", "1-8 `1,234.5` has two readings: write `1234,5` or `1,2345`."},
      {german, "1.234.5",
       "0-7 `1.234.5` does not fit this number format. The decimal mark is `,`. Write `12345`."},
      {german, "", "0-0 There is no number."},
      {german, "inf", "0-3 There is no number."},
      {whole, "1.234", "0-5 `1.234` has two readings: write `1.2340` or `1234`."},
      {whole, "12.5", "12.5"},
      {"{'locale':'de-CH'}", "1'234.5", "1234.5"},
      {"{'locale':'ar-EG'}", "12\xD9\xA3", "0-4 `12\xD9\xA3` mixes digits from two scripts."},
      {best, "5", "1-1 The unit is missing. Write one of `in`, `ft`."},
      {best, "6 in", "0.4999999999999999"},
      {"{'denominator':2}", "x", "0-1 There is no number."},
      {"{}", "5 m", "2-3 `m` is not expected. Write only a number."}};
  for (const auto& [json, text, said] : rows) {
    const DisplayReading reading = displayOf(json).read(text);
    const FormulaSpan span = reading.span();
    EXPECT_EQ(reading.isRead() ? written(reading.value())
                               : std::to_string(span.begin) + '-' + std::to_string(span.end) + ' ' +
                                     reading.sentence(),
              said)
        << text << " by " << json;
  }
  const std::string digits(400, '9');
  for (const std::string& text : {digits, "0." + std::string(400, '0') + '1'})
    EXPECT_EQ(displayOf("{}").read(text).sentence().find("is too large") == std::string::npos,
              false);
  EXPECT_EQ(displayOf(inches).read(digits + "' 0\"").isRead(), false);
}

TEST(ValueDisplay, TellsPiecesOfATextAndBothReadings) {
  const ValueDisplay display = displayOf("{'symbol':'symbol:inch','denominator':8,'locale':'hi'}");
  EXPECT_EQ(display.read("-1,23,456 7/8 in").toJson(),
            R"({"text":"-1,23,456 7/8 in","value":-123456.875,"pieces":[)"
            R"({"kind":"sign","begin":0,"end":1},{"kind":"number","begin":1,"end":9},)"
            R"({"kind":"fraction","begin":10,"end":13},{"kind":"unit","begin":14,"end":16}]})");
  EXPECT_EQ(
      display.read("1,234.5,6").toJson(),
      R"({"text":"1,234.5,6","begin":0,"end":9,"sentence":"`1,234.5,6` does not fit this )"
      R"(number format. The decimal mark is `.`. Write `1234.56`.","readings":[],"pieces":[]})");
  EXPECT_EQ(display.read("1.234,5").readings(), (std::vector<double>{1.2345, 1234.5}));
}

TEST(ValueDisplay, ConvertsBeforeItShows) {
  const ValueDisplay display =
      displayOf("{'unit':'unit:kelvinAbsolute','symbol':'symbol:degreeCelsius','places':1}");
  EXPECT_EQ(display.show(300),
            "26.9 \xC2\xB0"
            "C");
  EXPECT_EQ(display
                .read("26.85 \xC2\xB0"
                      "C")
                .value(),
            300.0);
  const double most = std::numeric_limits<double>::max();
  const ValueDisplay tiny = displayOf("{'unit':'unit:meter','symbol':'symbol:femtometer'}");
  EXPECT_EQ(tiny.show(-most), "-inf fm");
  const ValueDisplay back = displayOf("{'unit':'unit:femtometer','symbol':'symbol:meter'}");
  EXPECT_EQ(back.read(std::string(300, '9')).isRead(), false);
}

}  // namespace
}  // namespace Units
