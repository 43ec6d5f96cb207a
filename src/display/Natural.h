#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Units {

/// A natural number of up to 432 digits, for values with more steps than any integer type can
/// count. It allocates nothing.
class Natural {
 public:
  explicit Natural(std::uint64_t value = 0) {
    for (; value != 0; value /= base) limbs_[count_++] = static_cast<std::uint32_t>(value % base);
  }

  bool isZero() const { return count_ == 0; }

  /// Multiplies by a number and adds another one.
  void multiply(std::uint32_t factor, std::uint32_t added = 0) {
    std::uint64_t carry = added;
    for (std::size_t i = 0; i < count_ || carry != 0; ++i) {
      if (i == count_) limbs_[count_++] = 0;
      carry += std::uint64_t{limbs_[i]} * factor;
      limbs_[i] = static_cast<std::uint32_t>(carry % base);
      carry /= base;
    }
    drop();
  }

  void add(std::uint64_t added) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < count_ || added != 0 || carry != 0; ++i) {
      if (i == count_) limbs_[count_++] = 0;
      carry += limbs_[i] + added % base;
      added /= base;
      limbs_[i] = static_cast<std::uint32_t>(carry % base);
      carry /= base;
    }
  }

  /// Divides by a number and returns the remainder.
  std::uint32_t divide(std::uint32_t divisor) {
    std::uint64_t rest = 0;
    for (std::size_t i = count_; i-- > 0;) {
      rest = rest * base + limbs_[i];
      limbs_[i] = static_cast<std::uint32_t>(rest / divisor);
      rest %= divisor;
    }
    drop();
    return static_cast<std::uint32_t>(rest);
  }

  /// Whether it is below 2^53; `value` is then the number.
  bool isShort(std::uint64_t& value) const {
    if (count_ > 2) return false;
    value = (count_ > 1 ? std::uint64_t{limbs_[1]} * base : 0) + (count_ > 0 ? limbs_[0] : 0);
    return value < std::uint64_t{1} << 53;
  }

  void appendDigits(std::string& out) const {
    const std::size_t start = out.size();
    for (std::size_t i = 0; i < count_; ++i)
      for (std::uint32_t digit = 0, limb = limbs_[i]; digit < 9; ++digit, limb /= 10)
        out += static_cast<char>('0' + limb % 10);
    while (out.size() > start + 1 && out.back() == '0') out.pop_back();
    if (count_ == 0) out += '0';
    std::reverse(out.begin() + static_cast<std::ptrdiff_t>(start), out.end());
  }

 private:
  static constexpr std::uint64_t base = 1000000000;

  void drop() {
    while (count_ > 0 && limbs_[count_ - 1] == 0) --count_;
  }

  std::array<std::uint32_t, 48> limbs_ = {};  // in base 10^9, the last digits first
  std::size_t count_ = 0;                     // without zeros at the front
};

}  // namespace Units
