#pragma once

#include "engine/FormulaUnits.h"
#include "formula/UnitMath.h"
#include "prepared/ConversionSource.h"
#include "registry/Registries.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <string_view>

namespace Units {

/// The only engine: the registries and the spelling tables for formulas. Each operation forwards to
/// a free function over these.
class UnitsEngineImpl final : public UnitsEngine, public UnitMath, public ConversionSource {
 public:
  /// An empty engine. Fills the spelling tables, since the first formulas on two threads must not
  /// race to fill them.
  UnitsEngineImpl();

  UnitsEngineImpl(const UnitsEngineImpl&) = delete;  // the symbol index points to records

  double convert(double value, std::string fromUnitTypeId, std::string toUnitTypeId) const override;
  bool canConvert(std::string fromUnitTypeId, std::string toUnitTypeId) const override;
  std::string formatFixedPoint(double value, unsigned char decimalPlaces,
                               const std::string* symbolTypeId,
                               bool trimTrailingZeros) const override;
  std::string formatFractional(double value, unsigned char precision,
                               const std::string* symbolTypeId) const override;
  double evaluateExpressionInUnit(std::string unitTypeId, std::string formula,
                                  VariableResolver resolver) const override;
  double evaluateExpressionInUnit(std::string unitTypeId, std::string formula) const override;
  double evaluateUnitlessExpression(std::string formula, VariableResolver resolver) const override;
  double evaluateUnitlessExpression(std::string formula) const override;
  Dimension getDimension(std::string typeId) const override;
  Factor getFactor(std::string typeId) const override;
  Unit getUnit(std::string typeId) const override;
  Symbol getSymbol(std::string typeId) const override;
  Quantity getQuantity(std::string typeId) const override;
  std::map<std::string, Dimension> getDimensions() const override;
  std::map<std::string, Factor> getFactors() const override;
  std::map<std::string, Unit> getUnits() const override;
  std::map<std::string, Symbol> getSymbols() const override;
  std::map<std::string, Quantity> getQuantities() const override;
  std::map<std::string, Unit> getPrimitiveUnits() const override;
  std::map<std::string, Unit> getPrimitiveUnitsOfDimension(
      std::optional<Dimension> dimension) const override;
  std::map<std::string, Unit> getConvertibleUnits(std::string unitTypeId) const override;
  std::map<std::string, Unit> getUnitsWithPrimitivePowers(PrimitivePowers powers) const override;
  std::map<std::string, Symbol> getSymbolsOfUnit(std::string unitTypeId) const override;
  std::map<std::string, Quantity> getQuantitiesOfUnit(std::string unitTypeId) const override;
  void addDimension(Dimension dimension) override;
  void addFactor(Factor factor) override;
  void addUnit(Unit unit) override;
  void addSymbol(Symbol symbol) override;
  void addQuantity(Quantity quantity) override;
  std::set<std::string> addDefinition(const std::string& schemaText) override;
  void buildSchemas() override;
  std::string getDefinition(std::string typeId) const override;
  std::set<std::string> getDependencies(std::string typeId) const override;
  bool isRegistered(std::string typeId) const override;

  void reduceUnit(const Unit& unit, double& factor, double& offset,
                  PrimitivePowers& powers) const override;
  bool arePowersCompatible(PrimitivePowers a, PrimitivePowers b, bool& inverted) const override;
  void reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const override;
  ConversionSteps stepsOf(const std::string& fromUnitTypeId,
                          const std::string& toUnitTypeId) const override;
  const FunctionMap& getFunctionMap() const override;
  const BinaryOperatorMap& getBinaryOperatorMap() const override;
  const UnaryOperatorMap& getUnaryOperatorMap() const override;

  const Registries& registries() const { return registries_; }

  /// This engine's units, for one evaluation of a formula.
  FormulaUnits formulaUnits() const { return FormulaUnits(registries_.units.objects); }

 private:
  double evaluateInUnit(const std::string& unitTypeId, std::string_view formula,
                        VariableResolver resolver) const;
  double evaluateUnitless(std::string_view formula, VariableResolver resolver) const;

  Registries registries_;
  FunctionMap functionMap_;
  BinaryOperatorMap binaryOperatorMap_;
  UnaryOperatorMap unaryOperatorMap_;
};

}  // namespace Units
