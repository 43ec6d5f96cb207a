#pragma once

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Units {

/// Reads records in place, where their getters would copy. References hold as long as the record.
struct RecordAccess {
  template <class Record>
  static const std::string& typeId(const Record& record) {
    return record.typeId_;
  }

  /// Of a unit or quantity.
  template <class Record>
  static const std::string& name(const Record& record) {
    return record.name_;
  }

  static const std::map<std::string, int>& parentFactorPowers(const FactorComponent& component) {
    return component.parentFactorPowers_;
  }

  static double factor(const FactorComponent& component) { return component.factor_; }

  static const FactorComponent& factorComponent(const Factor& factor) {
    return factor.factorComponent_;
  }
  static const FactorComponent& factorComponent(const DerivedUnitComponent& component) {
    return component.factorComponent_;
  }

  static const std::map<std::string, int>& parentUnitPowers(const DerivedUnitComponent& component) {
    return component.parentUnitPowers_;
  }

  static const std::string& parentUnit(const AbsoluteUnitComponent& component) {
    return component.parentUnit_;
  }

  static double offset(const AbsoluteUnitComponent& component) { return component.offset_; }

  static const std::optional<Dimension>& dimension(const PrimitiveUnitComponent& component) {
    return component.dimension_;
  }

  // Of the three components of a unit, the one that it holds; null for the other two.
  static const AbsoluteUnitComponent* absolute(const Unit& unit) {
    return std::get_if<AbsoluteUnitComponent>(&unit.component_);
  }
  static const DerivedUnitComponent* derived(const Unit& unit) {
    return std::get_if<DerivedUnitComponent>(&unit.component_);
  }
  static const PrimitiveUnitComponent* primitive(const Unit& unit) {
    return std::get_if<PrimitiveUnitComponent>(&unit.component_);
  }

  static const std::string& text(const PrefixOrSuffix& decoration) { return decoration.text_; }

  static const Unit& unit(const Symbol& symbol) { return symbol.unit_; }

  /// Null for a composite symbol.
  static const PrefixOrSuffix* prefixOrSuffix(const Symbol& symbol) {
    return symbol.prefixOrSuffix_ ? &*symbol.prefixOrSuffix_ : nullptr;
  }

  static const std::vector<Unit>& units(const Quantity& quantity) { return quantity.units_; }
};

}  // namespace Units
