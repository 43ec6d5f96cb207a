/// Runs benchmarks and their baselines under callgrind; each writes a dump with its name.
/// cmake/Guard.cmake runs this program and compares the instruction counts.
#include "benchmarks/Catalog.h"
#include "benchmarks/SchemaTexts.h"
#include "benchmarks/peers/BareConversion.h"
#include "benchmarks/peers/Pairs.h"

#include <TrelvonUnits/trelvon.h>

#include <rapidjson/document.h>
#include <valgrind/callgrind.h>

#include <algorithm>

namespace {

constexpr int kTimes = 100;

/// Counts the instructions of the second call: the first one resolves symbols and initializes
/// tables.
template <class Work>
void count(const char* name, const Work& work) {
  work();
  CALLGRIND_START_INSTRUMENTATION;
  CALLGRIND_ZERO_STATS;
  work();
  CALLGRIND_DUMP_STATS_AT(name);
  CALLGRIND_STOP_INSTRUMENTATION;
}

void keep(double value) { asm volatile("" : : "x"(value) : "memory"); }
void keep(const void* value) { asm volatile("" : : "r"(value) : "memory"); }

/// The same catalog behind the C interface.
const trelvon_engine* catalogForC() {
  trelvon_engine* engine = nullptr;
  trelvon_engine_create(&engine, nullptr);
  for (const char* pack : {"/core", "/symbols", "/aliases"})
    trelvon_add_folder(engine, trelvon_string((TRELVON_SCHEMAS + std::string(pack)).c_str()),
                       nullptr);
  return engine;
}

trelvon_text text(const std::string& kept) { return {kept.data(), kept.size()}; }

}  // namespace

int main() {
  const Units::UnitsEngine& engine = catalog();
  count("convert", [&] {
    for (const peers::UnitPair& pair : peers::mixedPairs())
      keep(engine.convert(2.5, pair.from, pair.to));
  });
  const trelvon_engine* const forC = catalogForC();
  count("cconvert", [&] {
    for (const peers::UnitPair& pair : peers::mixedPairs()) {
      double result = 0;
      trelvon_convert(forC, 2.5, text(pair.from), text(pair.to), &result, nullptr);
      keep(result);
    }
  });
  count("array", [&] {
    const Units::PreparedConversion prepared(engine, unit("foot"), unit("meter"));
    std::vector<double> values(10000, 1.5);
    prepared.convert(values.data(), values.data(), values.size());
    keep(values.data());
  });
  count("carray", [&] {
    trelvon_conversion* prepared = nullptr;
    const std::string foot = unit("foot"), meter = unit("meter");
    trelvon_conversion_create(forC, text(foot), text(meter), &prepared, nullptr);
    std::vector<double> values(10000, 1.5);
    trelvon_conversion_apply(prepared, values.data(), 1, values.data(), 1, values.size());
    keep(values.data());
    trelvon_conversion_free(prepared);
  });
  count("lookups", [] {
    for (const peers::UnitPair& pair : peers::mixedPairs())
      keep(peers::bareConvert(2.5, pair.from, pair.to));
  });

  const std::string newton = unit("newton"), kilogram = "trelvon.symbol:kilogram-1.0.0";
  count("formula", [&] {
    for (int time = 0; time < kTimes; ++time)
      keep(engine.evaluateExpressionInUnit(newton, "1.2 kg/m^3 * (30 m/s)^2 * 2.2 m^2 + 150 N"));
  });
  count("format", [&] {
    for (int time = 0; time < kTimes; ++time)
      keep(engine.formatFixedPoint(1234.5 + time, 2, &kilogram, false).data());
  });
  const auto show = [&](const char* name, const Units::ValueDisplay& display) {
    count(name, [&] {
      for (int time = 0; time < kTimes; ++time) keep(display.show(1234.5 + time).data());
    });
  };
  Units::DisplayOptions options;
  options.symbol = kilogram;
  options.places = 2;
  show("display", Units::ValueDisplay(engine, options));
  options.groups = true;
  options.locale = "mr";  // digits and marks of its own
  show("marathi", Units::ValueDisplay(engine, options));
  const std::string feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";
  count("inches", [&] {
    for (int time = 0; time < kTimes; ++time)
      keep(engine.formatFractional(1234.5 + time, 4, &feetAndInches).data());
  });
  Units::DisplayOptions inches;
  inches.symbol = feetAndInches;
  inches.denominator = 16;
  show("feet", Units::ValueDisplay(engine, inches));
  inches.denominator.reset();
  count("inchplaces", [&] {
    for (int time = 0; time < kTimes; ++time)
      keep(engine.formatFixedPoint(1234.5 + time, 6, &feetAndInches, true).data());
  });
  show("tidyfeet", Units::ValueDisplay(engine, inches));
  count("snprintf", [] {
    char text[64];
    for (int time = 0; time < kTimes; ++time) {
      std::snprintf(text, sizeof text, "%.2f", 1234.5 + time);
      keep(text);
    }
  });

  Texts texts = readCatalog();
  std::sort(texts.begin(), texts.end());  // the order of the file system varies
  count("load", [&] { keep(load(texts).get()); });
  count("parse", [&] {
    for (const std::string& text : texts) {
      rapidjson::Document document;
      document.Parse(text.c_str());
      keep(&document);
    }
  });
}
