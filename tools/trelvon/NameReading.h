#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <vector>

namespace tool {

/// What formulas read where a variable of this name stands.
struct NameReading {
  std::string name;
  bool isFree = false;               ///< Whether it is read as the variable.
  std::vector<std::string> symbols;  ///< Type ids of the symbols that are read instead.
  std::string what;                  ///< Says for people what is read instead. Empty if it is free.
};

/// Reads a formula that is nothing but the name, with a resolver that knows any variable.
NameReading readName(const Units::UnitsEngine& engine, const std::string& name);

}  // namespace tool
