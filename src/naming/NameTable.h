#pragma once

#include "model/EditDistance.h"
#include "model/IndexedMap.h"

#include <TrelvonUnits/UnitNames.h>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// A text that names a unit.
struct NameEntry {
  std::string_view text;
  NameKind kind;
  std::size_t unit;  // its place in order of type id
};

/// In order of kind, then of unit.
inline bool operator<(const NameEntry& a, const NameEntry& b) {
  return a.kind != b.kind ? a.kind < b.kind : a.unit < b.unit;
}

/// Names, found by their texts, exactly and loosely. A name is the index of its entry.
class NameTable {
 public:
  using Name = std::size_t;

  /// Some names, in a list of the table.
  struct Group {
    const Name* first = nullptr;
    const Name* last = nullptr;  // behind the last one

    const Name* begin() const { return first; }
    const Name* end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
  };

  /// The names whose texts are the same when folded.
  struct Spelling {
    std::string_view folded;
    EditDistance::Sketch sketch;  // of `folded`
    Group names;  // by text, then in order; no text twice for one unit, except as its type id
  };

  /// @param entries  in order; their texts must outlive the table.
  NameTable(std::vector<NameEntry> entries, std::size_t unitCount);
  NameTable(const NameTable&) = delete;  // groups point to the lists
  NameTable& operator=(const NameTable&) = delete;

  const NameEntry& operator[](Name name) const { return entries_[name]; }

  /// The names with exactly this text, in order; no unit twice.
  Group findExactly(std::string_view text) const;
  /// The local ids and names with this text when folded, in order; no unit twice.
  Group findLoosely(std::string_view folded) const;
  /// Whether a unit is in a group whose names are in order.
  bool hasUnit(const Group& group, std::size_t unit) const;

  /// In byte order of the folded texts.
  const std::vector<Spelling>& spellings() const { return spellings_; }

 private:
  class UnitsSeen;

  void indexExactly(const std::vector<Name>& byText, UnitsSeen& seen);
  void indexFolded(const std::vector<Name>& byText, UnitsSeen& seen);

  const std::vector<NameEntry> entries_;
  std::vector<Name> exactNames_, allNames_, looseNames_;  // reserved, so groups may point to them
  std::deque<std::string> foldedTexts_;
  std::vector<Spelling> spellings_;
  IndexedMap<Group> exact_;
  IndexedMap<Group> loose_;  // by folded text
};

}  // namespace Units
