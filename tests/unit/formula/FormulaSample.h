/// An engine with a few units and symbols, which tests may add to, and formulas over it.
#pragma once

#include "engine/UnitsEngineImpl.h"
#include "formula/Evaluation.h"
#include "formula/FormulaParser.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A number in 15 digits, or as many as it takes to read back to the same bits.
inline std::string exact(double value) {
  char digits[40] = "";
  for (int precision = 15; precision <= 17; ++precision) {
    std::snprintf(digits, sizeof digits, "%.*g", precision, value);
    if (std::strtod(digits, nullptr) == value) break;
  }
  return digits;
}

/// Its units have exact factors, so that results can be written down.
class Sample {
 public:
  Sample() {
    for (const char* primitive : {"inch", "pound", "dollar", "kelvin"})
      engine.addUnit({primitive, primitive, Units::System::Imperial,
                      Units::PrimitiveUnitComponent(std::nullopt)});
    derive("foot", 12, {{"inch", 1}});
    derive("perFoot", 0.25, {{"inch", -1}});
    derive("stone", 14, {{"pound", 1}});
    derive("radian", 4, {{"inch", 1}, {"perFoot", 1}});
    derive("vast", 2, {{"inch", 2147483647}});
    engine.addUnit({"celsius", "celsius", Units::System::Metric,
                    Units::AbsoluteUnitComponent("kelvin", 273.15)});
    const std::map<std::string, const char*> suffixes = {
        {"ft", "foot"},   {"in", "inch"},    {"/ft", "perFoot"}, {"lb", "pound"}, {"st", "stone"},
        {"C", "celsius"}, {"rad", "radian"}, {"gap ", "foot"},   {"u", "pound"}};
    for (const auto& [text, unit] : suffixes) add(text, unit, Units::Placement::Suffix);
    add("$", "dollar", Units::Placement::Prefix);
    add("u", "dollar", Units::Placement::Prefix);  // found by literals alone
    insert(":feetAndInches-1", "foot", std::nullopt);
  }

  /// Type ids come in the order of adding.
  void add(const std::string& text, const std::string& unit, Units::Placement placement) {
    insert("", unit, Units::PrefixOrSuffix(text, placement, false));
  }

  const Units::SymbolTexts& texts() const { return engine.registries().symbolTexts; }

  /// What a formula comes to: a value with its units, "no formula", "no value" or a message.
  std::string outcome(std::string_view formula,
                      const VariableResolver& resolver = rejectIdentifier) const {
    try {
      LocalNodeArena nodes;
      std::unique_ptr<Expression> root;
      double value = 0;
      UnitPowerMap units = {{"replaced", 1}};
      Units::FormulaUnits terms = engine.formulaUnits();
      if (parseFormula(formula, nodes, root, texts(), engine, terms, resolver) !=
          FormulaReason::Done)
        return "no formula";
      if (!root->evaluate(value, units)) return "no value";
      std::string text = exact(value);
      for (const auto& [typeId, exponent] : units) text += " " + typeId + "^" + exact(exponent);
      return text;
    } catch (const std::logic_error& thrown) {
      return thrown.what();
    }
  }

  Units::UnitsEngineImpl engine;

 private:
  void derive(const char* typeId, double factor, const std::map<std::string, int>& parents) {
    engine.addUnit({typeId, typeId, Units::System::Imperial,
                    Units::DerivedUnitComponent(parents, Units::FactorComponent(factor))});
  }

  void insert(const std::string& key, const std::string& unit,
              const std::optional<Units::PrefixOrSuffix>& shown) {
    engine.addSymbol({std::to_string(symbols_++) + key, engine.getUnit(unit), shown});
  }

  int symbols_ = 1000;
};
