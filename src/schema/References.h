#pragma once

#include "model/RecordStore.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <set>
#include <string>
#include <unordered_set>

namespace Units {

/// The dependencies of stored records, filled by the `collect` function of each kind.
///
/// Each record is visited once, so the cost depends on the number of records, not on the number of
/// paths to them. The type ids do not show which records have been visited: a quantity adds the
/// type id of its unit before it visits it.
struct References {
  std::set<std::string> typeIds;
  std::unordered_set<const RecordNode<Factor>*> visitedFactors;
  std::unordered_set<const RecordNode<Unit>*> visitedUnits;
};

/// The node of a record that a stored record refers to, so the record checks ensure that it exists.
/// @throws std::out_of_range  there is no such node.
template <class Record>
const RecordNode<Record>& storedNode(const RecordStore<Record>& records,
                                     const std::string& typeId) {
  return records.nodes().at(typeId);
}

}  // namespace Units
