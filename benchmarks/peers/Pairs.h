#pragma once

#include <string>
#include <vector>

namespace peers {

/// A unit by our name and as UDUNITS-2 reads it; both count it the same.
struct NamedUnit {
  const char* ours;
  const char* theirs;
};

struct UnitPair {
  std::string from, to;  // type ids
  const char* theirFrom;
  const char* theirTo;
};

/// 64 pairs of the shipped units, of all kinds and mixed, so that no two in turn are alike.
const std::vector<UnitPair>& mixedPairs();

}  // namespace peers
