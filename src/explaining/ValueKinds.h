#pragma once

#include "formula/ExplanationContents.h"
#include "registry/Registries.h"

#include <cstdint>
#include <string>

namespace Units {

/// Describes what values measure: by the names of the engine's quantities, or else by its primitive
/// units. "a length", "a plain number", "a value in kilogram meter^2".
///
/// Searches all quantities. Of several that fit, it takes the one with the most units.
class ValueKinds {
 public:
  using Contents = ExplanationContents;

  explicit ValueKinds(const Registries& registries) : registries_(registries) {}

  std::string ofUnit(const Unit& unit) const;

  /// @param powers  in the order of a reduced unit's. Those that are 0 make "a ratio".
  std::string ofPowers(const Contents::PowerList& powers) const;

  /// Of a node that was reached. A literal measures what its unit does.
  std::string ofNode(const Contents& contents, std::uint32_t node) const;

 private:
  const Registries& registries_;
};

}  // namespace Units
