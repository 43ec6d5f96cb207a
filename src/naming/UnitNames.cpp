#include "model/EditDistance.h"
#include "model/LocalId.h"
#include "model/RecordAccess.h"
#include "naming/CodeFinder.h"
#include "naming/ExactNames.h"
#include "naming/FoldedNames.h"
#include "naming/FoldedText.h"
#include "naming/MadeOnce.h"
#include "naming/NameReader.h"
#include "naming/Plurals.h"
#include "naming/UnitNameContents.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

namespace Units {

namespace {

bool beginsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

/// The text, with "qudt:" in place of its short form.
std::string withFullSystem(std::string_view text) {
  constexpr std::string_view brief = "qdt:";
  if (!beginsWith(text, brief)) return std::string(text);
  return "qudt:" + std::string(text.substr(brief.size()));
}

}  // namespace

struct UnitNames::Contents : CountedContents {
  Contents(const UnitsEngine& engine, const std::map<std::string, CodesBySystem>& codes)
      : Contents(engine, unitsOf(engine), codes) {}

  Contents(const UnitsEngine& engine, std::vector<Unit> units,
           const std::map<std::string, CodesBySystem>& codes)
      : Contents(readNames(engine, units, codes), units.size()) {
    if (!codes.empty()) byCode.emplace(engine, std::move(units), codes, entries, exact);
  }

  Contents(std::vector<NamedUnit> read, std::size_t count)
      : unitCount(count),
        names(shared(read)),
        entries(entriesOf(read)),
        exact(entries, unitCount) {}

  /// Most hosts search for exact texts, and need nothing else.
  const FoldedNames& folded() const {
    return folded_.get([this] { return std::make_unique<const FoldedNames>(entries, unitCount); });
  }

  static std::vector<Unit> unitsOf(const UnitsEngine& engine) {
    std::vector<Unit> units;
    for (const auto& [typeId, unit] : engine.getUnits()) units.push_back(unit);
    return units;
  }

  /// The place of a unit in order of type id, if it is there.
  std::optional<std::size_t> orderOf(const Unit& unit) const {
    for (const Name name : exact.find(RecordAccess::typeId(unit)))
      if (entries[name].kind == NameKind::TypeId && names[name]->unit == unit)
        return entries[name].unit;
    return std::nullopt;
  }

  /// Moves the texts.
  static std::vector<Shared<UnitName::Contents>> shared(std::vector<NamedUnit>& read) {
    std::vector<Shared<UnitName::Contents>> names;
    names.reserve(read.size());
    for (NamedUnit& name : read)
      names.emplace_back(new UnitName::Contents(name.unit, name.kind, std::move(name.text)));
    return names;
  }

  NameEntries entriesOf(const std::vector<NamedUnit>& read) const {
    NameEntries list;
    list.reserve(read.size());
    for (std::size_t i = 0; i < read.size(); ++i)
      list.push_back({names[i]->text, read[i].kind, read[i].order});
    return list;
  }

  const std::size_t unitCount;
  const std::vector<Shared<UnitName::Contents>> names;
  const NameEntries entries;
  const ExactNames exact;
  std::optional<CodeFinder> byCode;  // if there are codes

