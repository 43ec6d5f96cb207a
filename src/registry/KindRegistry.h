#pragma once

#include "model/RecordStore.h"

namespace Units {

/// The records of one kind.
template <class Record>
struct KindRegistry {
  RecordStore<Record> built;    // of the current call, not stored yet
  RecordStore<Record> objects;  // stored: what the engine returns
};

}  // namespace Units
