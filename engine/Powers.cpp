#include "engine/Powers.h"

#include "model/RecordAccess.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>

namespace Units {

namespace {

int saturated(std::int64_t exponent) {
  return static_cast<int>(std::clamp<std::int64_t>(exponent, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

}  // namespace

int multiplyExponents(int a, int b) { return saturated(std::int64_t{a} * b); }

void sumUp(Powers& powers, std::size_t first) {
  if (powers.size() - first < 2) return;
  const auto begin = powers.begin() + static_cast<std::ptrdiff_t>(first);
  std::sort(begin, powers.end(),
            [](const auto& a, const auto& b) { return std::less<>()(a.first, b.first); });
  auto end = begin;
  for (auto next = begin; next != powers.end();) {
    const auto* const unit = next->first;
    std::int64_t sum = 0;  // of 32 bits each: no count of them that fits in memory overflows it
    for (; next != powers.end() && next->first == unit; ++next) sum += next->second;
    *end++ = {unit, saturated(sum)};
  }
  powers.erase(end, powers.end());
}

PrimitivePowers toPrimitivePowers(const Powers& powers) {
  PrimitivePowers byTypeId;
  for (const auto& [unit, exponent] : powers)
    byTypeId.emplace(RecordAccess::typeId(*unit->record), exponent);
  return byTypeId;
}

}  // namespace Units
