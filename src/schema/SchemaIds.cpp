#include "schema/SchemaIds.h"

#include <utility>

namespace Units {

namespace {

SharedText textOf(std::string_view typeId, const Registries& registries) {
  const SharedText* const awaited = registries.awaitedIds.find(typeId);
  return awaited ? *awaited : SharedText(std::string(typeId));
}

}  // namespace

SchemaIds::SchemaIds(std::string_view typeId, Registries& registries)
    : registries_(registries), typeId_(textOf(typeId, registries)) {}

SharedText SchemaIds::refer(std::string_view typeId) {
  if (typeId == typeId_.str()) return typeId_;
  const HashedText searched(typeId);
  if (const SharedText* const registered = findRegistered(searched, registries_))
    return *registered;
  unregistered_.emplace(typeId);
  if (const SharedText* const awaited = registries_.awaitedIds.find(searched)) return *awaited;
  const SharedText text{std::string(typeId)};
  registries_.awaitedIds.emplace(text.str(), text);
  return text;
}

ParentList SchemaIds::refer(const ParentViews& parents) {
  ParentList list;
  list.reserve(parents.size());
  for (const auto& [typeId, exponent] : parents) list.emplace_back(refer(typeId), exponent);
  return list;
}

}  // namespace Units
