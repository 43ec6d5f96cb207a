#pragma once

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>

#include <atomic>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// What all copies of a record share, by class. Set on construction and never changed.
namespace Units {

/// The base of all contents: counts the records that share them.
struct CountedContents {
  mutable std::atomic<std::size_t> owners{1};
};

template <class Contents>
Shared<Contents>::Shared(const Shared& other) noexcept : contents_(other.contents_) {
  contents_->owners.fetch_add(1, std::memory_order_relaxed);
}

/// Acquire and release: other owners' accesses must precede the deletion by the last owner.
template <class Contents>
Shared<Contents>::~Shared() {
  if (contents_->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) delete contents_;
}

/// Parents and their exponents in type id order. Takes less memory than a map.
using ParentList = std::vector<std::pair<std::string, int>>;

struct Dimension::Contents : CountedContents {
  explicit Contents(std::string id) : typeId(std::move(id)) {}

  const std::string typeId;
};

struct FactorComponent::Contents : CountedContents {
  Contents(double number, const std::map<std::string, int>& powers)
      : factor(number), parentFactorPowers(powers.begin(), powers.end()) {}

  const double factor;
  const ParentList parentFactorPowers;
};

struct Factor::Contents : CountedContents {
  Contents(const std::string& id, const FactorComponent& component)
      : typeId(id), factorComponent(component) {}

  const std::string typeId;
  const FactorComponent factorComponent;
};

struct AbsoluteUnitComponent::Contents : CountedContents {
  Contents(const std::string& parent, double distance) : parentUnit(parent), offset(distance) {}

  const std::string parentUnit;
  const double offset;
};

struct DerivedUnitComponent::Contents : CountedContents {
  Contents(const std::map<std::string, int>& powers, const FactorComponent& component)
      : parentUnitPowers(powers.begin(), powers.end()), factorComponent(component) {}

  const ParentList parentUnitPowers;
  const FactorComponent factorComponent;
};

struct PrimitiveUnitComponent::Contents : CountedContents {
  explicit Contents(const std::optional<Dimension>& measured) : dimension(measured) {}

  const std::optional<Dimension> dimension;
};

struct Unit::Contents : CountedContents {
  using Component =
      std::variant<AbsoluteUnitComponent, DerivedUnitComponent, PrimitiveUnitComponent>;

  template <class ComponentKind>
  Contents(const std::string& id, const std::string& unitName, System system,
           const ComponentKind& ofKind)
      : typeId(id), name(unitName), unitSystem(system), component(ofKind) {}

  const std::string typeId;
  const std::string name;
  const System unitSystem;
  const Component component;
};

struct PrefixOrSuffix::Contents : CountedContents {
  Contents(const std::string& displayed, Placement side, bool spaced)
      : text(displayed), placement(side), space(spaced) {}

  const std::string text;
  const Placement placement;
  const bool space;
};

struct Symbol::Contents : CountedContents {
  Contents(const std::string& id, const Unit& ofUnit,
           const std::optional<PrefixOrSuffix>& decoration)
      : typeId(id), unit(ofUnit), prefixOrSuffix(decoration) {}

  const std::string typeId;
  const Unit unit;
  const std::optional<PrefixOrSuffix> prefixOrSuffix;
};

struct Quantity::Contents : CountedContents {
  Contents(const std::string& id, const std::string& quantityName, const std::vector<Unit>& listed)
      : typeId(id), name(quantityName), units(listed) {}

  const std::string typeId;
  const std::string name;
  const std::vector<Unit> units;
};

}  // namespace Units
