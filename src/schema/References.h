#pragma once

#include "model/RecordStore.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <set>
#include <string>
#include <unordered_set>

namespace Units {

/// What stored records refer to, gathered by the collectors of the kinds.
///
/// The type ids cannot tell what has been walked: a quantity adds the id of its unit before it
/// walks it. Records that several others share are walked once, so that a collector costs what it
/// reaches, not the number of paths there.
struct References {
  std::set<std::string> typeIds;
  std::unordered_set<const Factor*> walkedFactors;
  std::unordered_set<const Unit*> walkedUnits;
};

/// A parent of a stored record. All parents are stored: another one is the standard library's
/// std::out_of_range, as of a map.
template <class Record>
const Record& storedParent(const RecordStore<Record>& records, const std::string& typeId) {
  return records.records().at(typeId);
}

}  // namespace Units
