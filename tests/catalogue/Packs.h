/// The packs of the shipped catalogue, and the road by which hosts load them.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <string>
#include <vector>

namespace Units {

/// In the order in which they are loaded.
inline const std::vector<std::string> kPacks = {"core", "symbols", "aliases", "legacy", "gauge"};

inline const std::string kSchemas = TRELVON_SCHEMAS_DIR;

inline void loadPacks(UnitsEngine& engine) {
  for (const std::string& pack : kPacks)
    Schemas::SchemaUtility::addDefinitionsFromFolder(kSchemas + "/" + pack, engine);
}

}  // namespace Units
