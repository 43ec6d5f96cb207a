/// A few units and symbols, and formulas over them, so that this room's tests need no engine.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "formula/Evaluation.h"
#include "formula/FormulaParser.h"
#include "model/RecordAccess.h"

/// Reduces units by a table; all factors are exact, so that results can be written down.
class SampleUnitMath : public Units::UnitMath {
 public:
  /// With filled tables, so that no formula's allocations are those of the first use.
  SampleUnitMath() {
    functions_.spellings();
    binaryOperators_.spellings();
    unaryOperators_.spellings();
  }

  void reduceUnit(const Units::Unit& unit, double& factor, double& offset,
                  Units::PrimitivePowers& powers) const override {
    const Row& row = rows_.at(Units::RecordAccess::typeId(unit));
    factor = row.factor;
    offset = row.offset;
    powers = row.powers;
  }
  bool arePowersCompatible(Units::PrimitivePowers a, Units::PrimitivePowers b,
                           bool& inverted) const override {
    const auto isZero = [](const auto& entry) { return entry.second == 0; };
    for (auto* powers : {&a, &b})
      for (auto at = powers->begin(); at != powers->end();)
        at = isZero(*at) ? powers->erase(at) : std::next(at);
    inverted = a != b;
    if (inverted)
      for (auto& entry : b) entry.second = -entry.second;
    return a == b;
  }
  void reduceValue(const Units::Unit& unit, double& value, UnitPowerMap& powers) const override {
    double factor = 0;
    double offset = 0;
    Units::PrimitivePowers integers;
    reduceUnit(unit, factor, offset, integers);
    value = (offset + value) * factor;
    powers = UnitPowerMap(integers.begin(), integers.end());
  }
  const FunctionMap& getFunctionMap() const override { return functions_; }
  const BinaryOperatorMap& getBinaryOperatorMap() const override { return binaryOperators_; }
  const UnaryOperatorMap& getUnaryOperatorMap() const override { return unaryOperators_; }

 private:
  struct Row {
    double factor;
    double offset;
    Units::PrimitivePowers powers;
  };
  const std::map<std::string, Row> rows_ = {
      {"inch", {1, 0, {{"inch", 1}}}},           {"foot", {12, 0, {{"inch", 1}}}},
      {"perFoot", {0.25, 0, {{"inch", -1}}}},    {"pound", {1, 0, {{"pound", 1}}}},
      {"stone", {14, 0, {{"pound", 1}}}},        {"dollar", {1, 0, {{"dollar", 1}}}},
      {"celsius", {1, 273.15, {{"kelvin", 1}}}}, {"radian", {1, 0, {{"inch", 0}}}},
      {"huge", {2, 1, {{"inch", 2147483647}}}}};
  FunctionMap functions_;
  BinaryOperatorMap binaryOperators_;
  UnaryOperatorMap unaryOperators_;
};

inline Units::Unit sampleUnit(const std::string& typeId) {
  return {typeId, typeId, Units::System::Imperial, Units::PrimitiveUnitComponent(std::nullopt)};
}

/// Symbols as a host would have registered them. Type ids come in the order of adding.
class SampleSymbols {
 public:
  SampleSymbols() {
    for (const auto& [text, unit] : {std::pair("ft", "foot"),
                                     {"in", "inch"},
                                     {"/ft", "perFoot"},
                                     {"lb", "pound"},
                                     {"st", "stone"},
                                     {"C", "celsius"},
                                     {"rad", "radian"},
                                     {"gap ", "foot"}})
      add(text, unit, Units::Placement::Suffix);
    add("$", "dollar", Units::Placement::Prefix);
    add("u", "pound", Units::Placement::Suffix);
    add("u", "dollar", Units::Placement::Prefix);  // found by literals alone
    addComposite(":feetAndInches-1", "foot");
  }

  void add(const std::string& text, const std::string& unit, Units::Placement placement) {
    insert("", unit, Units::PrefixOrSuffix(text, placement, false));
  }
  void addComposite(const std::string& key, const std::string& unit) {
    insert(key, unit, std::nullopt);
  }

  const Units::SymbolTexts& texts() const { return texts_; }

 private:
  void insert(const std::string& key, const std::string& unit,
              const std::optional<Units::PrefixOrSuffix>& shown) {
    const std::string typeId = std::to_string(1000 + symbols_.size()) + key;
    Units::RecordMap<Units::Symbol> made;
    made.emplace(typeId, Units::Symbol(typeId, sampleUnit(unit), shown));
    Units::SymbolTexts texts(made);
    symbols_.merge(made);
    texts_.merge(std::move(texts));
  }

  Units::RecordMap<Units::Symbol> symbols_;
  Units::SymbolTexts texts_;
};

/// A number in 15 digits, or as many as it takes to read back to the same bits.
inline std::string exact(double value) {
  char digits[40] = "";
  for (int precision = 15; precision <= 17; ++precision) {
    std::snprintf(digits, sizeof digits, "%.*g", precision, value);
    if (std::strtod(digits, nullptr) == value) break;
  }
  return digits;
}

/// What a formula comes to: a value with its units, "no formula", "no value" or a message.
struct Sample {
  SampleUnitMath math;
  SampleSymbols symbols;

  std::string outcome(std::string_view formula,
                      const VariableResolver& resolver = rejectIdentifier) const {
    try {
      std::unique_ptr<Expression> root;
      double value = 0;
      UnitPowerMap units = {{"replaced", 1}};
      if (!parseFormula(formula, root, symbols.texts(), math, resolver)) return "no formula";
      if (!root->evaluate(value, units)) return "no value";
      std::string text = exact(value);
      for (const auto& [typeId, exponent] : units) text += " " + typeId + "^" + exact(exponent);
      return text;
    } catch (const std::logic_error& thrown) {
      return thrown.what();
    }
  }
};
