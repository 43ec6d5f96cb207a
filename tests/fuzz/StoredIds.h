#pragma once

#include "registry/Registries.h"
#include "schema/Definitions.h"
#include "tests/fuzz/Fuzzer.h"

#include <set>
#include <string>

/// The type ids of all records that an engine serves.
inline std::set<std::string> storedIds(const Units::Registries& registries) {
  std::set<std::string> ids;
  const auto add = [&](const auto& kind) {
    for (const auto& [typeId, record] : kind.objects.records()) ids.insert(typeId);
  };
  add(registries.dimensions), add(registries.factors), add(registries.units);
  add(registries.symbols), add(registries.quantities);
  return ids;
}

/// A stored record as a definition, or why there is none: a number at the edge is read as infinite,
/// for which JSON has no text.
inline std::string definitionOf(const std::string& typeId, const Units::Registries& registries) {
  return validated([&] { return Units::getDefinition(typeId, registries); });
}
