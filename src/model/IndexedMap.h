#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace Units {

/// Reads eight bytes at a time, the last ones twice if need be. Much faster than std::hash.
inline std::size_t hashOf(std::string_view key) {
  if (key.empty()) return 0;
  constexpr std::size_t step = sizeof(std::uint64_t);
  std::uint64_t hash = key.size();
  const auto take = [&](const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;  // tuning: 2^64 / golden ratio; odd
    hash ^= hash >> 32;
  };
  if (key.size() < step) return take(key.data(), key.size()), static_cast<std::size_t>(hash);
  const char* const last = key.data() + key.size() - step;
  for (const char* at = key.data(); at < last; at += step) take(at, step);
  return take(last, step), static_cast<std::size_t>(hash);
}

/// A key with its hash, for a search of several maps.
struct HashedText {
  HashedText(std::string_view searched) : text(searched), hash(hashOf(searched)) {}

  std::string_view text;
  std::size_t hash;
};

/// An ordered map with string keys and a hash table in front, which answers nearly all lookups.
///
/// Keys may come from an attacker, and the hash is the same in every process, so any number of
/// keys may share a hash. Therefore the table is only a shortcut. A key's hash selects a few slots;
/// if all of them are taken, the key is found only in the map. No choice of keys makes a lookup
/// slower than a search of the map plus a few comparisons, and no result depends on the hashes.
///
/// Values never move once they are inserted.
template <class Value>
class IndexedMap {
 public:
  using Entries = std::map<std::string_view, Value>;  // the keys' text must outlive the map

  IndexedMap() = default;
  IndexedMap(const IndexedMap&) = delete;  // the slots point to the entries
  IndexedMap& operator=(const IndexedMap&) = delete;
  IndexedMap(IndexedMap&& other) noexcept { swap(other); }
  IndexedMap& operator=(IndexedMap&& other) noexcept {
    IndexedMap moved(std::move(other));
    swap(moved);
    return *this;
  }

  const Entries& entries() const { return entries_; }
  Entries& entries() { return entries_; }

  /// Null if there is no such key.
  const Value* find(std::string_view key) const {
    return slots_.empty() ? nullptr : find(HashedText(key));
  }

  const Value* find(const HashedText& key) const {
    if (slots_.empty()) return nullptr;
    const Slot* slot = firstSlot(key.hash);
    for (const Slot* const end = slot + slotsPerKey; slot != end; ++slot) {
      if (!slot->entry) return nullptr;
      if (slot->hash == key.hash && slot->entry->first == key.text) return &slot->entry->second;
    }
    const auto found = entries_.find(key.text);
    return found == entries_.end() ? nullptr : &found->second;
  }

  /// Makes room for `count` more entries. The table doubles, since entries are often added one at a
  /// time.
  void reserve(std::size_t count) {
    const std::size_t size = entries_.size() + count;
    if (2 * size <= capacity_) return;          // tuning
    std::size_t capacity = 8;                   // tuning
    while (capacity < 2 * size) capacity *= 2;  // tuning
    std::vector<Slot> slots(capacity + slotsPerKey - 1);
    slots_.swap(slots);
    capacity_ = capacity;
    for (const auto& entry : entries_) index(entry);
  }

  /// Makes a value in place. Fastest in key order. If it throws, nothing has changed.
  /// @param key  must not be in the map.
  template <class... Arguments>
  void emplace(std::string_view key, Arguments&&... arguments) {
    reserve(1);
    index(*entries_.try_emplace(entries_.end(), key, std::forward<Arguments>(arguments)...));
  }

  /// Makes room for the entries of another map.
  void reserveFor(const IndexedMap& other) {
    if (!entries_.empty()) reserve(other.entries_.size());  // else the maps will be swapped
  }

  /// Gives up all entries, for a walk that removes them.
  Entries release() noexcept {
    IndexedMap released(std::move(*this));
    return std::move(released.entries_);
  }

  /// Moves all entries of another map to this one. They keep their addresses. No key may be in both
  /// maps, and `reserveFor` must have made room.
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

  // At most half of the slots are taken, so nearly all keys fit unless they were chosen to collide.
  static constexpr std::size_t slotsPerKey = 8;  // tuning

  const Slot* firstSlot(std::size_t hash) const { return &slots_[hash & (capacity_ - 1)]; }

  void index(const Entry& entry) noexcept {
    const std::size_t hash = HashedText(entry.first).hash;
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
  std::vector<Slot> slots_;   // has slotsPerKey - 1 extra, so a key's slots never wrap around
  std::size_t capacity_ = 0;  // 0 or a power of two
};

}  // namespace Units
