#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <optional>
#include <string>
#include <vector>

namespace tool {

/// A definition that another one refers to.
struct Parent {
  std::string typeId;
  int power = 1;
};

/// What is known of a definition of any kind.
struct Described {
  std::string kind;  ///< "derived unit", "factor" ...
  std::string name;  ///< The display name or text, or else the local id.
  std::optional<double> factor;
  std::optional<double> offset;
  std::vector<Parent> parents;  ///< Factors, then units; or a dimension.
};

/// @throws Units::UnrecognizedIdentifierException  there is no such definition.
Described describe(const Units::UnitsEngine& engine, const std::string& typeId);

}  // namespace tool
