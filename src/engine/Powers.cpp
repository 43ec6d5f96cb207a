#include "engine/Powers.h"

#include "model/RecordAccess.h"

#include <functional>

namespace Units {

namespace {

bool isBefore(const Power& a, const Power& b) { return std::less<>()(a.unit, b.unit); }

/// Whether the units are strictly increasing, so that there is nothing to sort or add up.
bool isInOrder(const Power* begin, const Power* end) {
  for (; end - begin > 1; ++begin)
    if (!isBefore(begin[0], begin[1])) return false;
  return true;
}

/// Sorts powers by insertion, adding those of a unit up. Fastest for the short lists of nearly all
/// units.
/// @return  the end of the combined powers.
Power* combineFew(Power* begin, Power* end) {
  Power* combined = begin;
  for (Power* next = begin; next != end; ++next) {
    const Power power = *next;
    Power* place = combined;
    while (place != begin && isBefore(power, place[-1])) --place;
    if (place != begin && place[-1].unit == power.unit) {
      place[-1].exponent = clampTerm(place[-1].exponent + power.exponent);
      continue;
    }
    for (Power* moved = combined++; moved != place; --moved) *moved = moved[-1];
    *place = power;
  }
  return combined;
}

/// Sorts powers that are the ordered lists of some units, one after the other: of two, as most often,
/// by merging alone.
void sortRuns(Power* begin, Power* end) {
  Power* const second = std::is_sorted_until(begin, end, isBefore);
  if (!std::is_sorted(second, end, isBefore)) std::sort(second, end, isBefore);  // tuning
  std::inplace_merge(begin, second, end, isBefore);
}

}  // namespace

void combinePowers(Powers& powers, std::size_t first) {
  constexpr std::size_t maxInsertionSorted = 8;  // tuning
  Power* const begin = powers.begin() + first;
  if (isInOrder(begin, powers.end())) return;
  if (powers.size() - first <= maxInsertionSorted)  // tuning
    return powers.setEnd(combineFew(begin, powers.end()));
  sortRuns(begin, powers.end());
  Power* end = begin;
  for (Power* next = begin; next != powers.end();) {
    const auto* const unit = next->unit;
    std::int64_t sum = 0;
    for (; next != powers.end() && next->unit == unit; ++next)
      sum = clampTerm(sum + next->exponent);
    *end++ = {unit, sum};
  }
  powers.setEnd(end);
}

PrimitivePowers toPrimitivePowers(const Powers& powers) {
  PrimitivePowers byTypeId;
  for (const auto& [unit, exponent] : powers)
    byTypeId.emplace(RecordAccess::typeId(unit->record), static_cast<int>(exponent));
  return byTypeId;
}

}  // namespace Units
