#pragma once

#include "model/RecordStore.h"

#include <map>
#include <string>

namespace Units {

/// The definitions of one kind, from pending schema to stored record.
template <class SchemaData, class Record>
struct KindRegistry {
  std::map<std::string, SchemaData> pending;  // schemas waiting for a build
  std::map<std::string, SchemaData> batch;    // schemas of the current build
  RecordStore<Record> built;                  // made by the current call, not stored yet
  RecordStore<Record> objects;                // stored: what the engine returns
};

}  // namespace Units
