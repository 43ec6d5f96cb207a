#pragma once

#include "model/IndexedMap.h"
#include "model/SharedText.h"

#include <TrelvonUnits/PrefixOrSuffix.h>
#include <TrelvonUnits/System.h>

#include <optional>
#include <string>
#include <vector>

/// Schemas whose records need other records, which may be read later. They wait for the build.
namespace Units {

struct DimensionalUnitSchema {
  SharedText typeId;
  std::string name;
  System unitSystem;
  SharedText dimension;
};

struct SymbolSchema {
  SharedText typeId;
  SharedText unit;
  std::optional<PrefixOrSuffix> prefixOrSuffix;
};

struct QuantitySchema {
  SharedText typeId;
  std::string name;
  std::vector<SharedText> units;
};

/// By type id.
struct WaitingSchemas {
  IndexedMap<DimensionalUnitSchema> units;
  IndexedMap<SymbolSchema> symbols;
  IndexedMap<QuantitySchema> quantities;
};

}  // namespace Units
