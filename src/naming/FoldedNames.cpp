#include "naming/FoldedNames.h"

#include "naming/FoldedText.h"

namespace Units {

FoldedNames::FoldedNames(const NameEntries& entries, std::size_t unitCount) {
  std::vector<Folded> byFolded;
  byFolded.reserve(entries.size());
  for (Name name = 0; name < entries.size(); ++name)
    if (entries[name].kind != NameKind::Code)
      byFolded.emplace_back(FoldedText(entries[name].text).view(), entries[name].text, name);
  std::sort(byFolded.begin(), byFolded.end());

  allNames_.reserve(entries.size());
  looseNames_.reserve(entries.size());
  spellings_.reserve(entries.size());
  UnitsSeen seen(unitCount);
  const auto sameFolded = [](const Folded& a, const Folded& b) {
    return std::get<0>(a) == std::get<0>(b);
  };
  forEachRun(byFolded, sameFolded, [&](auto begin, auto end) { add(begin, end, entries, seen); });
}

void FoldedNames::add(const std::vector<Folded>::iterator& begin,
                      const std::vector<Folded>::iterator& end, const NameEntries& entries,
                      UnitsSeen& seen) {
  const std::size_t firstOfAll = allNames_.size();
  std::string_view lastText;  // never empty for an entry
  std::vector<Name> loose;
  for (auto item = begin; item != end; ++item) {
    const auto& [folded, text, name] = *item;
    const NameEntry& entry = entries[name];
    if (std::exchange(lastText, text) != text) seen.restart();
    if (entry.kind == NameKind::TypeId || seen.insert(entry.unit)) allNames_.push_back(name);
    if (entry.kind == NameKind::LocalId || entry.kind == NameKind::Name) loose.push_back(name);
  }
  std::string& folded = std::get<0>(*begin);
  const EditDistance::Sketch sketch = EditDistance::sketchOf(folded);
  spellings_.push_back({std::move(folded), sketch, groupFrom(firstOfAll, allNames_)});
  if (loose.empty()) return;

  const std::size_t firstOfLoose = looseNames_.size();
  std::sort(loose.begin(), loose.end());
  seen.restart();
  for (const Name name : loose)
    if (seen.insert(entries[name].unit)) looseNames_.push_back(name);
  loose_.emplace(spellings_.back().folded, groupFrom(firstOfLoose, looseNames_));
}

NameGroup FoldedNames::find(std::string_view folded) const {
  const NameGroup* const found = loose_.find(folded);
  return found ? *found : NameGroup();
}

}  // namespace Units
