#include "registry/Registries.h"

#include "model/RecordAccess.h"

namespace Units {

namespace {

/// Looks for a type id in one map after the other.
struct TypeIdSearch {
  const HashedText& typeId;
  const SharedText* found = nullptr;

  template <class Record>
  void in(const RecordStore<Record>& records) {
    if (found) return;
    if (const Record* const record = records.find(typeId))
      found = &RecordAccess::sharedTypeId(*record);
  }

  template <class Schema>
  void in(const IndexedMap<Schema>& schemas) {
    if (found) return;
    if (const Schema* const schema = schemas.find(typeId)) found = &schema->typeId;
  }

  template <class Record>
  void in(const KindRegistry<Record>& kind) {
    in(kind.objects);
    in(kind.pending);
  }
};

}  // namespace

const SharedText* findRegistered(const HashedText& typeId, const Registries& registries) {
  TypeIdSearch search{typeId};
  search.in(registries.units);  // first, since most references are to units
  search.in(registries.dimensions);
  search.in(registries.factors);
  search.in(registries.symbols);
  search.in(registries.quantities);
  search.in(registries.waiting.units);
  search.in(registries.waiting.symbols);
  search.in(registries.waiting.quantities);
  return search.found;
}

}  // namespace Units
