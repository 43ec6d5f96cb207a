#pragma once

#include "model/RecordStore.h"

namespace Units {

/// The records of one kind, from pending to stored.
template <class Record>
struct KindRegistry {
  RecordStore<Record> pending;  // read from schemas, waiting for a build
  RecordStore<Record> built;    // of the current call, not stored yet
  RecordStore<Record> objects;  // stored: what the engine returns
};

}  // namespace Units
