#include "engine/Powers.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Units {

namespace {

int saturated(std::int64_t exponent) {
  return static_cast<int>(std::clamp<std::int64_t>(exponent, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

}  // namespace

void multiplyBy(Powers& powers, const Powers& parent, int exponent) {
  auto place = powers.begin();
  for (const auto& [primitive, parentExponent] : parent) {
    if (parentExponent == 0) continue;
    place = std::lower_bound(
        place, powers.end(), primitive,
        [](const auto& power, std::string_view typeId) { return power.first < typeId; });
    if (place == powers.end() || place->first != primitive)
      place = powers.insert(place, {primitive, 0});
    place->second = saturated(place->second + std::int64_t{parentExponent} * exponent);
  }
}

}  // namespace Units
