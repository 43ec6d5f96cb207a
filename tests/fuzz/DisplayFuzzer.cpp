/// Displays of any JSON, and any texts for displays of all kinds. A display that can be made is written
/// as it was read, and what it shows it reads. A text has one value whatever the locale, or is refused
/// in one; its pieces lie within it, in order.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/Sample.h"

#include <TrelvonUnits/ValueDisplay.h>

#include <cmath>

namespace {

using Units::ValueDisplay;

const Units::UnitsEngine& engine() {
  static const auto made = sampleEngine();
  return *made;
}

std::vector<ValueDisplay> makeDisplays(const char* locale) {
  std::vector<ValueDisplay> displays;
  for (const char* symbol : {"", "in", "dollar", "x:feetAndInches-1"})
    for (const char* rounding :
         {"\"places\":0", "\"places\":3", "\"denominator\":16", "\"trims\":true"})
      displays.push_back(ValueDisplay::fromJson(
          engine(), std::string("{\"groups\":true,\"symbol\":\"") + symbol + "\"," + rounding +
                        ",\"locale\":\"" + locale + "\"}"));
  return displays;
}

Units::DisplayReading readChecked(const ValueDisplay& display, const std::string& text) {
  const auto reading = display.read(ExactText(text));
  std::size_t end = 0;
  for (const auto& piece : reading.pieces()) {
    check(end <= piece.span.begin && piece.span.begin < piece.span.end, text, reading.toJson());
    end = piece.span.end;
  }
  check(end <= text.size() && reading.span().end <= text.size(), text, reading.toJson());
  check(reading.isRead() == reading.sentence().empty(), text, reading.toJson());
  if (reading.isRead()) {
    const std::string shown = display.show(reading.value());
    check(display.show(display.read(shown).value()) == shown, text, " shown as ", shown);
  }
  return reading;
}

void checkJson(const std::string& json) {
  const std::string said =
      outcome([&] { return ValueDisplay::fromJson(engine(), ExactText(json)).toJson(); });
  if (isRefusal(said)) return;
  const auto display = ValueDisplay::fromJson(engine(), json);
  checkEqual(ValueDisplay::fromJson(engine(), display.toJson()).toJson(), display.toJson(), json);
  for (const double value : {0.0, 1e-9, 999.996, -1234.5, 1e300}) {
    const std::string shown = display.show(value);
    check(display.read(shown).isRead() || shown.find("inf") != shown.npos, shown, " by ", json);
  }
}

}  // namespace

void fuzz(Random& random) {
  if (random.takes('{')) return checkJson('{' + random.rest());
  static const std::vector<ValueDisplay> locales[] = {makeDisplays("en"), makeDisplays("de"),
                                                      makeDisplays("fr"), makeDisplays("mr")};
  const std::size_t kind = random.below(locales[0].size());
  const std::string text = random.rest();
  double value = std::nan("");
  for (const std::vector<ValueDisplay>& displays : locales) {
    const auto reading = readChecked(displays[kind], text);
    if (!reading.isRead()) continue;
    check(std::isnan(value) || value == reading.value(), text, " has two values");
    value = reading.value();
  }
}
