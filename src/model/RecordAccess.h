#pragma once

#include "model/RecordContents.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Units {

/// Reads records in place, whereas their getters copy, and makes records from existing parts.
/// References are valid as long as the record.
struct RecordAccess {
  template <class Record>
  static const std::string& typeId(const Record& record) {
    return record.contents_->typeId;
  }

  template <class Record>
  static const SharedText& sharedTypeId(const Record& record) {
    return record.contents_->typeId;
  }

  /// Makes a record without copying its parts.
  template <class Record, class... Arguments>
  static Record make(Arguments&&... arguments) {
    using Contents = typename Record::Contents;
    return Record(Shared<Contents>(new Contents(std::forward<Arguments>(arguments)...)));
  }

  /// Equal for all copies of a record, and only for them.
  template <class Record>
  static const void* identity(const Record& record) {
    return record.contents_.get();
  }

  /// Of a unit or quantity.
  template <class Record>
  static const std::string& name(const Record& record) {
    return record.contents_->name;
  }

  static const ParentList& parentFactorPowers(const FactorComponent& component) {
    return component.contents_->parentFactorPowers;
  }

  static double factor(const FactorComponent& component) { return component.contents_->factor; }

  static const FactorComponent& factorComponent(const Factor& factor) {
    return factor.contents_->factorComponent;
  }
  static const FactorComponent& factorComponent(const DerivedUnitComponent& component) {
    return component.contents_->factorComponent;
  }

  static const ParentList& parentUnitPowers(const DerivedUnitComponent& component) {
    return component.contents_->parentUnitPowers;
  }

  static const std::string& parentUnit(const AbsoluteUnitComponent& component) {
    return component.contents_->parentUnit;
  }

  static double offset(const AbsoluteUnitComponent& component) {
    return component.contents_->offset;
  }

  static const std::optional<Dimension>& dimension(const PrimitiveUnitComponent& component) {
    return component.contents_->dimension;
  }

  // A unit has one of these three components; the other two are null.
  static const AbsoluteUnitComponent* absolute(const Unit& unit) {
    return std::get_if<AbsoluteUnitComponent>(&unit.contents_->component);
  }
  static const DerivedUnitComponent* derived(const Unit& unit) {
    return std::get_if<DerivedUnitComponent>(&unit.contents_->component);
  }
  static const PrimitiveUnitComponent* primitive(const Unit& unit) {
    return std::get_if<PrimitiveUnitComponent>(&unit.contents_->component);
  }

  static const std::string& text(const PrefixOrSuffix& decoration) {
    return decoration.contents_->text;
  }

  static const Unit& unit(const Symbol& symbol) { return symbol.contents_->unit; }

  /// Null for a composite symbol.
  static const PrefixOrSuffix* prefixOrSuffix(const Symbol& symbol) {
    return symbol.contents_->prefixOrSuffix ? &*symbol.contents_->prefixOrSuffix : nullptr;
  }

  static const std::vector<Unit>& units(const Quantity& quantity) {
    return quantity.contents_->units;
  }
};

}  // namespace Units
