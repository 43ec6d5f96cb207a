/// The checks of a build as one would write them first: a recursive walk that remembers nothing,
/// from every root anew, with the path in a vector.
#pragma once

#include "registry/Registries.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <map>
#include <string>
#include <variant>
#include <vector>

/// Of a batch that is still pending.
class ReferenceBuild {
 public:
  explicit ReferenceBuild(const Units::Registries& registries) : all_(registries) {}

  /// @throws Units::ValidationException  what the build must throw.
  void check() const {
    for (const auto& [id, data] : all_.units.pending)
      if (const auto* unit = std::get_if<Units::DimensionalPrimitiveUnitSchemaData>(&data))
        depend(all_.dimensions, unit->dimension, id);
    for (const auto& [id, data] : all_.symbols.pending) depend(all_.units, data.unit, id);
    for (const auto& [id, data] : all_.quantities.pending)
      for (const std::string& unit : data.units) depend(all_.units, unit, id);
    for (const auto& [id, data] : all_.factors.pending)
      visit({id}, all_.factors, [&](const std::string& factor) {
        const auto& pending = all_.factors.pending.at(factor);
        const auto* derived = std::get_if<Units::DerivedFactorSchemaData>(&pending);
        return derived ? derived->parentFactors : Powers();
      });
    for (const auto& [id, data] : all_.units.pending) {
      if (const auto* unit = std::get_if<Units::DerivedUnitSchemaData>(&data))
        checkDerived(id, *unit);
      if (const auto* unit = std::get_if<Units::AbsoluteUnitSchemaData>(&data))
        checkAbsolute(id, unit->parentUnit);
    }
  }

 private:
  using Ids = std::vector<std::string>;
  using Powers = std::map<std::string, int>;

  [[noreturn]] static void refuse(const std::string& message) {
    throw Units::ValidationException(message);
  }

  template <class Kind>
  static void depend(const Kind& kind, const std::string& id, const std::string& schema) {
    if (kind.objects.records().count(id) + kind.pending.count(id) == 0)
      refuse("Dependency " + id + " in schema " + schema +
             " is missing or does not represent an object of the expected type.");
  }

  template <class Kind, class ParentsOf>
  static void visit(const Ids& path, const Kind& kind, const ParentsOf& parentsOf) {
    if (kind.objects.records().count(path.back()) != 0) return;
    if (kind.pending.count(path.back()) == 0)
      refuse("Parent " + path.back() + " has an unexpected type.");
    for (const auto& [parent, exponent] : parentsOf(path.back())) {
      if (std::find(path.begin(), path.end(), parent) != path.end())
        refuse("A schema identifies its descendant " + parent + " as one of its parents.");
      Ids longer = path;
      longer.push_back(parent);
      visit(longer, kind, parentsOf);
    }
  }

  bool isAbsolute(const std::string& id) const {
    if (all_.units.objects.records().count(id) != 0)
      return all_.units.objects.records().at(id).getAbsoluteUnitComponent().has_value();
    return std::holds_alternative<Units::AbsoluteUnitSchemaData>(all_.units.pending.at(id));
  }

  void refuseAbsolute(const std::string& id, const std::string& child) const {
    if (isAbsolute(id)) refuse("Parent unit " + id + " in " + child + " is not a relative unit.");
  }

  void checkDerived(const std::string& root, const Units::DerivedUnitSchemaData& unit) const {
    for (const auto& [parent, exponent] : unit.parentFactors) depend(all_.factors, parent, root);
    for (const auto& [parent, exponent] : unit.parentUnits) {
      depend(all_.units, parent, root);
      refuseAbsolute(parent, "derived unit " + root);
    }
    visit({root}, all_.units, [&](const std::string& id) {
      refuseAbsolute(id, "derived unit " + root);
      const auto* data = std::get_if<Units::DerivedUnitSchemaData>(&all_.units.pending.at(id));
      return data ? data->parentUnits : Powers();
    });
  }

  void checkAbsolute(const std::string& id, const std::string& parent) const {
    if (all_.units.pending.count(parent) != 0)
      refuseAbsolute(parent, "absolute unit " + id);
    else if (all_.units.objects.records().count(parent) == 0 || isAbsolute(parent))
      refuse("Could not find relative unit with typeid " + parent + ".");
  }

  const Units::Registries& all_;
};
