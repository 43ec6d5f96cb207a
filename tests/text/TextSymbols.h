/// Symbols for tests of the text room.
#pragma once

#include "model/RecordMap.h"

#include <optional>
#include <string>

/// A registry of symbols, all of one unit, by type id.
class TextSymbols {
 public:
  TextSymbols& shown(const std::string& typeId, const std::string& text, Units::Placement placement,
                     bool hasSpace = false) {
    return add(typeId, Units::PrefixOrSuffix(text, placement, hasSpace));
  }
  TextSymbols& composite(const std::string& typeId) { return add(typeId, std::nullopt); }

  const Units::RecordMap<Units::Symbol>& records() const { return records_; }

 private:
  TextSymbols& add(const std::string& typeId,
                   const std::optional<Units::PrefixOrSuffix>& decoration) {
    const Units::Unit unit("unit", "unit", Units::System::Metric, Units::PrimitiveUnitComponent());
    records_.emplace(typeId, Units::Symbol(typeId, unit, decoration));
    return *this;
  }

  Units::RecordMap<Units::Symbol> records_;
};

/// Symbols of every kind; the composite ones bear the key of their layout alone.
inline TextSymbols makeTextSymbols() {
  TextSymbols symbols;
  symbols.shown("kilogram", "kg", Units::Placement::Suffix, true)
      .shown("meter", "m", Units::Placement::Suffix)
      .shown("squareMeter", "m^2", Units::Placement::Suffix)
      .shown("dollar", "$", Units::Placement::Prefix, true)
      .shown("euro", "EUR", Units::Placement::Prefix)
      .shown("count", "", Units::Placement::Suffix, true)
      .composite(":degreesMinutesSeconds-1")
      .composite(":feetAndInches-1")
      .composite(":feetHyphenInches-1")
      .composite(":metersAndCentimeters-1");
  return symbols;
}
