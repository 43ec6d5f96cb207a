/// The checks of a build as a slow walk that remembers nothing: recursive, from every root anew,
/// with the path in a vector.
#pragma once

#include "registry/Registries.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace Units {

class LiteralBuild {
 public:
  /// @param registries  with the batch still pending.
  explicit LiteralBuild(const Registries& registries) : all_(registries) {}

  /// Throws the ValidationException that ends the build, if any.
  void check() const {
    for (const auto& [id, data] : all_.units.pending)
      if (const auto* unit = std::get_if<DimensionalPrimitiveUnitSchemaData>(&data))
        depend(all_.dimensions, unit->dimension, id);
    for (const auto& [id, data] : all_.symbols.pending) depend(all_.units, data.unit, id);
    for (const auto& [id, data] : all_.quantities.pending)
      for (const std::string& unit : data.units) depend(all_.units, unit, id);
    for (const auto& [id, data] : all_.factors.pending) {
      std::vector<std::string> path = {id};
      visit(path, all_.factors, [&](const std::string& factor) { return factorParents(factor); });
    }
    for (const auto& [id, data] : all_.units.pending) {
      if (const auto* unit = std::get_if<DerivedUnitSchemaData>(&data)) checkDerived(id, *unit);
      if (const auto* unit = std::get_if<AbsoluteUnitSchemaData>(&data)) checkAbsolute(id, *unit);
    }
  }

 private:
  using Powers = std::map<std::string, int>;

  template <class Kind>
  static void depend(const Kind& kind, const std::string& id, const std::string& schema) {
    if (kind.objects.count(id) + kind.pending.count(id) == 0)
      throw ValidationException("Dependency " + id + " in schema " + schema +
                                " is missing or does not represent an object of the expected "
                                "type.");
  }

  template <class Kind, class ParentsOf>
  static void visit(std::vector<std::string>& path, const Kind& kind, const ParentsOf& parentsOf) {
    const std::string id = path.back();
    if (kind.objects.count(id) != 0) return;
    if (kind.pending.count(id) == 0)
      throw ValidationException("Parent " + id + " has an unexpected type.");
    for (const auto& [parent, exponent] : parentsOf(id)) {
      if (std::find(path.begin(), path.end(), parent) != path.end())
        throw ValidationException("A schema identifies its descendant " + parent +
                                  " as one of its parents.");
      path.push_back(parent);
      visit(path, kind, parentsOf);
      path.pop_back();
    }
  }

  Powers factorParents(const std::string& id) const {
    const auto* data = std::get_if<DerivedFactorSchemaData>(&all_.factors.pending.at(id));
    return data ? data->parentFactors : Powers();
  }

  bool isAbsolute(const std::string& id) const {
    if (all_.units.objects.count(id) != 0)
      return all_.units.objects.at(id).getAbsoluteUnitComponent().has_value();
    return std::holds_alternative<AbsoluteUnitSchemaData>(all_.units.pending.at(id));
  }

  void refuse(const std::string& parent, const std::string& kind, const std::string& unit) const {
    if (isAbsolute(parent))
      throw ValidationException("Parent unit " + parent + " in " + kind + " unit " + unit +
                                " is not a relative unit.");
  }

  void checkDerived(const std::string& root, const DerivedUnitSchemaData& unit) const {
    for (const auto& [parent, exponent] : unit.parentFactors) depend(all_.factors, parent, root);
    for (const auto& [parent, exponent] : unit.parentUnits) {
      depend(all_.units, parent, root);
      refuse(parent, "derived", root);
    }
    std::vector<std::string> path = {root};
    visit(path, all_.units, [&](const std::string& id) {
      refuse(id, "derived", root);
      const auto* data = std::get_if<DerivedUnitSchemaData>(&all_.units.pending.at(id));
      return data ? data->parentUnits : Powers();
    });
  }

  void checkAbsolute(const std::string& id, const AbsoluteUnitSchemaData& unit) const {
    if (all_.units.pending.count(unit.parentUnit) != 0)
      refuse(unit.parentUnit, "absolute", id);
    else if (all_.units.objects.count(unit.parentUnit) == 0 || isAbsolute(unit.parentUnit))
      throw ValidationException("Could not find relative unit with typeid " + unit.parentUnit +
                                ".");
  }

  const Registries& all_;
};

}  // namespace Units
