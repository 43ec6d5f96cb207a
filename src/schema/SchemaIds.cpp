#include "schema/SchemaIds.h"

namespace Units {

SchemaIds::SchemaIds(const HashedText& typeId, Registries& registries)
    : registries_(registries), own_(typeId), typeId_(registries.pending.share(typeId).typeId) {}

SharedText SchemaIds::refer(std::string_view typeId) {
  if (typeId == own_.text) return typeId_;
  const HashedText searched(typeId);
  if (const SharedText* const stored = findStored(searched, registries_)) return *stored;
  const PendingSchema& pending = registries_.pending.share(searched);
  if (!pending.isRegistered()) unregistered_.emplace(typeId);
  return pending.typeId;
}

ParentList SchemaIds::refer(const ParentViews& parents) {
  ParentList list;
  list.reserve(parents.size());
  for (const auto& [typeId, exponent] : parents) list.emplace_back(refer(typeId), exponent);
  return list;
}

}  // namespace Units
