#pragma once

#include <TrelvonUnits/UnitNames.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
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

/// All names in order. A name is the index of its entry.
using NameEntries = std::vector<NameEntry>;
using Name = std::size_t;

/// A range of names, in a list that someone else owns.
struct NameGroup {
  const Name* first = nullptr;
  const Name* last = nullptr;  // past the last one

  const Name* begin() const { return first; }
  const Name* end() const { return last; }
  std::size_t size() const { return static_cast<std::size_t>(last - first); }
};

/// The part of a list from an index to its end. The list must have room for what is added later.
inline NameGroup groupFrom(std::size_t begin, const std::vector<Name>& list) {
  return {list.data() + begin, list.data() + list.size()};
}

/// Tells which units are seen for the first time since the last `restart`, which is free.
class UnitsSeen {
 public:
  explicit UnitsSeen(std::size_t count) : rounds_(count) {}

  void restart() { ++round_; }
  bool insert(std::size_t unit) { return std::exchange(rounds_[unit], round_) != round_; }

 private:
  std::size_t round_ = 1;
  std::vector<std::size_t> rounds_;
};

/// Calls `use` with the begin and end of each run of neighbors that are the same.
template <class List, class Same, class Use>
void forEachRun(List& list, Same same, Use use) {
  for (auto begin = list.begin(); begin != list.end();) {
    const auto end =
        std::find_if(begin, list.end(), [&](const auto& item) { return !same(*begin, item); });
    use(begin, end);
    begin = end;
  }
}

}  // namespace Units
