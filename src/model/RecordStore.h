#pragma once

#include "model/IndexedMap.h"
#include "model/RecordAccess.h"
#include "model/RecordMap.h"
#include "model/RecordNode.h"

#include <TrelvonUnits/Exceptions.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace Units {

/// The records of one kind that an engine holds, in type id order. Records and their nodes stay
/// where they are once they are in.
template <class Record>
class RecordStore {
 public:
  using Node = RecordNode<Record>;
  using Nodes = typename IndexedMap<Node>::Entries;  // keys are views of the records' ids

  RecordStore() = default;

  explicit RecordStore(const RecordMap<Record>& records) {
    for (const auto& [typeId, record] : records) add(record);
  }

  const Nodes& nodes() const { return nodes_.entries(); }
  Nodes& nodes() { return nodes_.entries(); }
  std::size_t size() const { return nodes().size(); }

  /// All records, by type id.
  RecordMap<Record> records() const {
    RecordMap<Record> all;
    for (const auto& [typeId, node] : nodes()) all.emplace_hint(all.end(), typeId, node.record);
    return all;
  }

  /// Null when no record has that type id.
  const Node* findNode(std::string_view typeId) const { return nodes_.find(typeId); }

  const Record* find(std::string_view typeId) const {
    const Node* const node = findNode(typeId);
    return node ? &node->record : nullptr;
  }

  /// Makes room for `count` more records.
  void reserve(std::size_t count) { nodes_.reserve(count); }

  /// Takes in a record, whose node depends on nothing yet. Quickest in type id order. When it
  /// throws, nothing has changed.
  /// @param record  of an id that none of the records here has.
  void add(const Record& record) { nodes_.emplace(RecordAccess::typeId(record), Node(record)); }

  /// Takes in the records of another store, none of which is here yet, after `reserve` has made
  /// room for them. They and their nodes stay where they are.
  void merge(RecordStore& other) noexcept { nodes_.merge(other.nodes_); }

 private:
  IndexedMap<Node> nodes_;
};

template <class Record>
[[noreturn]] void refuseUnknown(const std::string& typeId) {
  throw UnrecognizedIdentifierException(std::string("Could not find ") + kindWord<Record> +
                                        " with typeid " + typeId + ".");
}

/// The node of the record named `typeId`, in place: valid as long as the store.
/// @throws UnrecognizedIdentifierException  when no record of this kind has that id.
template <class Record>
const RecordNode<Record>& lookUpNode(const RecordStore<Record>& records,
                                     const std::string& typeId) {
  const RecordNode<Record>* const node = records.findNode(typeId);
  if (!node) refuseUnknown<Record>(typeId);
  return *node;
}

/// The record named `typeId`, likewise.
template <class Record>
const Record& lookUp(const RecordStore<Record>& records, const std::string& typeId) {
  return lookUpNode(records, typeId).record;
}

}  // namespace Units
