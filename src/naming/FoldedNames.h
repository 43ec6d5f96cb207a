#pragma once

#include "model/EditDistance.h"
#include "model/IndexedMap.h"
#include "naming/NameEntries.h"

#include <string>
#include <tuple>

namespace Units {

/// Names other than codes, found by their texts when folded.
class FoldedNames {
 public:
  /// The names whose texts are the same when folded.
  struct Spelling {
    std::string folded;
    EditDistance::Sketch sketch;  // of `folded`
    NameGroup names;  // by text, then in order; no text twice for one unit, except as its type id
  };

  /// @param entries  only used here.
  FoldedNames(const NameEntries& entries, std::size_t unitCount);
  FoldedNames(const FoldedNames&) = delete;  // groups point to the lists
  FoldedNames& operator=(const FoldedNames&) = delete;

  /// The local ids and names with this text when folded, in order; no unit twice.
  NameGroup find(std::string_view folded) const;

  /// In byte order of the folded texts.
  const std::vector<Spelling>& spellings() const { return spellings_; }

 private:
  using Folded = std::tuple<std::string, std::string_view, Name>;  // with the text as it is

  void add(const std::vector<Folded>::iterator& begin, const std::vector<Folded>::iterator& end,
           const NameEntries& entries, UnitsSeen& seen);

  std::vector<Name> allNames_, looseNames_;  // reserved, so groups may point to them
  std::vector<Spelling> spellings_;          // reserved, so `loose_` may point to their texts
  IndexedMap<NameGroup> loose_;              // by folded text
};

}  // namespace Units
