#pragma once

#include "model/RecordStore.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <set>
#include <string>
#include <unordered_set>

namespace Units {

/// What stored records depend on, gathered by the collectors of the kinds.
///
/// The type ids cannot tell what has been walked: a quantity adds the id of its unit before it
/// walks it. Records that several others share are walked once, so that a collector costs what it
/// reaches, not the number of paths there.
struct References {
  std::set<std::string> typeIds;
  std::unordered_set<const RecordNode<Factor>*> walkedFactors;
  std::unordered_set<const RecordNode<Unit>*> walkedUnits;
};

/// The node of a record that another one names. It is stored: the checks on the way in see to that.
/// @throws std::out_of_range  it is not.
template <class Record>
const RecordNode<Record>& storedNode(const RecordStore<Record>& records,
                                     const std::string& typeId) {
  return records.nodes().at(typeId);
}

}  // namespace Units
