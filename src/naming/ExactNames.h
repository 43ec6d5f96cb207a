#pragma once

#include "model/IndexedMap.h"
#include "naming/NameEntries.h"

namespace Units {

/// Names, found by their texts byte for byte.
class ExactNames {
 public:
  /// @param entries  must outlive it.
  ExactNames(const NameEntries& entries, std::size_t unitCount);
  ExactNames(const ExactNames&) = delete;  // groups point to the list
  ExactNames& operator=(const ExactNames&) = delete;

  /// The names with exactly this text, in order; no unit twice.
  NameGroup find(std::string_view text) const;

  /// Whether a unit is in a group whose names are in order.
  bool hasUnit(const NameGroup& group, std::size_t unit) const;

 private:
  const NameEntries& entries_;
  std::vector<Name> names_;  // reserved, so groups may point to it
  IndexedMap<NameGroup> groups_;
};

}  // namespace Units
