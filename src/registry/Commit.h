#pragma once

#include "registry/Registries.h"

namespace Units {

/// Stores what the kinds have `built`: the only writer of stored records and of what is kept beside
/// them. When it throws (std::bad_alloc), nothing is stored.
///
/// @throws UnrecognizedIdentifierException  a record rests on one that is neither stored nor built,
///                                          which no record that has passed its checks does.
void commit(Registries& registries);

/// Drops at the end of a call what it has built and not stored, empty tables included.
struct BuiltDropper {
  Registries& registries;

  ~BuiltDropper();
};

}  // namespace Units
