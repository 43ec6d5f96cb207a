#pragma once

#include <TrelvonUnits/System.h>

#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// What is read from a schema text, by kind. All texts are views of the header's document.
namespace Units {

/// Parents and their exponents in type id order.
using ParentViews = std::vector<std::pair<std::string_view, int>>;

struct DimensionSchemaData {};

struct FactorSchemaData {
  double factor;
  ParentViews parentFactors;
};

struct AbsoluteUnitSchemaData {
  double offset;
  std::string_view parentUnit;
};

struct DerivedUnitSchemaData {
  FactorSchemaData factor;
  ParentViews parentUnits;
};

struct DimensionalPrimitiveUnitSchemaData {
  std::string_view dimension;
};

struct PrimitiveUnitSchemaData {};

struct UnitSchemaData {
  std::string_view name;
  System unitSystem;
  std::variant<AbsoluteUnitSchemaData, DerivedUnitSchemaData, DimensionalPrimitiveUnitSchemaData,
               PrimitiveUnitSchemaData>
      component;
};

struct PrefixOrSuffixSchemaData {
  std::string_view text;
  std::string_view placement;  // as written; interpreted when the symbol is built
  bool space;
};

struct SymbolSchemaData {
  std::string_view unit;
  std::optional<PrefixOrSuffixSchemaData> prefixOrSuffix;
};

struct QuantitySchemaData {
  std::string_view name;
  std::vector<std::string_view> units;
};

}  // namespace Units
