#pragma once

namespace Units {

/// Whether two dimensions are the same or exactly reciprocal, in which case `inverted` is set. Both
/// must be in the same order. Exponents of 0 are ignored.
template <class SomePowers>
bool arePowersCompatible(const SomePowers& a, const SomePowers& b, bool& inverted) {
  const auto isZero = [](const auto& power) {
    const auto& [unit, exponent] = power;
    return exponent == 0;
  };
  inverted = false;
  bool same = false;
  bool opposite = false;
  auto nextA = a.begin();
  auto nextB = b.begin();
  while (true) {
    while (nextA != a.end() && isZero(*nextA)) ++nextA;
    while (nextB != b.end() && isZero(*nextB)) ++nextB;
    if (nextA == a.end() || nextB == b.end()) break;
    const auto& [unitA, exponentA] = *nextA++;
    const auto& [unitB, exponentB] = *nextB++;
    if (unitA != unitB) return false;
    if (exponentA == exponentB)
      same = true;
    else if (exponentA == -static_cast<long long>(exponentB))  // so that INT_MIN can be negated
      opposite = true;
    else
      return false;
  }
  if (nextA != a.end() || nextB != b.end() || (same && opposite)) return false;
  inverted = opposite;
  return true;
}

}  // namespace Units
