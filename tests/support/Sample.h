/// A small engine with every kind of definition, and everything that it can list.
#pragma once

#include "tests/support/Outcome.h"
#include "tests/support/SchemaTexts.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using Engine = std::unique_ptr<Units::UnitsEngine>;

/// Schema texts of definitions that depend on one another, with their type ids.
inline const std::vector<std::pair<std::string, std::string>>& sampleDefinitions() {
  static const std::vector<std::pair<std::string, std::string>> all = {
      {"length", dimension("length")},
      {"twelve", schema("twelve", "factor", {value("factor", "12")})},
      {"gross", factor("gross", Powers{{"twelve", 2}})},
      {"inch", dimensional("inch", "length")},
      {"kelvin", primitive("kelvin")},
      {"foot", derived("foot", {"inch"}, {"twelve"})},
      {"area", derived("area", Powers{{"foot", 2}})},
      {"perInch", derived("perInch", Powers{{"inch", -1}})},
      {"celsius", absolute("celsius", "kelvin", "273.15")},
      {"ft", symbol("ft", "foot", "ft")},
      {"in", symbol("in", "inch", "in")},
      {"dollar", symbol("dollar", "inch", "$", "Prefix")},
      {"degC", symbol("degC", "celsius", "degC")},
      {"x:feetAndInches-1", composite("x:feetAndInches-1", "foot")},
      {"height", quantity("height", {"foot", "inch"})}};
  return all;
}

inline std::vector<std::string> sampleSchemas() {
  std::vector<std::string> texts;
  for (const auto& definition : sampleDefinitions()) texts.push_back(definition.second);
  return texts;
}

inline std::string bundleOf(const std::vector<std::string>& texts) {
  std::string bundle = "TrelvonUnits-schema-bundle-1\n";
  for (const std::string& text : texts) bundle.append(text).push_back('\0');
  return bundle;
}

inline Engine makeEngine() { return Engine(Units::CreateUnitsEngine()); }

/// Leaves it all pending.
inline void addSample(Units::UnitsEngine& engine) {
  for (const auto& definition : sampleDefinitions()) engine.addDefinition(definition.second);
}

inline Engine sampleEngine() {
  Engine engine = makeEngine();
  addSample(*engine);
  engine->buildSchemas();
  return engine;
}

inline Units::Unit derivedUnit(const std::string& typeId, const std::map<std::string, int>& parents,
                               const Units::FactorComponent& factor = {}) {
  return Units::Unit(typeId, "n", Units::System::Metric,
                     Units::DerivedUnitComponent(parents, factor));
}

inline void addSuffix(Units::UnitsEngine& engine, const std::string& typeId,
                      const std::string& unit, const std::string& text) {
  engine.addSymbol(Units::Symbol(typeId, engine.getUnit(unit),
                                 Units::PrefixOrSuffix(text, Units::Placement::Suffix, true)));
}

/// Everything stored, by listing, definition and dependencies, and which type ids of the sample,
/// "new" and "waiting" are taken.
inline std::string describe(const Units::UnitsEngine& engine) {
  std::string all;
  const auto add = [&](const auto& records) {
    for (const auto& [typeId, record] : records)
      all += engine.getDefinition(typeId) + written(engine.getDependencies(typeId)) + '\n';
    all += '\n';
  };
  add(engine.getDimensions());
  add(engine.getFactors());
  add(engine.getUnits());
  add(engine.getSymbols());
  add(engine.getQuantities());
  for (const auto& [typeId, text] : sampleDefinitions())
    all += written(engine.isRegistered(typeId));
  for (const char* typeId : {"new", "waiting"}) all += written(engine.isRegistered(typeId));
  return all;
}
