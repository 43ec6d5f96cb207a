#pragma once

#include <TrelvonUnits/System.h>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What is read from a schema text and waits for a build, by kind. (A dimension has only a type id,
/// so it is stored as a Dimension.)
namespace Units {

struct SimpleFactorSchemaData {
  double factor;
};

struct DerivedFactorSchemaData {
  double factor;
  std::map<std::string, int> parentFactors;
};

using FactorSchemaData = std::variant<SimpleFactorSchemaData, DerivedFactorSchemaData>;

struct AbsoluteUnitSchemaData {
  std::string name;
  System unitSystem;
  double offset;
  std::string parentUnit;
};

struct DerivedUnitSchemaData {
  std::string name;
  System unitSystem;
  double factor;
  std::map<std::string, int> parentFactors;
  std::map<std::string, int> parentUnits;
};

struct DimensionalPrimitiveUnitSchemaData {
  std::string name;
  System unitSystem;
  std::string dimension;
};

struct PrimitiveUnitSchemaData {
  std::string name;
  System unitSystem;
};

using UnitSchemaData = std::variant<AbsoluteUnitSchemaData, DerivedUnitSchemaData,
                                    DimensionalPrimitiveUnitSchemaData, PrimitiveUnitSchemaData>;

struct PrefixOrSuffixSchemaData {
  std::string text;
  std::string placement;  // as written; interpreted when the symbol is built
  bool space;
};

struct SymbolSchemaData {
  std::string unit;
  std::optional<PrefixOrSuffixSchemaData> prefixOrSuffix;
};

struct QuantitySchemaData {
  std::string name;
  std::vector<std::string> units;
};

}  // namespace Units
