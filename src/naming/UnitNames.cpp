#include "model/EditDistance.h"
#include "naming/FoldedText.h"
#include "naming/NameReader.h"
#include "naming/NameTable.h"
#include "naming/UnitNameContents.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Units {

namespace {

bool beginsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

}  // namespace

struct UnitNames::Contents : CountedContents {
  explicit Contents(std::vector<NamedUnit> read)
      : unitCount(countUnits(read)), names(shared(read)), table(entriesOf(read), unitCount) {}

  static std::size_t countUnits(const std::vector<NamedUnit>& read) {
    std::size_t count = 0;
    for (const NamedUnit& name : read) count = std::max(count, name.order + 1);
    return count;
  }

  /// Moves the texts.
  static std::vector<Shared<UnitName::Contents>> shared(std::vector<NamedUnit>& read) {
    std::vector<Shared<UnitName::Contents>> names;
    names.reserve(read.size());
    for (NamedUnit& name : read)
      names.emplace_back(new UnitName::Contents(name.unit, name.kind, std::move(name.text)));
    return names;
  }

  std::vector<NameEntry> entriesOf(const std::vector<NamedUnit>& read) const {
    std::vector<NameEntry> entries;
    entries.reserve(read.size());
    for (std::size_t i = 0; i < read.size(); ++i)
      entries.push_back({names[i]->text, read[i].kind, read[i].order});
    return entries;
  }

  const std::size_t unitCount;
  const std::vector<Shared<UnitName::Contents>> names;
  const NameTable table;
};

UnitNames::UnitNames(const UnitsEngine& engine) : contents_(new Contents(readNames(engine))) {}

// Contents are shared, so a move is a copy.
UnitNames::UnitNames(const UnitNames& other) noexcept = default;
UnitNames::UnitNames(UnitNames&& other) noexcept = default;
UnitNames::~UnitNames() = default;

std::vector<UnitName> UnitNames::find(std::string_view text) const {
  const NameTable& table = contents_->table;
  const NameTable::Group exact = table.findExactly(text);
  const NameTable::Group loose = table.findLoosely(FoldedText(text).view());
  std::vector<UnitName> found;
  found.reserve(exact.size() + loose.size());
  for (const NameTable::Name name : exact) found.push_back({contents_->names[name], true});
  for (const NameTable::Name name : loose)
    if (!table.hasUnit(exact, table[name].unit)) found.push_back({contents_->names[name], false});
  return found;
}

std::vector<UnitName> UnitNames::suggest(std::string_view text, std::size_t count) const {
  const FoldedText folded(text);
  if (folded.view().size() > EditDistance::longestText) return {};
  const NameTable& table = contents_->table;
  const EditDistance distance(folded.view());
  std::vector<std::tuple<Nearness, std::size_t, NameTable::Name>> near;  // with their units
  for (const NameTable::Spelling& spelling : table.spellings()) {
    if (!distance.mayBeNear(spelling.sketch)) continue;  // tuning
    const auto nearness = distance.to(spelling.folded);
    if (!nearness) continue;
    for (const NameTable::Name name : spelling.names)
      near.emplace_back(*nearness, table[name].unit, name);
  }
  std::sort(near.begin(), near.end());

  std::vector<UnitName> nearest;
  std::vector<bool> isThere(contents_->unitCount);
  for (const auto& [nearness, unit, name] : near) {
    if (nearest.size() == count) break;
    if (isThere[unit]) continue;
    isThere[unit] = true;
    nearest.push_back({contents_->names[name], table[name].text == text});
  }
  return nearest;
}

std::vector<UnitName> UnitNames::completions(std::string_view prefix, std::size_t count) const {
  const FoldedText folded(prefix);
  const NameTable& table = contents_->table;
  const auto begin = std::lower_bound(
      table.spellings().begin(), table.spellings().end(), folded.view(),
      [](const auto& spelling, std::string_view text) { return spelling.folded < text; });
  std::vector<UnitName> found;
  for (const bool isExact : {true, false}) {
    for (auto spelling = begin; spelling != table.spellings().end(); ++spelling) {
      if (!beginsWith(spelling->folded, folded.view())) break;
      for (const NameTable::Name name : spelling->names) {
        if (found.size() == count) return found;
        if (table[name].kind != NameKind::TypeId && beginsWith(table[name].text, prefix) == isExact)
          found.push_back({contents_->names[name], isExact});
      }
    }
  }
  return found;
}

}  // namespace Units