 private:
  MadeOnce<FoldedNames> folded_;
};

UnitNames::UnitNames(const UnitsEngine& engine) : contents_(new Contents(engine, {})) {}
UnitNames::UnitNames(const UnitsEngine& engine, const UnitCodes& codes)
    : contents_(new Contents(engine, codes.contents_->units)) {}

// Contents are shared, so a move is a copy.
UnitNames::UnitNames(const UnitNames& other) noexcept = default;
UnitNames::UnitNames(UnitNames&& other) noexcept = default;
UnitNames::~UnitNames() = default;

std::vector<UnitName> UnitNames::find(std::string_view text) const {
  const NameGroup exact = contents_->exact.find(text);
  const NameGroup loose = contents_->folded().find(FoldedText(text).view());
  std::vector<UnitName> found;
  found.reserve(exact.size() + loose.size());
  for (const Name name : exact) found.push_back({contents_->names[name], true});
  for (const Name name : loose)
    if (!contents_->exact.hasUnit(exact, contents_->entries[name].unit))
      found.push_back({contents_->names[name], false});
  return found.empty() ? findOtherwise(text) : found;
}

/// What a text names that is not a name itself: a code with the short form of its system, a plural,
/// or an expression of codes.
std::vector<UnitName> UnitNames::findOtherwise(std::string_view text) const {
  std::vector<UnitName> found;
  for (const Name name : contents_->exact.find(withFullSystem(text)))
    found.push_back({contents_->names[name], false});
  if (!found.empty()) return found;
  for (const std::string& singular : singularsOf(text)) {
    for (const Name name : contents_->folded().find(FoldedText(singular).view()))
      found.push_back({contents_->names[name], false});
    if (!found.empty()) return found;
  }
  if (!contents_->byCode) return found;
  for (const Unit& unit : contents_->byCode->find(text))
    found.push_back(UnitName(Shared<UnitName::Contents>(new UnitName::Contents(
                                 unit, NameKind::CodeExpression, std::string(text))),
                             true));
  return found;
}

std::vector<UnitName> UnitNames::findCode(std::string_view system, std::string_view code) const {
  std::string text(system);
  text.append(1, ':').append(code);
  std::vector<UnitName> found;
  for (const UnitName& name : findBest(text))
    if (name.getKind() == NameKind::Code || name.getKind() == NameKind::CodeExpression)
      found.push_back(name);
  return found;
}

std::string UnitNames::whyNot(std::string_view text) const {
  if (!findBest(text).empty()) return "";
  if (contents_->byCode) return contents_->byCode->whyNot(withFullSystem(text));
  return '`' + std::string(text) + "` does not name a unit.";
}

std::vector<UnitName> UnitNames::findBest(std::string_view text) const {
  NameGroup best = contents_->exact.find(text);
  const bool isExact = best.size() > 0;
  if (!isExact) best = contents_->folded().find(FoldedText(text).view());
  const auto kindOf = [this](Name name) { return contents_->entries[name].kind; };
  if (isExact && kindOf(*best.first) == NameKind::TypeId) best.last = best.first + 1;
  std::vector<UnitName> found;
  found.reserve(best.size());
  for (const Name name : best) found.push_back({contents_->names[name], isExact});
  return found.empty() ? findOtherwise(text) : found;
}

std::vector<UnitName> UnitNames::namesOf(const Unit& unit) const {
  std::vector<UnitName> all;
  const auto order = contents_->orderOf(unit);
  if (!order) return all;
  const auto inOrder = [](const NameEntry& a, const NameEntry& b) { return a < b; };
  for (const NameKind kind : {NameKind::TypeId, NameKind::LocalId, NameKind::Name,
                              NameKind::SymbolText, NameKind::Code}) {
    const auto [begin, end] = std::equal_range(contents_->entries.begin(), contents_->entries.end(),
                                               NameEntry{{}, kind, *order}, inOrder);
    for (auto entry = begin; entry != end; ++entry)
      all.push_back(
          {contents_->names[static_cast<Name>(entry - contents_->entries.begin())], true});
  }
  return all;
}

std::string UnitNames::unambiguousName(const Unit& unit) const {
  for (const UnitName& name : namesOf(unit)) {
    if (name.getKind() == NameKind::TypeId) continue;
    const std::string text = name.getText();
    if (const auto best = findBest(text); best.size() == 1 && best[0].getUnit() == unit)
      return text;
  }
  return unit.getTypeId();
}

std::string UnitNames::localId(std::string_view typeId) { return std::string(localIdOf(typeId)); }

std::vector<UnitName> UnitNames::suggest(std::string_view text, std::size_t count) const {
  const FoldedText folded(text);
  if (folded.view().size() > EditDistance::longestText) return {};
  const NameEntries& entries = contents_->entries;
  const EditDistance distance(folded.view());
  std::vector<std::tuple<Nearness, std::size_t, Name>> near;  // with their units
  for (const FoldedNames::Spelling& spelling : contents_->folded().spellings()) {
    if (!distance.mayBeNear(spelling.sketch)) continue;  // tuning
    const auto nearness = distance.to(spelling.folded);
    if (!nearness) continue;
    for (const Name name : spelling.names) near.emplace_back(*nearness, entries[name].unit, name);
  }
  std::sort(near.begin(), near.end());

  std::vector<UnitName> nearest;
  std::vector<bool> isThere(contents_->unitCount);
  for (const auto& [nearness, unit, name] : near) {
    if (nearest.size() == count) break;
    if (isThere[unit]) continue;
    isThere[unit] = true;
    nearest.push_back({contents_->names[name], entries[name].text == text});
  }
  return nearest;
}

std::vector<UnitName> UnitNames::completions(std::string_view prefix, std::size_t count) const {
  const FoldedText folded(prefix);
  const NameEntries& entries = contents_->entries;
  const auto& spellings = contents_->folded().spellings();
  const auto begin = std::lower_bound(
      spellings.begin(), spellings.end(), folded.view(),
      [](const auto& spelling, std::string_view text) { return spelling.folded < text; });
  std::vector<UnitName> found;
  for (const bool isExact : {true, false}) {
    for (auto spelling = begin; spelling != spellings.end(); ++spelling) {
      if (!beginsWith(spelling->folded, folded.view())) break;
      for (const Name name : spelling->names) {
        if (found.size() == count) return found;
        if (entries[name].kind != NameKind::TypeId &&
            beginsWith(entries[name].text, prefix) == isExact)
          found.push_back({contents_->names[name], isExact});
      }
    }
  }
  return found;
}

}  // namespace Units
