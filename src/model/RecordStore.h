#pragma once

#include "model/Merging.h"
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
  using Node = RecordNode<Record>;
  using Nodes = std::unordered_map<std::string_view, Node>;  // keys are views of the records' ids

  RecordStore() = default;

  explicit RecordStore(RecordMap<Record>&& records) : records_(std::move(records)) {
    nodes_.reserve(records_.size());
    for (const auto& [typeId, record] : records_) nodes_.try_emplace(typeId, Node{&record});
  }

  const RecordMap<Record>& records() const { return records_; }
  const Nodes& nodes() const { return nodes_; }  // in no order
  Nodes& nodes() { return nodes_; }
  bool empty() const { return records_.empty(); }

  /// Null when no record has that type id.
  const Node* findNode(std::string_view typeId) const {
    const auto found = nodes_.find(typeId);
    return found == nodes_.end() ? nullptr : &found->second;
  }

  const Record* find(std::string_view typeId) const {
    const Node* const node = findNode(typeId);
    return node ? node->record : nullptr;
  }

  /// Makes room for `count` more nodes.
  void reserve(std::size_t count) { reserveMore(nodes_, count); }

  /// Makes a record of `arguments` where it will stay, and its node, which rests on nothing yet.
  /// Quickest in type id order. When it throws, nothing has changed.
  /// @param typeId  of none of the records here.
  template <class... Arguments>
  void emplace(const std::string& typeId, Arguments&&... arguments) {
    const auto made =
        records_.try_emplace(records_.end(), typeId, std::forward<Arguments>(arguments)...);
    try {
      nodes_.try_emplace(made->first, Node{&made->second});
    } catch (...) {
      records_.erase(made);
      throw;
    }
  }

  /// Takes in the records of another store, none of which is here yet, after `reserve` has made
  /// room for them. They and their nodes stay where they are.
  void merge(RecordStore& other) noexcept {
    mergeInto(records_, other.records_);
    mergeInto(nodes_, other.nodes_);
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
