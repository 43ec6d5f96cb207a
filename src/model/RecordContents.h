#pragma once

#include "model/SharedText.h"

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

template <class Contents>
Shared<Contents>::Shared(Shared&& other) noexcept
    : contents_(std::exchange(other.contents_, nullptr)) {}

/// Acquire and release: other owners' accesses must precede the deletion by the last owner.
template <class Contents>
Shared<Contents>::~Shared() {
  if (contents_ && contents_->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) delete contents_;
}

/// Parents and their exponents in type id order. Takes less memory than a map.
using ParentList = std::vector<std::pair<SharedText, int>>;

inline ParentList listOf(const std::map<std::string, int>& powers) {
  ParentList list;
  list.reserve(powers.size());
  for (const auto& [typeId, exponent] : powers) list.emplace_back(SharedText(typeId), exponent);
  return list;
}

inline std::map<std::string, int> mapOf(const ParentList& list) {
  std::map<std::string, int> powers;
  for (const auto& [typeId, exponent] : list)
    powers.emplace_hint(powers.end(), typeId.str(), exponent);
  return powers;
}

struct Dimension::Contents : CountedContents {
  explicit Contents(SharedText id) : typeId(std::move(id)) {}

  const SharedText typeId;
};

struct FactorComponent::Contents : CountedContents {
  Contents(double number, ParentList powers)
      : factor(number), parentFactorPowers(std::move(powers)) {}

  const double factor;
  const ParentList parentFactorPowers;
};

struct Factor::Contents : CountedContents {
  Contents(SharedText id, const FactorComponent& component)
      : typeId(std::move(id)), factorComponent(component) {}

  const SharedText typeId;
  const FactorComponent factorComponent;
};

struct AbsoluteUnitComponent::Contents : CountedContents {
  Contents(SharedText parent, double distance) : parentUnit(std::move(parent)), offset(distance) {}

  const SharedText parentUnit;
  const double offset;
};

struct DerivedUnitComponent::Contents : CountedContents {
  Contents(ParentList powers, const FactorComponent& component)
      : parentUnitPowers(std::move(powers)), factorComponent(component) {}

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

  Contents(SharedText id, std::string unitName, System system, const Component& ofKind)
      : typeId(std::move(id)), name(std::move(unitName)), unitSystem(system), component(ofKind) {}

  const SharedText typeId;
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
  Contents(SharedText id, const Unit& ofUnit, const std::optional<PrefixOrSuffix>& decoration)
      : typeId(std::move(id)), unit(ofUnit), prefixOrSuffix(decoration) {}

  const SharedText typeId;
  const Unit unit;
  const std::optional<PrefixOrSuffix> prefixOrSuffix;
};

struct Quantity::Contents : CountedContents {
  Contents(SharedText id, std::string quantityName, std::vector<Unit> listed)
      : typeId(std::move(id)), name(std::move(quantityName)), units(std::move(listed)) {}

  const SharedText typeId;
  const std::string name;
  const std::vector<Unit> units;
};

// How the library makes a record from contents that it does not copy. Always inline: the library
// exports all out-of-line members of these classes.
[[gnu::always_inline]] inline Dimension::Dimension(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline FactorComponent::FactorComponent(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline Factor::Factor(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline AbsoluteUnitComponent::AbsoluteUnitComponent(
    Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline DerivedUnitComponent::DerivedUnitComponent(
    Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline Unit::Unit(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline Symbol::Symbol(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}
[[gnu::always_inline]] inline Quantity::Quantity(Shared<Contents>&& contents) noexcept
    : contents_(std::move(contents)) {}

}  // namespace Units
