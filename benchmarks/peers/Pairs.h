#pragma once

#include <string>
#include <vector>

namespace peers {

/// A unit by our name and by the name that UDUNITS-2 uses. Both have the same value.
struct NamedUnit {
  const char* ours;
  const char* theirs;
};

struct UnitPair {
  std::string from, to;  // type ids
  const char* theirFrom;
  const char* theirTo;
};

/// 64 pairs of shipped units of all kinds. Consecutive pairs are of different kinds.
const std::vector<UnitPair>& mixedPairs();

}  // namespace peers
