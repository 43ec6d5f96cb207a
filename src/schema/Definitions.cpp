#include "schema/Definitions.h"

#include "model/RecordAccess.h"
#include "registry/Commit.h"
#include "registry/RecordChecks.h"
#include "schema/BuildDefinitions.h"
#include "schema/ReadKind.h"
#include "schema/ValidationExceptionFactory.h"

#include <TrelvonUnits/Exceptions.h>

#include <iterator>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace Units {

namespace {

/// Stores a schema as pending.
/// @return  the `dependencies` that are not registered. The schema itself counts as registered.
template <class SchemaData, class Record>
std::set<std::string> storePending(const std::string& typeId, SchemaData&& data,
                                   std::set<std::string> dependencies,
                                   KindRegistry<SchemaData, Record>& kind, Registries& registries) {
  for (auto id = dependencies.begin(); id != dependencies.end();)
    id = *id == typeId || isRegistered(*id, registries) ? dependencies.erase(id) : std::next(id);
  std::map<std::string, SchemaData> made;
  const auto entry = made.try_emplace(typeId, std::move(data)).first;
  registries.pendingTypeIds.insert(entry->first);

  // From here on, nothing allocates or throws.
  kind.pending.merge(made);
  return dependencies;
}

/// Takes the data of any kind.
struct PendingStore {
  const std::string& typeId;
  Registries& registries;

  std::set<std::string> operator()(Dimension&& data) const {
    return store(std::move(data), {}, registries.dimensions);
  }
  std::set<std::string> operator()(FactorSchemaData&& data) const {
    auto dependencies = factorSchemaDependencies(data);
    return store(std::move(data), std::move(dependencies), registries.factors);
  }
  std::set<std::string> operator()(UnitSchemaData&& data) const {
    auto dependencies = unitSchemaDependencies(data);
    return store(std::move(data), std::move(dependencies), registries.units);
  }
  std::set<std::string> operator()(SymbolSchemaData&& data) const {
    auto dependencies = symbolSchemaDependencies(data);
    return store(std::move(data), std::move(dependencies), registries.symbols);
  }
  std::set<std::string> operator()(QuantitySchemaData&& data) const {
    auto dependencies = quantitySchemaDependencies(data);
    return store(std::move(data), std::move(dependencies), registries.quantities);
  }

  template <class SchemaData, class Kind>
  std::set<std::string> store(SchemaData&& data, std::set<std::string> dependencies,
                              Kind& kind) const {
    return storePending(typeId, std::move(data), std::move(dependencies), kind, registries);
  }
};

/// Drops the batch of a build, whether the build succeeds or fails.
struct BatchDropper {
  Registries& registries;
  const BuiltDropper built{registries};

  ~BatchDropper() {
    registries.dimensions.batch.clear();
    registries.factors.batch.clear();
    registries.units.batch.clear();
    registries.symbols.batch.clear();
    registries.quantities.batch.clear();
  }
};

[[noreturn]] void throwUnknownTypeId(const std::string& typeId) {
  throw UnrecognizedIdentifierException("Could not find any object with typeid " + typeId + ".");
}

}  // namespace

std::set<std::string> addDefinition(const std::string& text, Registries& registries) {
  const SchemaHeader header =
      readSchemaHeader(std::make_shared<ValidationExceptionFactory>(), text);
  const std::string& typeId = header.typeId;
  checkTypeId(typeId, registries);
  return readKind(header, PendingStore{typeId, registries});
}

void buildSchemas(Registries& registries) {
  const BatchDropper dropper{registries};
  registries.pendingTypeIds.clear();
  registries.dimensions.batch.swap(registries.dimensions.pending);
  registries.factors.batch.swap(registries.factors.pending);
  registries.units.batch.swap(registries.units.pending);
  registries.symbols.batch.swap(registries.symbols.pending);
  registries.quantities.batch.swap(registries.quantities.pending);
  buildDefinitions(registries);
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
