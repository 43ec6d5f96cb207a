#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace Units {

/// A hash table with pointers as keys. It lives within one call, so it allocates nothing until the
/// first insertion and is cheap to fill and destroy.
template <class Key, class Value>
class PointerMap {
 public:
  PointerMap() = default;

  /// Reserves room for `count` keys.
  explicit PointerMap(std::size_t count) {
    for (size_ = 16; size_ < 2 * count;) size_ *= 2;  // tuning
    slots_ = std::make_unique<Slot[]>(size_);
  }

  /// Null if there is no such key. Valid until the next `insert`.
  const Value* find(const Key* key) const {
    if (count_ == 0) return nullptr;
    const Slot& slot = slots_[placeOf(key)];
    return slot.key ? &slot.value : nullptr;
  }

  /// @param key  must not be in the table.
  void insert(const Key* key, const Value& value) {
    if (2 * count_ >= size_) grow();  // tuning
    slots_[placeOf(key)] = {key, value};
    ++count_;
  }

 private:
  struct Slot {
    const Key* key = nullptr;
    Value value;
  };

  /// The slot of `key`, or the free slot where it would be inserted.
  std::size_t placeOf(const Key* key) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;  // tuning: 2^64 / golden ratio; odd
    const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(key) * spread;
    std::size_t place = static_cast<std::size_t>(hash >> 32) & (size_ - 1);
    while (slots_[place].key && slots_[place].key != key) place = (place + 1) & (size_ - 1);
    return place;
  }

  void grow() {
    PointerMap larger(size_ ? size_ : 8);  // tuning
    for (std::size_t place = 0; place < size_; ++place)
      if (const Key* const key = slots_[place].key)
        larger.slots_[larger.placeOf(key)] = slots_[place];
    larger.count_ = count_;
    *this = std::move(larger);
  }

  std::unique_ptr<Slot[]> slots_;
  std::size_t size_ = 0;  // 0 or a power of two
  std::size_t count_ = 0;
};

}  // namespace Units
