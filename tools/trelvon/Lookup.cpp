#include "tools/trelvon/Lookup.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/ShownText.h"

#include <optional>
#include <vector>

namespace tool {

namespace {

constexpr std::size_t mostSuggestions = 3;

/// Those of the names that match best: by type id, else exactly, else loosely.
std::vector<Units::Unit> bestMatches(const std::string& text, const Units::UnitNames& names) {
  std::vector<Units::Unit> units;
  bool isExact = false;
  for (const Units::UnitName& name : names.find(text)) {
    if (name.isExact() && name.getKind() == Units::NameKind::TypeId) return {name.getUnit()};
    if (isExact && !name.isExact()) break;
    isExact = name.isExact();
    units.push_back(name.getUnit());
  }
  return units;
}

[[noreturn]] void failUnknown(const std::string& text, const Units::UnitNames& names) {
  std::string message = inQuotes(text) + " names no unit";
  const auto near = names.suggest(text, mostSuggestions);
  for (const Units::UnitName& name : near)
    message += (&name == &near.front() ? ". Did you mean " : " or ") + inQuotes(name.getText());
  throw Failure(Status::Findings, message + (near.empty() ? "" : "?"));
}

[[noreturn]] void failAmbiguous(const std::string& text, const std::vector<Units::Unit>& units,
                                const Units::UnitNames& names) {
  std::string message = inQuotes(text) + " names more than one unit. Write one of:";
  for (const Units::Unit& unit : units)
    message += "\n  " + shown(sayingOf(unit, names)) + "  (" + shown(unit.getName()) + ')';
  throw Failure(Status::Findings, message);
}

/// Type ids of records, the best matches first found.
class Matches {
 public:
  /// @param rank  0 is the best.
  void add(std::size_t rank, const std::string& typeId) { byRank_[rank].push_back(typeId); }

  /// @throws Failure  several are equally good.
  std::optional<std::string> best(const std::string& text, const std::string& kind) const {
    for (const auto& typeIds : byRank_) {
      if (typeIds.empty()) continue;
      if (typeIds.size() == 1) return typeIds.front();
      std::string message = inQuotes(text) + " names more than one " + kind + ". Write one of:";
      for (const std::string& typeId : typeIds) message += "\n  " + shown(typeId);
      throw Failure(Status::Findings, message);
    }
    return std::nullopt;
  }

 private:
  std::vector<std::string> byRank_[3];
};

/// @param nameOf  the name of a record, or an empty text.
template <class Record, class NameOf>
std::optional<std::string> find(const std::string& text, const std::string& kind,
                                const std::map<std::string, Record>& records, NameOf nameOf) {
  if (records.count(text) != 0) return text;
  Matches matches;
  for (const auto& [typeId, record] : records) {
    if (localIdOf(typeId) == text)
      matches.add(1, typeId);
    else if (!text.empty() && nameOf(record) == text)
      matches.add(2, typeId);
  }
  return matches.best(text, kind);
}

constexpr auto nameless = [](const auto&) { return std::string(); };

std::string required(const std::optional<std::string>& typeId, const std::string& text,
                     const std::string& kind) {
  if (!typeId) throw Failure(Status::Findings, inQuotes(text) + " names no " + kind);
  return *typeId;
}

}  // namespace

std::string textOf(const Units::Symbol& symbol) {
  const auto text = symbol.getPrefixOrSuffix();
  return text ? text->getText() : std::string();
}

std::string localIdOf(const std::string& typeId) {
  const std::string local = typeId.substr(typeId.rfind(':') + 1);
  const std::size_t hyphen = local.rfind('-');
  const bool isVersion = hyphen != std::string::npos && hyphen + 1 < local.size() &&
                         local[hyphen + 1] >= '0' && local[hyphen + 1] <= '9';
  return isVersion && hyphen > 0 ? local.substr(0, hyphen) : local;
}

std::string sayingOf(const Units::Unit& unit, const Units::UnitNames& names) {
  for (const std::string& text : {localIdOf(unit.getTypeId()), unit.getName()})
    if (const auto units = bestMatches(text, names); units.size() == 1 && units[0] == unit)
      return text;
  return unit.getTypeId();
}

Units::Unit unitNamed(const std::string& text, Definitions& definitions) {
  const Units::UnitNames& names = definitions.names();
  const auto units = bestMatches(text, names);
  if (units.empty()) failUnknown(text, names);
  if (units.size() > 1) failAmbiguous(text, units, names);
  return units.front();
}

Units::Symbol symbolNamed(const std::string& text, Definitions& definitions) {
  const Units::UnitsEngine& engine = definitions.engine();
  return engine.getSymbol(
      required(find(text, "symbol", engine.getSymbols(), textOf), text, "symbol"));
}

std::string factorNamed(const std::string& text, Definitions& definitions) {
  const auto factors = definitions.engine().getFactors();
  return required(find(text, "factor", factors, nameless), text, "factor");
}

std::string dimensionNamed(const std::string& text, Definitions& definitions) {
  const auto dimensions = definitions.engine().getDimensions();
  return required(find(text, "dimension", dimensions, nameless), text, "dimension");
}

std::string definitionNamed(const std::string& text, Definitions& definitions) {
  if (!definitions.names().find(text).empty()) return unitNamed(text, definitions).getTypeId();
  const Units::UnitsEngine& engine = definitions.engine();
  const auto name = [](const Units::Quantity& quantity) { return quantity.getName(); };
  if (const auto found = find(text, "quantity", engine.getQuantities(), name)) return *found;
  if (const auto found = find(text, "symbol", engine.getSymbols(), textOf)) return *found;
  if (const auto found = find(text, "factor", engine.getFactors(), nameless)) return *found;
  if (const auto found = find(text, "dimension", engine.getDimensions(), nameless)) return *found;
  failUnknown(text, definitions.names());
}

}  // namespace tool
