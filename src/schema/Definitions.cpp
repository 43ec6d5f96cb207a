#include "schema/Definitions.h"

#include "model/RecordAccess.h"
#include "registry/Commit.h"
#include "registry/RecordChecks.h"
#include "schema/BuildDefinitions.h"
#include "schema/ReadKind.h"
#include "schema/ValidationExceptionFactory.h"

#include <TrelvonUnits/Exceptions.h>

#include <memory>
#include <utility>

namespace Units {

namespace {

[[noreturn]] void throwUnknownTypeId(const std::string& typeId) {
  throw UnrecognizedIdentifierException("Could not find any object with typeid " + typeId + ".");
}

}  // namespace

std::set<std::string> addDefinition(const std::string& text, Registries& registries) {
  ValidationExceptionFactory exceptions;  // outlives the header
  const std::shared_ptr<ExceptionFactory> notOwned(std::shared_ptr<void>(), &exceptions);
  const SchemaHeader header = readSchemaHeader(notOwned, text);
  const HashedText typeId(header.typeId);
  checkTypeId(typeId, registries);
  return readKind(header, [&](const auto& data) {
    SchemaIds ids(typeId, registries);
    addPending(data, ids);
    return ids.takeUnregistered();
  });
}

void buildSchemas(Registries& registries) {
  const BuiltDropper dropper{registries};
  PendingSchemas pending = std::exchange(registries.pending, {});
  buildDefinitions(pending, registries);
  commit(registries);
}

std::string getDefinition(const std::string& typeId, const Registries& registries) {
  if (const auto* const dimension = registries.dimensions.objects.find(typeId))
    return writeDimensionSchema(*dimension);
  if (const auto* const factor = registries.factors.objects.find(typeId))
    return writeFactorSchema(*factor);
  if (const auto* const unit = registries.units.objects.find(typeId)) return writeUnitSchema(*unit);
  if (const auto* const symbol = registries.symbols.objects.find(typeId))
    return writeSymbolSchema(*symbol);
  if (const auto* const quantity = registries.quantities.objects.find(typeId))
    return writeQuantitySchema(*quantity);
  throwUnknownTypeId(typeId);
}

std::set<std::string> getDependencies(const std::string& typeId, const Registries& registries) {
  const RecordStore<Unit>& units = registries.units.objects;
  References references;
  if (const auto* const factor = registries.factors.objects.findNode(typeId))
    collectParentFactors(factor->parents, references);
  else if (const auto* const unit = units.findNode(typeId))
    collectUnitReferences(*unit, references);
  else if (const auto* const symbol = registries.symbols.objects.find(typeId))
    collectSymbolReferences(*symbol, references, units);
  else if (const auto* const quantity = registries.quantities.objects.find(typeId))
    collectQuantityReferences(*quantity, references, units);
  else if (!isRegistered(typeId, registries))  // dimensions and pending schemas have none
    throwUnknownTypeId(typeId);
  return std::move(references.typeIds);
}

}  // namespace Units
