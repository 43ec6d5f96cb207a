/// An engine that is nothing but its two doors for definitions. A loader that asked for more would
/// be told that it must not.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace Units {

class RecordingEngine : public UnitsEngine {
 public:
  std::vector<std::string> texts;  // given to addDefinition, in order
  int builds = 0;
  std::function<void()> onDefinition = [] {};  // may throw
  std::function<void()> onBuild = [] {};

  std::set<std::string> addDefinition(const std::string& schemaText) override {
    texts.push_back(schemaText);
    onDefinition();
    return {"missing"};
  }
  void buildSchemas() override {
    ++builds;
    onBuild();
  }

 private:
  using Text = std::string;
  template <class Record>
  using All = std::map<Text, Record>;

  [[noreturn]] static void refuse() { throw std::domain_error("no operation of a loader"); }

  double convert(double, Text, Text) const override { refuse(); }
  bool canConvert(Text, Text) const override { refuse(); }
  Text formatFixedPoint(double, unsigned char, const Text*, bool) const override { refuse(); }
  Text formatFractional(double, unsigned char, const Text*) const override { refuse(); }
  double evaluateExpressionInUnit(Text, Text, VariableResolver) const override { refuse(); }
  double evaluateExpressionInUnit(Text, Text) const override { refuse(); }
  double evaluateUnitlessExpression(Text, VariableResolver) const override { refuse(); }
  double evaluateUnitlessExpression(Text) const override { refuse(); }
  Dimension getDimension(Text) const override { refuse(); }
  Factor getFactor(Text) const override { refuse(); }
  Unit getUnit(Text) const override { refuse(); }
  Symbol getSymbol(Text) const override { refuse(); }
  Quantity getQuantity(Text) const override { refuse(); }
  All<Dimension> getDimensions() const override { refuse(); }
  All<Factor> getFactors() const override { refuse(); }
  All<Unit> getUnits() const override { refuse(); }
  All<Symbol> getSymbols() const override { refuse(); }
  All<Quantity> getQuantities() const override { refuse(); }
  All<Unit> getPrimitiveUnits() const override { refuse(); }
  All<Unit> getPrimitiveUnitsOfDimension(std::optional<Dimension>) const override { refuse(); }
  All<Unit> getConvertibleUnits(Text) const override { refuse(); }
  All<Unit> getUnitsWithPrimitivePowers(PrimitivePowers) const override { refuse(); }
  All<Symbol> getSymbolsOfUnit(Text) const override { refuse(); }
  All<Quantity> getQuantitiesOfUnit(Text) const override { refuse(); }
  void addDimension(Dimension) override { refuse(); }
  void addFactor(Factor) override { refuse(); }
  void addUnit(Unit) override { refuse(); }
  void addSymbol(Symbol) override { refuse(); }
  void addQuantity(Quantity) override { refuse(); }
  Text getDefinition(Text) const override { refuse(); }
  std::set<Text> getDependencies(Text) const override { refuse(); }
  bool isRegistered(Text) const override { refuse(); }
};

}  // namespace Units
