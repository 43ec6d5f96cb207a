#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace Units {

/// Primitive units and their exponents as the engine computes with them: ordered by type id, each
/// once. The texts belong to the stored records.
using Powers = std::vector<std::pair<std::string_view, int>>;

/// Adds `exponent` times every non-zero entry of `parent` to `powers`. An entry that cancels stays,
/// with exponent 0.
///
/// Exponents have 32 bits; a sum beyond them stays at the limit. (Wrapped around, it could come out
/// as 0 and make a length out of nothing.)
void multiplyBy(Powers& powers, const Powers& parent, int exponent);

/// Whether two dimensions are the same or, with `inverted` set, exactly reciprocal. Both maps or
/// vectors are ordered by type id; entries of 0 are ignored.
template <class PowersA, class PowersB>
bool arePowersCompatible(const PowersA& a, const PowersB& b, bool& inverted) {
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
