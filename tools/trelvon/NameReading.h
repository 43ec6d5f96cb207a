#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <vector>

namespace tool {

/// How formulas read a name that is meant to be a variable.
struct NameReading {
  std::string name;
  bool isFree = false;               ///< Whether it is read as the variable.
  std::vector<std::string> symbols;  ///< Type ids of the symbols that are read instead.
  std::string what;                  ///< Describes what is read instead. Empty if it is free.
};

/// Reads a formula that is nothing but the name, with a resolver that knows any variable.
NameReading readName(const Units::UnitsEngine& engine, const std::string& name);

}  // namespace tool
