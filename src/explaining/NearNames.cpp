#include "explaining/NearNames.h"

#include "formula/SpellingTables.h"
#include "model/Characters.h"
#include "model/EditDistance.h"
#include "model/RecordAccess.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace Units {

namespace {

constexpr std::size_t mostNames = 3;

struct Near {
  Nearness nearness;
  std::string_view text;
  const Unit* unit;  // whose name it is; null for what may stand in a formula itself
  std::size_t place;
};

/// The first suffix of each unit.
std::unordered_map<const void*, std::string_view> suffixesOf(const Registries& registries) {
  std::unordered_map<const void*, std::string_view> suffixes;
  for (const auto& [typeId, node] : registries.symbols.objects.nodes())
    if (const auto* const shown = RecordAccess::prefixOrSuffix(node.record))
      if (shown->getPlacement() == Placement::Suffix)
        suffixes.emplace(RecordAccess::identity(RecordAccess::unit(node.record)),
                         RecordAccess::text(*shown));
  return suffixes;
}

}  // namespace

std::size_t wordStart(std::string_view identifier) {
  const std::size_t number = readClassicDouble(identifier).length;
  return number + countLeading<isSpace>(identifier.substr(number));
}

std::vector<std::string> nearNames(std::string_view identifier, const Registries& registries) {
  const std::string_view word = identifier.substr(wordStart(identifier));
  const EditDistance distance(word);
  std::vector<Near> near;
  const auto compare = [&](std::string_view text, const Unit* unit) {
    if (const auto nearness = distance.to(text))
      near.push_back({*nearness, text, unit, near.size()});
  };
  const FunctionMap functions;
  if (word.size() == identifier.size())
    for (const auto& [name, function] : functions.spellings()) compare(name, nullptr);
  for (const auto& [typeId, node] : registries.symbols.objects.nodes())
    if (const auto* const shown = RecordAccess::prefixOrSuffix(node.record))
      compare(RecordAccess::text(*shown), nullptr);
  for (const auto& [typeId, node] : registries.units.objects.nodes())
    compare(RecordAccess::name(node.record), &node.record);
  std::sort(near.begin(), near.end(), [](const Near& a, const Near& b) {
    return a.nearness == b.nearness ? a.place < b.place : a.nearness < b.nearness;
  });

  const std::unordered_map<const void*, std::string_view> suffixes = suffixesOf(registries);
  std::vector<std::string> names;
  for (const Near& found : near) {
    const bool isOtherCase = near.front().nearness.distance == 0 && found.nearness.distance > 0;
    if (names.size() == mostNames || (isOtherCase && !names.empty())) break;
    std::string name(found.text);
    if (found.unit) {
      const auto suffix = suffixes.find(RecordAccess::identity(*found.unit));
      name = suffix == suffixes.end() ? "" : suffix->second;
    }
    const bool isNew = std::find(names.begin(), names.end(), name) == names.end();
    if (!name.empty() && name != word && isNew) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace Units
