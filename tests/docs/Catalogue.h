/// The engine that the pages speak of, and how they name what it holds.
#pragma once

#include <TrelvonUnits/SchemaUtility.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <memory>
#include <string>

#include "tests/docs/Page.h"

/// An engine with the whole catalogue and a host's dollar.
inline std::unique_ptr<Units::UnitsEngine> makeCatalogueEngine() {
  std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* const pack : {"core", "symbols", "aliases", "legacy", "gauge"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(
        std::string(TRELVON_TESTS_SOURCE_DIR "/schemas/") + pack, *engine);
  for (const std::string& example : examplesOf("value-text.md")) engine->addDefinition(example);
  engine->buildSchemas();
  return engine;
}

/// The type id of a name on a page: the catalogue's local names stand alone.
inline std::string typeIdOf(const std::string& kind, const std::string& name) {
  return name.find(':') == std::string::npos ? "trelvon." + kind + ":" + name + "-1.0.0" : name;
}
