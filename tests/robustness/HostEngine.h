/// An engine of a host's own, as loaders and prepared conversions may be given one: it does what
/// the library's does, and something else before each operation.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "tests/robustness/Sample.h"

class HostEngine : public Units::UnitsEngine {
 public:
  std::function<void(int call)> onCall = [](int) {};  // counted from 1
  const Engine inner = makeEngine();

 private:
  Units::UnitsEngine& asked() const {
    onCall(++calls_);
    return *inner;
  }

  using Text = std::string;
  using Resolver = Units::VariableResolver;
  template <class Record>
  using All = std::map<Text, Record>;

  double convert(double v, Text a, Text b) const override { return asked().convert(v, a, b); }
  bool canConvert(Text a, Text b) const override { return asked().canConvert(a, b); }
  Text formatFixedPoint(double v, unsigned char p, const Text* s, bool t) const override {
    return asked().formatFixedPoint(v, p, s, t);
  }
  Text formatFractional(double v, unsigned char p, const Text* s) const override {
    return asked().formatFractional(v, p, s);
  }
  double evaluateExpressionInUnit(Text u, Text f, Resolver r) const override {
    return asked().evaluateExpressionInUnit(u, f, r);
  }
  double evaluateExpressionInUnit(Text u, Text f) const override {
    return asked().evaluateExpressionInUnit(u, f);
  }
  double evaluateUnitlessExpression(Text f, Resolver r) const override {
    return asked().evaluateUnitlessExpression(f, r);
  }
  double evaluateUnitlessExpression(Text f) const override {
    return asked().evaluateUnitlessExpression(f);
  }
  Units::Dimension getDimension(Text id) const override { return asked().getDimension(id); }
  Units::Factor getFactor(Text id) const override { return asked().getFactor(id); }
  Units::Unit getUnit(Text id) const override { return asked().getUnit(id); }
  Units::Symbol getSymbol(Text id) const override { return asked().getSymbol(id); }
  Units::Quantity getQuantity(Text id) const override { return asked().getQuantity(id); }
  All<Units::Dimension> getDimensions() const override { return asked().getDimensions(); }
  All<Units::Factor> getFactors() const override { return asked().getFactors(); }
  All<Units::Unit> getUnits() const override { return asked().getUnits(); }
  All<Units::Symbol> getSymbols() const override { return asked().getSymbols(); }
  All<Units::Quantity> getQuantities() const override { return asked().getQuantities(); }
  All<Units::Unit> getPrimitiveUnits() const override { return asked().getPrimitiveUnits(); }
  All<Units::Unit> getPrimitiveUnitsOfDimension(std::optional<Units::Dimension> d) const override {
    return asked().getPrimitiveUnitsOfDimension(d);
  }
  All<Units::Unit> getConvertibleUnits(Text id) const override {
    return asked().getConvertibleUnits(id);
  }
  All<Units::Unit> getUnitsWithPrimitivePowers(Units::PrimitivePowers p) const override {
    return asked().getUnitsWithPrimitivePowers(p);
  }
  All<Units::Symbol> getSymbolsOfUnit(Text id) const override {
    return asked().getSymbolsOfUnit(id);
  }
  All<Units::Quantity> getQuantitiesOfUnit(Text id) const override {
    return asked().getQuantitiesOfUnit(id);
  }
  std::set<Text> addDefinition(const Text& text) override { return asked().addDefinition(text); }
  void buildSchemas() override { asked().buildSchemas(); }
  void addDimension(Units::Dimension d) override { asked().addDimension(d); }
  void addFactor(Units::Factor f) override { asked().addFactor(f); }
  void addUnit(Units::Unit u) override { asked().addUnit(u); }
  void addSymbol(Units::Symbol s) override { asked().addSymbol(s); }
  void addQuantity(Units::Quantity q) override { asked().addQuantity(q); }
  Text getDefinition(Text id) const override { return asked().getDefinition(id); }
  std::set<Text> getDependencies(Text id) const override { return asked().getDependencies(id); }
  bool isRegistered(Text id) const override { return asked().isRegistered(id); }

  mutable int calls_ = 0;
};
