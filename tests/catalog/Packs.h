/// The packs of the shipped catalog, and the road by which hosts load them.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Units {

/// In the order in which they are loaded.
inline const std::vector<std::string> kPacks = {"core",   "symbols", "aliases",
                                                "legacy", "gauge",   "cgs"};

inline const std::string kSchemas = TRELVON_SCHEMAS_DIR;

inline void loadPacks(UnitsEngine& engine) {
  for (const std::string& pack : kPacks)
    Schemas::SchemaUtility::addDefinitionsFromFolder(kSchemas + "/" + pack, engine);
}

/// An engine with all packs, filled once.
inline UnitsEngine& catalog() {
  static const std::unique_ptr<UnitsEngine> engine = [] {
    std::unique_ptr<UnitsEngine> made(CreateUnitsEngine());
    loadPacks(*made);
    return made;
  }();
  return *engine;
}

/// Every record of the engine, written as a definition: in byte order of the type ids.
inline std::vector<std::string> definitionsOf(const UnitsEngine& engine) {
  std::set<std::string> ids;
  const auto add = [&](const auto& records) {
    for (const auto& [typeId, record] : records) ids.insert(typeId);
  };
  add(engine.getDimensions());
  add(engine.getFactors());
  add(engine.getUnits());
  add(engine.getSymbols());
  add(engine.getQuantities());
  std::vector<std::string> definitions;
  for (const std::string& typeId : ids) definitions.push_back(engine.getDefinition(typeId));
  return definitions;
}

}  // namespace Units
