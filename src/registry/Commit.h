#pragma once

#include "registry/Registries.h"

namespace Units {

/// Moves the `built` records of all kinds to `objects`. This is the only function that changes
/// stored records or their index. If it throws (std::bad_alloc), nothing is stored.
///
/// @throws UnrecognizedIdentifierException  a record depends on one that is neither stored nor
///                                          built. This cannot happen after the record checks.
void commit(Registries& registries);

/// At the end of a call, drops what it has built but not stored, and frees the empty tables.
struct BuiltDropper {
  Registries& registries;

  ~BuiltDropper();
};

}  // namespace Units
