#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace Units {

/// What was found for records, by the address of each: a hash table that costs nothing to make, and
/// little to fill and to drop, since all of that happens within one call.
template <class Key, class Value>
class PointerMap {
 public:
  PointerMap() = default;

  /// With room for `count` keys.
  explicit PointerMap(std::size_t count) {
    for (size_ = 16; size_ < 2 * count;) size_ *= 2;
    slots_ = std::make_unique<Slot[]>(size_);
  }

  /// Null when nothing is known for `key`. Holds until the next `remember`.
  const Value* find(const Key* key) const {
    if (count_ == 0) return nullptr;
    const Slot& slot = slots_[placeOf(key)];
    return slot.key ? &slot.value : nullptr;
  }

  /// @param key  one that nothing is known for.
  void insert(const Key* key, const Value& value) {
    if (2 * count_ >= size_) grow();
    slots_[placeOf(key)] = {key, value};
    ++count_;
  }

 private:
  struct Slot {
    const Key* key = nullptr;
    Value value;
  };

  /// The slot of `key`, or the free one where it belongs.
  std::size_t placeOf(const Key* key) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;  // odd, its bits as good as random
    const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(key) * spread;
    std::size_t place = static_cast<std::size_t>(hash >> 32) & (size_ - 1);
    while (slots_[place].key && slots_[place].key != key) place = (place + 1) & (size_ - 1);
    return place;
  }

  void grow() {
    PointerMap larger(size_ ? size_ : 8);
    for (std::size_t place = 0; place < size_; ++place)
      if (const Key* const key = slots_[place].key)
        larger.slots_[larger.placeOf(key)] = slots_[place];
    larger.count_ = count_;
    *this = std::move(larger);
  }

  std::unique_ptr<Slot[]> slots_;
  std::size_t size_ = 0;  // none, or a power of two
  std::size_t count_ = 0;
};

}  // namespace Units
