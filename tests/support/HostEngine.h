/// Engines that a host implements, such as may be passed to loaders and prepared conversions.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Units {

/// Forwards every operation to the library's engine, after doing something else.
class HostEngine : public UnitsEngine {
 public:
  using Inner = std::shared_ptr<UnitsEngine>;
  explicit HostEngine(Inner engine = Inner(CreateUnitsEngine())) : inner(std::move(engine)) {}

  std::function<void(int call)> onCall = [](int) {};  // counted from 1; may throw
  Inner inner;

 protected:
  /// Each operation calls it, so that the compiler adds its name.
  virtual UnitsEngine& asked(const char* operation = __builtin_FUNCTION()) const {
    static_cast<void>(operation);
    onCall(++calls_);
    return *inner;
  }

 private:
  using Text = std::string;
  using Resolver = VariableResolver;
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
  Dimension getDimension(Text id) const override { return asked().getDimension(id); }
  Factor getFactor(Text id) const override { return asked().getFactor(id); }
  Unit getUnit(Text id) const override { return asked().getUnit(id); }
  Symbol getSymbol(Text id) const override { return asked().getSymbol(id); }
  Quantity getQuantity(Text id) const override { return asked().getQuantity(id); }
  All<Dimension> getDimensions() const override { return asked().getDimensions(); }
  All<Factor> getFactors() const override { return asked().getFactors(); }
  All<Unit> getUnits() const override { return asked().getUnits(); }
  All<Symbol> getSymbols() const override { return asked().getSymbols(); }
  All<Quantity> getQuantities() const override { return asked().getQuantities(); }
  All<Unit> getPrimitiveUnits() const override { return asked().getPrimitiveUnits(); }
  All<Unit> getPrimitiveUnitsOfDimension(std::optional<Dimension> d) const override {
    return asked().getPrimitiveUnitsOfDimension(d);
  }
  All<Unit> getConvertibleUnits(Text id) const override { return asked().getConvertibleUnits(id); }
  All<Unit> getUnitsWithPrimitivePowers(PrimitivePowers p) const override {
    return asked().getUnitsWithPrimitivePowers(p);
  }
  All<Symbol> getSymbolsOfUnit(Text id) const override { return asked().getSymbolsOfUnit(id); }
  All<Quantity> getQuantitiesOfUnit(Text id) const override {
    return asked().getQuantitiesOfUnit(id);
  }
  std::set<Text> addDefinition(const Text& text) override { return asked().addDefinition(text); }
  void buildSchemas() override { asked().buildSchemas(); }
  void addDimension(Dimension d) override { asked().addDimension(d); }
  void addFactor(Factor f) override { asked().addFactor(f); }
  void addUnit(Unit u) override { asked().addUnit(u); }
  void addSymbol(Symbol s) override { asked().addSymbol(s); }
  void addQuantity(Quantity q) override { asked().addQuantity(q); }
  Text getDefinition(Text id) const override { return asked().getDefinition(id); }
  std::set<Text> getDependencies(Text id) const override { return asked().getDependencies(id); }
  bool isRegistered(Text id) const override { return asked().isRegistered(id); }

  mutable int calls_ = 0;
};

/// Records what a loader does, and throws if a loader calls any other operation.
class RecordingEngine : public HostEngine {
 public:
  RecordingEngine() : HostEngine(nullptr) {}

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
  UnitsEngine& asked(const char*) const override {
    throw std::domain_error("not an operation of a loader");
  }
};

}  // namespace Units
