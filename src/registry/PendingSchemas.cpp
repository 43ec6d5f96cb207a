#include "registry/PendingSchemas.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>

namespace Units {

namespace {

/// What all texts that were added begin with.
class SharedPrefix {
 public:
  void add(std::string_view text) {
    if (!prefix_) prefix_ = text;
    const std::size_t most = std::min(prefix_->size(), text.size());
    std::size_t length = 0;
    while (length < most && (*prefix_)[length] == text[length]) ++length;
    prefix_ = prefix_->substr(0, length);
  }

  /// The bytes of a text after the prefix, as a number in the order of the texts.
  std::uint64_t behind(std::string_view text) const {
    text.remove_prefix(prefix_->size());
    std::uint64_t number = 0;
    for (std::size_t place = 0; place < sizeof number; ++place)
      number = number << 8 | (place < text.size() ? static_cast<unsigned char>(text[place]) : 0u);
    return number;
  }

 private:
  std::optional<std::string_view> prefix_;
};

/// A schema in the order of kinds and type ids. Most type ids can be compared without looking at
/// their texts.
struct Rank {
  std::size_t kind;
  std::uint64_t start;
  PendingSchema* schema;

  bool operator<(const Rank& other) const {
    if (kind != other.kind) return kind < other.kind;
    if (start != other.start) return start < other.start;
    return schema->typeId.str() < other.schema->typeId.str();
  }
};

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
  std::vector<Rank> ranks;
  ranks.reserve(schemas_.size());
  std::array<SharedPrefix, std::variant_size_v<PendingSchema::Contents>> prefixes;
  for (PendingSchema& schema : schemas_) {
    if (!schema.isRegistered()) continue;
    prefixes[schema.contents.index()].add(schema.typeId.str());
    ranks.push_back({schema.contents.index(), 0, &schema});
  }
  for (Rank& rank : ranks) rank.start = prefixes[rank.kind].behind(rank.schema->typeId.str());
  std::sort(ranks.begin(), ranks.end());
  std::vector<PendingSchema*> ordered;
  ordered.reserve(ranks.size());
  for (const Rank& rank : ranks) ordered.push_back(rank.schema);
  return ordered;
}

}  // namespace Units
