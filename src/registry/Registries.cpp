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
};

}  // namespace

const SharedText* findStored(const HashedText& typeId, const Registries& registries) {
  TypeIdSearch search{typeId};
  search.in(registries.units.objects);  // first, since most references are to units
  search.in(registries.dimensions.objects);
  search.in(registries.factors.objects);
  search.in(registries.symbols.objects);
  search.in(registries.quantities.objects);
  return search.found;
}

bool isRegistered(const HashedText& typeId, const Registries& registries) {
  const PendingSchema* const pending = registries.pending.find(typeId);
  return (pending && pending->isRegistered()) || findStored(typeId, registries);
}

}  // namespace Units
