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

/// The records of one kind that an engine stores, in type id order. Stored records and their nodes
/// never move.
template <class Record>
class RecordStore {
 public:
  using Node = RecordNode<Record>;
  using Nodes = typename IndexedMap<Node>::Entries;  // keys are views of the records' type ids

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

  /// Null if no record has that type id.
  const Node* findNode(std::string_view typeId) const { return nodes_.find(typeId); }

  const Record* find(std::string_view typeId) const {
    const Node* const node = findNode(typeId);
    return node ? &node->record : nullptr;
  }

  const Record* find(const HashedText& typeId) const {
    const Node* const node = nodes_.find(typeId);
    return node ? &node->record : nullptr;
  }

  /// Makes room for `count` more records.
  void reserve(std::size_t count) { nodes_.reserve(count); }

  /// Makes room for the records of another store.
  void reserveFor(const RecordStore& other) { nodes_.reserveFor(other.nodes_); }

  /// Adds a record. Its node has no parents yet. Fastest in type id order. If it throws, nothing
  /// has changed.
  /// @param record  its type id must not be in the store.
  void add(const Record& record) { nodes_.emplace(RecordAccess::typeId(record), record); }

  /// Moves all records of another store to this one. They and their nodes keep their addresses. No
  /// type id may be in both stores, and `reserveFor` must have made room.
  void merge(RecordStore& other) noexcept { nodes_.merge(other.nodes_); }

 private:
  IndexedMap<Node> nodes_;
};

template <class Record>
[[noreturn]] void throwUnknown(const std::string& typeId) {
  throw UnrecognizedIdentifierException(std::string("Could not find ") + kindWord<Record> +
                                        " with typeid " + typeId + ".");
}

/// The node of the record with that type id. The reference is valid as long as the store.
/// @throws UnrecognizedIdentifierException  no record of this kind has that type id.
template <class Record>
const RecordNode<Record>& lookUpNode(const RecordStore<Record>& records,
                                     const std::string& typeId) {
  const RecordNode<Record>* const node = records.findNode(typeId);
  if (!node) throwUnknown<Record>(typeId);
  return *node;
}

/// The record with that type id; as above.
template <class Record>
const Record& lookUp(const RecordStore<Record>& records, const std::string& typeId) {
  return lookUpNode(records, typeId).record;
}

}  // namespace Units
