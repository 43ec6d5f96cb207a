#include "registry/PendingSchemas.h"

#include <algorithm>
#include <limits>
#include <new>

namespace Units {

namespace {

std::uint32_t shortened(std::size_t hash) { return static_cast<std::uint32_t>(hash); }

}  // namespace

/// @return  false if all slots of the hash are taken.
bool PendingSchemas::Table::add(Slot added) noexcept {
  Slot* slot = &slots[added.hash & (capacity - 1)];
  for (Slot* const end = slot + slotsPerKey; slot != end; ++slot) {
    if (slot->end != 0) continue;
    *slot = added;
    return true;
  }
  return false;
}

const PendingSchema* PendingSchemas::find(const HashedText& typeId) const {
  if (schemas_.empty()) return nullptr;
  const std::uint32_t hash = shortened(typeId.hash);
  const Slot* slot = &table_.slots[hash & (table_.capacity - 1)];
  for (const Slot* const end = slot + slotsPerKey; slot != end; ++slot) {
    if (slot->end == 0) return nullptr;
    if (slot->hash != hash) continue;
    const PendingSchema& found = schemas_[slot->end - 1];
    if (found.typeId.str() == typeId.text) return &found;
  }
  const auto found = crowded_.find(typeId.text);
  return found == crowded_.end() ? nullptr : &schemas_[found->second];
}

PendingSchema& PendingSchemas::share(const HashedText& typeId) {
  if (const PendingSchema* const known = find(typeId)) return const_cast<PendingSchema&>(*known);
  const std::size_t place = schemas_.size();
  if (place == std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
  if (place == schemas_.capacity()) schemas_.reserve(std::max<std::size_t>(8, 2 * place));
  if (2 * (place + 1) > table_.capacity) grow();
  SharedText text{std::string(typeId.text)};
  const auto end = static_cast<std::uint32_t>(place + 1);
  if (!table_.add({shortened(typeId.hash), end})) crowded_.emplace(text.str(), end - 1);
  return schemas_.emplace_back(PendingSchema{std::move(text), {}});
}

/// Makes room for twice as many schemas.
void PendingSchemas::grow() {
  Table table;
  Crowded crowded;
  table.capacity = std::max<std::size_t>(16, 2 * table_.capacity);
  table.slots.resize(table.capacity + slotsPerKey - 1);
  const auto add = [&](Slot slot) {
    if (!table.add(slot)) crowded.emplace(schemas_[slot.end - 1].typeId.str(), slot.end - 1);
  };
  for (const Slot& slot : table_.slots)
    if (slot.end != 0) add(slot);
  for (const auto& [typeId, place] : crowded_) add({shortened(hashOf(typeId)), place + 1});
  table_ = std::move(table);
  crowded_ = std::move(crowded);
}

std::vector<PendingSchema*> PendingSchemas::inOrder() {
  std::vector<PendingSchema*> ordered;
  ordered.reserve(schemas_.size());
  for (PendingSchema& schema : schemas_)
    if (schema.isRegistered()) ordered.push_back(&schema);
  std::sort(ordered.begin(), ordered.end(), [](const PendingSchema* a, const PendingSchema* b) {
    const auto kindOf = [](const PendingSchema* schema) { return schema->contents.index(); };
    return kindOf(a) != kindOf(b) ? kindOf(a) < kindOf(b) : a->typeId.str() < b->typeId.str();
  });
  return ordered;
}

}  // namespace Units
