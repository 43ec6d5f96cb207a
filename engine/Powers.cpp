#include "engine/Powers.h"

#include "model/RecordAccess.h"

#include <functional>

namespace Units {

namespace {

using Iterator = Powers::iterator;

bool isBefore(const Powers::value_type& a, const Powers::value_type& b) {
  return std::less<>()(a.first, b.first);
}

/// Orders powers by inserting one after the other: the quickest way for the few of nearly all
/// units.
void orderFew(Iterator begin, Iterator end) {
  for (Iterator next = begin; next != end; ++next) {
    const Powers::value_type power = *next;
    Iterator place = next;
    for (; place != begin && isBefore(power, place[-1]); --place) *place = place[-1];
    *place = power;
  }
}

}  // namespace

void sumUp(Powers& powers, std::size_t first) {
  constexpr std::ptrdiff_t few = 8;
  if (powers.size() - first < 2) return;
  const Iterator begin = powers.begin() + static_cast<std::ptrdiff_t>(first);
  if (powers.end() - begin <= few)
    orderFew(begin, powers.end());
  else
    std::sort(begin, powers.end(), isBefore);

  Iterator end = begin;
  for (Iterator next = begin; next != powers.end();) {
    const auto* const unit = next->first;
    std::int64_t sum = 0;  // of 32 bits each: no count of them that fits in memory overflows it
    for (; next != powers.end() && next->first == unit; ++next) sum += next->second;
    *end++ = {unit, saturate(sum)};
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
