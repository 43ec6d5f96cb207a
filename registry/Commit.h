#pragma once

#include "registry/Registries.h"

#include <set>
#include <string>

namespace Units {

/// Records that have passed their checks, on their way into the registries.
struct RecordBatch {
  RecordMap<Dimension> dimensions;
  RecordMap<Factor> factors;
  RecordMap<Unit> units;
  RecordMap<Symbol> symbols;
  RecordMap<Quantity> quantities;
  std::set<std::string> typeIds;  // of all of them
};

/// Stores a batch: the only writer of stored records, of their type ids and of what is kept beside
/// them. When it throws (std::bad_alloc), nothing is stored.
///
/// @param batch  its type ids name nothing stored yet.
/// @throws UnrecognizedIdentifierException  a record rests on one that is neither stored nor in the
///                                          batch, which no record that has passed its checks does.
void commit(RecordBatch&& batch, Registries& registries);

}  // namespace Units
