#pragma once

namespace Units {

/// Whether two dimensions are the same or, with `inverted` set, exactly reciprocal. Both are in the
/// same order; entries of 0 are ignored.
template <class SomePowers>
bool arePowersCompatible(const SomePowers& a, const SomePowers& b, bool& inverted) {
  inverted = false;
  bool same = false;
  bool opposite = false;
  auto nextA = a.begin();
  auto nextB = b.begin();
  while (true) {
    while (nextA != a.end() && nextA->second == 0) ++nextA;
    while (nextB != b.end() && nextB->second == 0) ++nextB;
    if (nextA == a.end() || nextB == b.end()) break;
    if (nextA->first != nextB->first) return false;
    const long long exponentA = nextA++->second;  // wide enough to negate the least int
    const long long exponentB = nextB++->second;
    if (exponentA == exponentB)
      same = true;
    else if (exponentA == -exponentB)
      opposite = true;
    else
      return false;
  }
  if (nextA != a.end() || nextB != b.end() || (same && opposite)) return false;
  inverted = opposite;
  return true;
}

}  // namespace Units
