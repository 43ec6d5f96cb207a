/// An engine of a host's own, as the folder loader may be given one: it does what the library's
/// does, and something else before each definition.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "robustness/Sample.h"

class HostEngine : public Units::UnitsEngine {
 public:
  std::function<void(int call)> onDefinition = [](int) {};  // counted from 1
  const Engine inner = makeEngine();

  std::set<std::string> addDefinition(const std::string& text) override {
    onDefinition(++calls_);
    return inner->addDefinition(text);
  }
  void buildSchemas() override { inner->buildSchemas(); }

 private:
  using Text = std::string;
  using Resolver = Units::VariableResolver;
  template <class Record>
  using All = std::map<Text, Record>;

  double convert(double v, Text a, Text b) const override { return inner->convert(v, a, b); }
  bool canConvert(Text a, Text b) const override { return inner->canConvert(a, b); }
  Text formatFixedPoint(double v, unsigned char p, const Text* s, bool t) const override {
    return inner->formatFixedPoint(v, p, s, t);
  }
  Text formatFractional(double v, unsigned char p, const Text* s) const override {
    return inner->formatFractional(v, p, s);
  }
  double evaluateExpressionInUnit(Text u, Text f, Resolver r) const override {
    return inner->evaluateExpressionInUnit(u, f, r);
  }
  double evaluateExpressionInUnit(Text u, Text f) const override {
    return inner->evaluateExpressionInUnit(u, f);
  }
  double evaluateUnitlessExpression(Text f, Resolver r) const override {
    return inner->evaluateUnitlessExpression(f, r);
  }
  double evaluateUnitlessExpression(Text f) const override {
    return inner->evaluateUnitlessExpression(f);
  }
  Units::Dimension getDimension(Text id) const override { return inner->getDimension(id); }
  Units::Factor getFactor(Text id) const override { return inner->getFactor(id); }
  Units::Unit getUnit(Text id) const override { return inner->getUnit(id); }
  Units::Symbol getSymbol(Text id) const override { return inner->getSymbol(id); }
  Units::Quantity getQuantity(Text id) const override { return inner->getQuantity(id); }
  All<Units::Dimension> getDimensions() const override { return inner->getDimensions(); }
  All<Units::Factor> getFactors() const override { return inner->getFactors(); }
  All<Units::Unit> getUnits() const override { return inner->getUnits(); }
  All<Units::Symbol> getSymbols() const override { return inner->getSymbols(); }
  All<Units::Quantity> getQuantities() const override { return inner->getQuantities(); }
  All<Units::Unit> getPrimitiveUnits() const override { return inner->getPrimitiveUnits(); }
  All<Units::Unit> getPrimitiveUnitsOfDimension(std::optional<Units::Dimension> d) const override {
    return inner->getPrimitiveUnitsOfDimension(d);
  }
  All<Units::Unit> getConvertibleUnits(Text id) const override {
    return inner->getConvertibleUnits(id);
  }
  All<Units::Unit> getUnitsWithPrimitivePowers(Units::PrimitivePowers p) const override {
    return inner->getUnitsWithPrimitivePowers(p);
  }
  All<Units::Symbol> getSymbolsOfUnit(Text id) const override {
    return inner->getSymbolsOfUnit(id);
  }
  All<Units::Quantity> getQuantitiesOfUnit(Text id) const override {
    return inner->getQuantitiesOfUnit(id);
  }
  void addDimension(Units::Dimension d) override { inner->addDimension(d); }
  void addFactor(Units::Factor f) override { inner->addFactor(f); }
  void addUnit(Units::Unit u) override { inner->addUnit(u); }
  void addSymbol(Units::Symbol s) override { inner->addSymbol(s); }
  void addQuantity(Units::Quantity q) override { inner->addQuantity(q); }
  Text getDefinition(Text id) const override { return inner->getDefinition(id); }
  std::set<Text> getDependencies(Text id) const override { return inner->getDependencies(id); }
  bool isRegistered(Text id) const override { return inner->isRegistered(id); }

  int calls_ = 0;
};
