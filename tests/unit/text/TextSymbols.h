/// Symbols for tests of the text room.
#pragma once

#include "model/RecordMap.h"

#include <optional>
#include <string>

/// Symbols of every kind. The composite ones bear the key of their layout alone, but for one that
/// bears two and one that bears none.
inline Units::RecordMap<Units::Symbol> makeTextSymbols() {
  using Units::Placement;
  Units::RecordMap<Units::Symbol> symbols;
  const Units::Unit unit("unit", "unit", Units::System::Metric, Units::PrimitiveUnitComponent());
  const auto add = [&](const std::string& typeId,
                       const std::optional<Units::PrefixOrSuffix>& decoration) {
    symbols.emplace(typeId, Units::Symbol(typeId, unit, decoration));
  };
  add("kilogram", Units::PrefixOrSuffix("kg", Placement::Suffix, true));
  add("meter", Units::PrefixOrSuffix("m", Placement::Suffix, false));
  add("squareMeter", Units::PrefixOrSuffix("m^2", Placement::Suffix, false));
  add("dollar", Units::PrefixOrSuffix("$", Placement::Prefix, true));
  add("euro", Units::PrefixOrSuffix("EUR", Placement::Prefix, false));
  add("count", Units::PrefixOrSuffix("", Placement::Suffix, true));
  add("long", Units::PrefixOrSuffix(std::string(40, 'x'), Placement::Suffix, true));
  for (const char* const key : {":degreesMinutesSeconds-1", ":feetAndInches-1",
                                ":feetHyphenInches-1", ":metersAndCentimeters-1"})
    add(key, std::nullopt);
  add("~:metersAndCentimeters-1:feetAndInches-1.0.0", std::nullopt);
  add("none", std::nullopt);
  return symbols;
}
