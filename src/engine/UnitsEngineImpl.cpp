#include "engine/UnitsEngineImpl.h"

#include "engine/Conversion.h"
#include "engine/Reduction.h"
#include "engine/UnitQueries.h"
#include "formula/Evaluation.h"
#include "model/CompatiblePowers.h"
#include "model/RecordAccess.h"
#include "registry/AddRecord.h"
#include "schema/Definitions.h"
#include "text/DisplayText.h"

#include <utility>

// The operations in slot order, followed by those for formulas.
namespace Units {

UnitsEngineImpl::UnitsEngineImpl() {
  functionMap_.spellings();
  binaryOperatorMap_.spellings();
  unaryOperatorMap_.spellings();
}

double UnitsEngineImpl::convert(double value, std::string fromUnitTypeId,
                                std::string toUnitTypeId) const {
  return convertValue(value, fromUnitTypeId, toUnitTypeId, registries_);
}

bool UnitsEngineImpl::canConvert(std::string fromUnitTypeId, std::string toUnitTypeId) const {
  return canConvertUnits(fromUnitTypeId, toUnitTypeId, registries_);
}

std::string UnitsEngineImpl::formatFixedPoint(double value, unsigned char decimalPlaces,
                                              const std::string* symbolTypeId,
                                              bool trimTrailingZeros) const {
  return Units::formatFixedPoint(value, decimalPlaces, symbolTypeId, trimTrailingZeros,
                                 registries_.symbols.objects);
}

std::string UnitsEngineImpl::formatFractional(double value, unsigned char precision,
                                              const std::string* symbolTypeId) const {
  return Units::formatFractional(value, precision, symbolTypeId, registries_.symbols.objects);
}

double UnitsEngineImpl::evaluateExpressionInUnit(std::string unitTypeId, std::string formula,
                                                 VariableResolver resolver) const {
  return evaluateInUnit(unitTypeId, formula, std::move(resolver));
}

double UnitsEngineImpl::evaluateExpressionInUnit(std::string unitTypeId,
                                                 std::string formula) const {
  return evaluateInUnit(unitTypeId, formula, rejectIdentifier);
}

double UnitsEngineImpl::evaluateUnitlessExpression(std::string formula,
                                                   VariableResolver resolver) const {
  return evaluateUnitless(formula, std::move(resolver));
}

double UnitsEngineImpl::evaluateUnitlessExpression(std::string formula) const {
  return evaluateUnitless(formula, rejectIdentifier);
}

double UnitsEngineImpl::evaluateInUnit(const std::string& unitTypeId, std::string_view formula,
                                       VariableResolver resolver) const {
  const Unit& unit = lookUp(registries_.units.objects, unitTypeId);
  FormulaUnits units = formulaUnits();
  return ::evaluateExpressionInUnit(unit, formula, std::move(resolver), registries_.symbolTexts,
                                    *this, units);
}

double UnitsEngineImpl::evaluateUnitless(std::string_view formula,
                                         VariableResolver resolver) const {
  FormulaUnits units = formulaUnits();
  return ::evaluateUnitlessExpression(formula, std::move(resolver), registries_.symbolTexts, *this,
                                      units);
}

Dimension UnitsEngineImpl::getDimension(std::string typeId) const {
  return lookUp(registries_.dimensions.objects, typeId);
}

Factor UnitsEngineImpl::getFactor(std::string typeId) const {
  return lookUp(registries_.factors.objects, typeId);
}

Unit UnitsEngineImpl::getUnit(std::string typeId) const {
  return lookUp(registries_.units.objects, typeId);
}

Symbol UnitsEngineImpl::getSymbol(std::string typeId) const {
  return lookUp(registries_.symbols.objects, typeId);
}

Quantity UnitsEngineImpl::getQuantity(std::string typeId) const {
  return lookUp(registries_.quantities.objects, typeId);
}

std::map<std::string, Dimension> UnitsEngineImpl::getDimensions() const {
  return registries_.dimensions.objects.records();
}

std::map<std::string, Factor> UnitsEngineImpl::getFactors() const {
  return registries_.factors.objects.records();
}

std::map<std::string, Unit> UnitsEngineImpl::getUnits() const {
  return registries_.units.objects.records();
}

std::map<std::string, Symbol> UnitsEngineImpl::getSymbols() const {
  return registries_.symbols.objects.records();
}

std::map<std::string, Quantity> UnitsEngineImpl::getQuantities() const {
  return registries_.quantities.objects.records();
}

std::map<std::string, Unit> UnitsEngineImpl::getPrimitiveUnits() const {
  return primitiveUnits(registries_);
}

std::map<std::string, Unit> UnitsEngineImpl::getPrimitiveUnitsOfDimension(
    std::optional<Dimension> dimension) const {
  return primitiveUnitsOfDimension(dimension, registries_);
}

std::map<std::string, Unit> UnitsEngineImpl::getConvertibleUnits(std::string unitTypeId) const {
  return convertibleUnits(unitTypeId, registries_);
}

std::map<std::string, Unit> UnitsEngineImpl::getUnitsWithPrimitivePowers(
    PrimitivePowers powers) const {
  return unitsWithPrimitivePowers(powers, registries_);
}

std::map<std::string, Symbol> UnitsEngineImpl::getSymbolsOfUnit(std::string unitTypeId) const {
  return symbolsOfUnit(unitTypeId, registries_);
}

std::map<std::string, Quantity> UnitsEngineImpl::getQuantitiesOfUnit(std::string unitTypeId) const {
  return quantitiesOfUnit(unitTypeId, registries_);
}

void UnitsEngineImpl::addDimension(Dimension dimension) {
  Units::addDimension(dimension, registries_);
}

void UnitsEngineImpl::addFactor(Factor factor) { Units::addFactor(factor, registries_); }

void UnitsEngineImpl::addUnit(Unit unit) { Units::addUnit(unit, registries_); }

void UnitsEngineImpl::addSymbol(Symbol symbol) { Units::addSymbol(symbol, registries_); }

void UnitsEngineImpl::addQuantity(Quantity quantity) { Units::addQuantity(quantity, registries_); }

std::set<std::string> UnitsEngineImpl::addDefinition(const std::string& schemaText) {
  return Units::addDefinition(schemaText, registries_);
}

void UnitsEngineImpl::buildSchemas() { Units::buildSchemas(registries_); }

std::string UnitsEngineImpl::getDefinition(std::string typeId) const {
  return Units::getDefinition(typeId, registries_);
}

std::set<std::string> UnitsEngineImpl::getDependencies(std::string typeId) const {
  return Units::getDependencies(typeId, registries_);
}

bool UnitsEngineImpl::isRegistered(std::string typeId) const {
  return Units::isRegistered(typeId, registries_);
}

void UnitsEngineImpl::reduceUnit(const Unit& unit, double& factor, double& offset,
                                 PrimitivePowers& powers) const {
  Reducer reducer;
  const ReducedUnit reduced =
      reducer.reduce(lookUpNode(registries_.units.objects, RecordAccess::typeId(unit)));
  factor = reduced.factor;
  offset = reduced.offset;
  powers = toPrimitivePowers(reduced.powers);
}

bool UnitsEngineImpl::arePowersCompatible(PrimitivePowers a, PrimitivePowers b,
                                          bool& inverted) const {
  return Units::arePowersCompatible(a, b, inverted);
}

void UnitsEngineImpl::reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const {
  double factor = 1.0;
  double offset = 0.0;
  PrimitivePowers reduced;
  reduceUnit(unit, factor, offset, reduced);
  value = (offset + value) * factor;
  powers = UnitPowerMap(reduced.begin(), reduced.end());
}

ConversionSteps UnitsEngineImpl::stepsOf(const std::string& fromUnitTypeId,
                                         const std::string& toUnitTypeId) const {
  return conversionSteps(fromUnitTypeId, toUnitTypeId, registries_);
}

const FunctionMap& UnitsEngineImpl::getFunctionMap() const { return functionMap_; }

const BinaryOperatorMap& UnitsEngineImpl::getBinaryOperatorMap() const {
  return binaryOperatorMap_;
}

const UnaryOperatorMap& UnitsEngineImpl::getUnaryOperatorMap() const { return unaryOperatorMap_; }

}  // namespace Units
