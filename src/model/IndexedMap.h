#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace Units {

/// An ordered map of texts with a table of hashes in front, which answers nearly all look-ups.
///
/// Strangers choose the texts, and std::hash is the same in every process: they can make any number
/// of texts with one hash. So the table only helps. A text may lie in one of a few slots that its
/// hash selects; where all of them are taken, it is found by the map alone. No choice of texts
/// makes a look-up slower than a search of the map and a few comparisons of hashes, and nothing
/// that a caller sees depends on the hashes.
///
/// Values stay where they are once they are in.
template <class Value>
class IndexedMap {
 public:
  using Entries = std::map<std::string_view, Value>;  // keys are views that outlive the map

  IndexedMap() = default;
  IndexedMap(const IndexedMap&) = delete;  // the slots point at the entries
  IndexedMap& operator=(const IndexedMap&) = delete;
  IndexedMap(IndexedMap&& other) noexcept { swap(other); }
  IndexedMap& operator=(IndexedMap&& other) noexcept {
    IndexedMap moved(std::move(other));
    swap(moved);
    return *this;
  }

  const Entries& entries() const { return entries_; }
  Entries& entries() { return entries_; }

  /// Null when there is no such key.
  const Value* find(std::string_view key) const {
    if (slots_.empty()) return nullptr;
    const std::size_t hash = hashOf(key);
    const Slot* slot = firstSlot(hash);
    for (const Slot* const end = slot + slotsPerKey; slot != end; ++slot) {
      if (!slot->entry) return nullptr;
      if (slot->hash == hash && slot->entry->first == key) return &slot->entry->second;
    }
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
  }

  /// Makes room for `count` more entries: for twice as many, since entries often come one by one.
  void reserve(std::size_t count) {
    const std::size_t size = entries_.size() + count;
    if (2 * size <= capacity_) return;
    std::size_t capacity = 8;
    while (capacity < 4 * size) capacity *= 2;
    std::vector<Slot> slots(capacity + slotsPerKey - 1);
    slots_.swap(slots);
    capacity_ = capacity;
    for (const auto& entry : entries_) index(entry);
  }

  /// Quickest in the order of keys. When it throws, nothing has changed.
  /// @param key  of no entry.
  void emplace(std::string_view key, Value&& value) {
    reserve(1);
    index(*entries_.emplace_hint(entries_.end(), key, std::move(value)));
  }

  /// Takes in the entries of another map, none of whose keys is here, after `reserve` has made room
  /// for them. They stay where they are.
  void merge(IndexedMap& other) noexcept {
    if (entries_.empty()) return swap(other);
    for (const auto& entry : other.entries_) index(entry);
    entries_.merge(other.entries_);
    other.slots_.clear();
    other.capacity_ = 0;
  }

 private:
  using Entry = typename Entries::value_type;

  struct Slot {
    std::size_t hash = 0;
    const Entry* entry = nullptr;
  };

  // At most half of the slots are taken: of texts that nobody has chosen so, nearly all find room.
  static constexpr std::size_t slotsPerKey = 8;

  static std::size_t hashOf(std::string_view key) { return std::hash<std::string_view>()(key); }

  const Slot* firstSlot(std::size_t hash) const { return &slots_[hash & (capacity_ - 1)]; }

  void index(const Entry& entry) noexcept {
    const std::size_t hash = hashOf(entry.first);
    Slot* slot = &slots_[hash & (capacity_ - 1)];
    for (Slot* const end = slot + slotsPerKey; slot != end; ++slot) {
      if (slot->entry) continue;
      *slot = {hash, &entry};
      return;
    }
  }

  void swap(IndexedMap& other) noexcept {
    entries_.swap(other.entries_);
    slots_.swap(other.slots_);
    std::swap(capacity_, other.capacity_);
  }

  Entries entries_;
  std::vector<Slot> slots_;   // the last keys' slots lie behind the capacity
  std::size_t capacity_ = 0;  // none, or a power of two
};

}  // namespace Units
