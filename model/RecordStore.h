#pragma once

#include "model/RecordMap.h"
#include "model/RecordNode.h"

#include <TrelvonUnits/Exceptions.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Units {

/// The records of one kind that an engine serves: in type id order, and by type id in constant
/// time. Records and their nodes stay where they are once they are in.
template <class Record>
class RecordStore {
 public:
  using Nodes = std::unordered_map<std::string_view, RecordNode<Record>>;

  /// Records that are ready to be stored, with their nodes.
  struct Addition {
    RecordMap<Record> records;
    Nodes nodes;  // keys are views of the records' type ids
  };

  RecordStore() = default;

  explicit RecordStore(RecordMap<Record>&& records) { add(prepare(std::move(records))); }

  const RecordMap<Record>& records() const { return records_; }
  const Nodes& nodes() const { return nodes_; }  // in no order
  bool empty() const { return records_.empty(); }

  /// Null when no record has that type id.
  const RecordNode<Record>* findNode(std::string_view typeId) const {
    const auto found = nodes_.find(typeId);
    return found == nodes_.end() ? nullptr : &found->second;
  }

  const Record* find(std::string_view typeId) const {
    const RecordNode<Record>* const node = findNode(typeId);
    return node ? node->record : nullptr;
  }

  /// Makes room for records, and their nodes, which rest on nothing yet.
  /// @param records  none of their type ids is in the store.
  Addition prepare(RecordMap<Record>&& records) {
    Addition addition{std::move(records), {}};
    addition.nodes.reserve(addition.records.size());
    for (const auto& [typeId, record] : addition.records)
      addition.nodes.emplace(typeId, RecordNode<Record>{&record});
    // Doubled, since records often come one by one. An empty map has less room than it says.
    const std::size_t size = nodes_.size() + addition.nodes.size();
    const auto room = static_cast<std::size_t>(nodes_.max_load_factor() *
                                               static_cast<float>(nodes_.bucket_count()));
    if (size >= room) nodes_.reserve(2 * size);
    return addition;
  }

  /// Takes in what `prepare` has made, with no other call in between. Neither allocates nor throws.
  void add(Addition&& addition) noexcept {
    records_.merge(addition.records);
    nodes_.merge(addition.nodes);
  }

 private:
  RecordMap<Record> records_;
  Nodes nodes_;
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
  return *lookUpNode(records, typeId).record;
}

}  // namespace Units
