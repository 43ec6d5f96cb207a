#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <string>

/// An engine with packs of the shipped definitions, created once.
inline const Units::UnitsEngine& catalog() {
  static const std::unique_ptr<Units::UnitsEngine> loaded = [] {
    std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    for (const char* pack : {"/core", "/symbols", "/aliases"})
      Schemas::SchemaUtility::addDefinitionsFromFolder(std::string(TRELVON_SCHEMAS) + pack,
                                                       *engine);
    return engine;
  }();
  return *loaded;
}

inline std::string unit(const std::string& name) { return "trelvon.unit:" + name + "-1.0.0"; }
