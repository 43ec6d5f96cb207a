#include "naming/NameTable.h"

#include "naming/FoldedText.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace Units {

/// Tells which units are seen for the first time since the last `restart`, which costs nothing.
class NameTable::UnitsSeen {
 public:
  explicit UnitsSeen(std::size_t count) : rounds_(count) {}

  void restart() { ++round_; }
  bool insert(std::size_t unit) { return std::exchange(rounds_[unit], round_) != round_; }

 private:
  std::size_t round_ = 1;
  std::vector<std::size_t> rounds_;
};

namespace {

/// Calls `use` with the begin and end of each run of neighbors that are the same.
template <class List, class Same, class Use>
void forEachRun(const List& list, Same same, Use use) {
  for (auto begin = list.begin(); begin != list.end();) {
    const auto end =
        std::find_if(begin, list.end(), [&](const auto& item) { return !same(*begin, item); });
    use(begin, end);
    begin = end;
  }
}

/// The part of a list from an index to its end.
NameTable::Group groupFrom(std::size_t begin, const std::vector<NameTable::Name>& list) {
  return {list.data() + begin, list.data() + list.size()};
}

}  // namespace

NameTable::NameTable(std::vector<NameEntry> entries, std::size_t unitCount)
    : entries_(std::move(entries)) {
  std::vector<Name> byText(entries_.size());
  std::iota(byText.begin(), byText.end(), Name{0});
  std::sort(byText.begin(), byText.end(), [this](Name a, Name b) {
    const int difference = entries_[a].text.compare(entries_[b].text);
    return difference != 0 ? difference < 0 : a < b;
  });
  for (auto* const names : {&exactNames_, &allNames_, &looseNames_}) names->reserve(byText.size());
  UnitsSeen seen(unitCount);
  indexExactly(byText, seen);
  indexFolded(byText, seen);
}

void NameTable::indexExactly(const std::vector<Name>& byText, UnitsSeen& seen) {
  exact_.reserve(byText.size());
  const auto sameText = [this](Name a, Name b) { return entries_[a].text == entries_[b].text; };
  forEachRun(byText, sameText, [&](auto name, auto end) {
    const std::string_view text = entries_[*name].text;
    const std::size_t first = exactNames_.size();
    seen.restart();
    for (; name != end; ++name)
      if (seen.insert(entries_[*name].unit)) exactNames_.push_back(*name);
    exact_.emplace(text, groupFrom(first, exactNames_));
  });
}

void NameTable::indexFolded(const std::vector<Name>& byText, UnitsSeen& seen) {
  std::vector<std::pair<std::string, std::size_t>> byFolded;  // with places in `byText`
  byFolded.reserve(byText.size());
  for (std::size_t place = 0; place < byText.size(); ++place)
    byFolded.emplace_back(FoldedText(entries_[byText[place]].text).view(), place);
  std::sort(byFolded.begin(), byFolded.end());

  const auto sameFolded = [](const auto& a, const auto& b) { return a.first == b.first; };
  forEachRun(byFolded, sameFolded, [&](auto begin, auto end) {
    const std::size_t firstOfAll = allNames_.size();
    std::string_view text;  // never empty for an entry
    std::vector<Name> loose;
    for (auto item = begin; item != end; ++item) {
      const Name name = byText[item->second];
      const NameEntry& entry = entries_[name];
      if (std::exchange(text, entry.text) != entry.text) seen.restart();
      if (entry.kind == NameKind::TypeId || seen.insert(entry.unit)) allNames_.push_back(name);
      if (entry.kind == NameKind::LocalId || entry.kind == NameKind::Name) loose.push_back(name);
    }
    const std::size_t firstOfLoose = looseNames_.size();
    std::sort(loose.begin(), loose.end());
    seen.restart();
    for (const Name name : loose)
      if (seen.insert(entries_[name].unit)) looseNames_.push_back(name);
    const std::string_view folded = foldedTexts_.emplace_back(begin->first);
    spellings_.push_back(
        {folded, EditDistance::sketchOf(folded), groupFrom(firstOfAll, allNames_)});
    if (!loose.empty()) loose_.emplace(folded, groupFrom(firstOfLoose, looseNames_));
  });
}

NameTable::Group NameTable::findExactly(std::string_view text) const {
  const Group* const found = exact_.find(text);
  return found ? *found : Group();
}

NameTable::Group NameTable::findLoosely(std::string_view folded) const {
  const Group* const found = loose_.find(folded);
  return found ? *found : Group();
}

bool NameTable::hasUnit(const Group& group, std::size_t unit) const {
  for (const NameKind kind :
       {NameKind::TypeId, NameKind::LocalId, NameKind::Name, NameKind::SymbolText}) {
    const NameEntry wanted = {{}, kind, unit};
    const Name* const found =
        std::lower_bound(group.begin(), group.end(), wanted,
                         [this](Name name, const NameEntry& e) { return entries_[name] < e; });
    if (found != group.end() && !(wanted < entries_[*found])) return true;
  }
  return false;
}

}  // namespace Units
