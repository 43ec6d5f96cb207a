#include "naming/NameReader.h"

#include "model/LocalId.h"
#include "model/RecordAccess.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace Units {

namespace {

/// The texts of symbols, each with the index of its unit.
std::vector<std::pair<std::size_t, std::string>> symbolTextsOf(const UnitsEngine& engine,
                                                               const std::vector<Unit>& units) {
  std::vector<std::pair<std::size_t, std::string>> texts;
  for (const auto& [typeId, symbol] : engine.getSymbols()) {
    const PrefixOrSuffix* const shown = RecordAccess::prefixOrSuffix(symbol);
    if (!shown) continue;
    const Unit& unit = RecordAccess::unit(symbol);
    const auto found = std::lower_bound(units.begin(), units.end(), unit);
    if (found == units.end() || *found != unit) continue;  // only in a host's own engine
    texts.emplace_back(found - units.begin(), RecordAccess::text(*shown));
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

}  // namespace

std::vector<NamedUnit> readNames(const UnitsEngine& engine, const std::vector<Unit>& units,
                                 const std::map<std::string, CodesBySystem>& codes) {
  std::vector<NamedUnit> names;
  const auto add = [&](std::size_t unit, NameKind kind, std::string_view text) {
    if (!text.empty()) names.push_back({units[unit], unit, kind, std::string(text)});
  };
  for (std::size_t i = 0; i < units.size(); ++i)
    add(i, NameKind::TypeId, RecordAccess::typeId(units[i]));
  for (std::size_t i = 0; i < units.size(); ++i)
    add(i, NameKind::LocalId, localIdOf(RecordAccess::typeId(units[i])));
  for (std::size_t i = 0; i < units.size(); ++i)
    add(i, NameKind::Name, RecordAccess::name(units[i]));
  for (const auto& [unit, text] : symbolTextsOf(engine, units))
    add(unit, NameKind::SymbolText, text);
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto found = codes.find(RecordAccess::typeId(units[i]));
    if (found == codes.end()) continue;
    for (const auto& [system, texts] : found->second)
      for (const std::string& code : texts) add(i, NameKind::Code, system + ':' + code);
  }
  return names;
}

}  // namespace Units
