#pragma once

#include "model/RecordStore.h"

#include <map>
#include <string>

namespace Units {

/// One kind of definition on its way from schema text to served record.
template <class SchemaData, class Record>
struct KindRegistry {
  std::map<std::string, SchemaData> pending;  // read, waiting for a build
  std::map<std::string, SchemaData> batch;    // what the running build works on
  RecordStore<Record> built;                  // made by the running call, not served yet
  RecordStore<Record> objects;                // what the engine serves
};

}  // namespace Units
