#include "naming/ExactNames.h"

#include <numeric>

namespace Units {

ExactNames::ExactNames(const NameEntries& entries, std::size_t unitCount) : entries_(entries) {
  std::vector<Name> byText(entries.size());
  std::iota(byText.begin(), byText.end(), Name{0});
  std::sort(byText.begin(), byText.end(), [&](Name a, Name b) {
    const int difference = entries[a].text.compare(entries[b].text);
    return difference != 0 ? difference < 0 : a < b;
  });
  names_.reserve(byText.size());
  groups_.reserve(byText.size());
  UnitsSeen seen(unitCount);
  const auto sameText = [&](Name a, Name b) { return entries[a].text == entries[b].text; };
  forEachRun(byText, sameText, [&](auto name, auto end) {
    const std::string_view text = entries[*name].text;
    const std::size_t first = names_.size();
    seen.restart();
    for (; name != end; ++name)
      if (seen.insert(entries[*name].unit)) names_.push_back(*name);
    groups_.emplace(text, groupFrom(first, names_));
  });
}

NameGroup ExactNames::find(std::string_view text) const {
  const NameGroup* const found = groups_.find(text);
  return found ? *found : NameGroup();
}

bool ExactNames::hasUnit(const NameGroup& group, std::size_t unit) const {
  for (const NameKind kind : {NameKind::TypeId, NameKind::LocalId, NameKind::Name,
                              NameKind::SymbolText, NameKind::Code}) {
    const NameEntry wanted = {{}, kind, unit};
    const Name* const found =
        std::lower_bound(group.begin(), group.end(), wanted,
                         [this](Name name, const NameEntry& e) { return entries_[name] < e; });
    if (found != group.end() && !(wanted < entries_[*found])) return true;
  }
  return false;
}

}  // namespace Units
