#include "tools/trelvon/Lookup.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/ShownText.h"

#include <optional>
#include <vector>

namespace tool {

namespace {

constexpr std::size_t mostSuggestions = 3;

/// Whether a text may be a code of another system. Others need not load the codes.
bool isCode(const std::string& text) { return text.find(':') != std::string::npos; }

[[noreturn]] void failUnknown(const std::string& text, Definitions& definitions) {
  const auto near = definitions.names().suggest(text, mostSuggestions);
  if (near.empty() && isCode(text))
    throw Failure(Status::Findings, shown(definitions.namesWithCodes().whyNot(text)));
  std::string message = inQuotes(text) + " does not name a unit";
  for (const Units::UnitName& name : near)
    message += (&name == &near.front() ? ". Did you mean " : " or ") + inQuotes(name.getText());
  throw Failure(Status::Findings, message + (near.empty() ? "" : "?"));
}

[[noreturn]] void failAmbiguous(const std::string& text, const std::vector<Units::UnitName>& best,
                                const Units::UnitNames& names) {
  std::string message = inQuotes(text) + " names more than one unit. Write one of:";
  for (const Units::UnitName& name : best) {
    const Units::Unit unit = name.getUnit();
    message += "\n  " + shown(names.unambiguousName(unit)) + "  (" + shown(unit.getName()) + ')';
  }
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
    if (Units::UnitNames::localId(typeId) == text)
      matches.add(1, typeId);
    else if (!text.empty() && nameOf(record) == text)
      matches.add(2, typeId);
  }
  return matches.best(text, kind);
}

constexpr auto nameless = [](const auto&) { return std::string(); };

std::string required(const std::optional<std::string>& typeId, const std::string& text,
                     const std::string& kind) {
  if (!typeId) throw Failure(Status::Findings, inQuotes(text) + " does not name a " + kind);
  return *typeId;
}

}  // namespace

std::string textOf(const Units::Symbol& symbol) {
  const auto text = symbol.getPrefixOrSuffix();
  return text ? text->getText() : std::string();
}

Units::Unit unitNamed(const std::string& text, Definitions& definitions) {
  if (const std::string typeId = definitions.typeIdOf(text); !typeId.empty())
    return definitions.engine().getUnit(typeId);
  const Units::UnitNames& names = definitions.names();
  auto best = names.findBest(text);
  if (best.empty() && isCode(text)) best = definitions.namesWithCodes().findBest(text);
  if (best.empty()) failUnknown(text, definitions);
  if (best.size() > 1) failAmbiguous(text, best, names);
  return best.front().getUnit();
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
  const Units::UnitsEngine& engine = definitions.engine();
  const auto name = [](const Units::Quantity& quantity) { return quantity.getName(); };
  if (!definitions.names().findBest(text).empty()) return unitNamed(text, definitions).getTypeId();
  if (const auto found = find(text, "quantity", engine.getQuantities(), name)) return *found;
  if (const auto found = find(text, "symbol", engine.getSymbols(), textOf)) return *found;
  if (const auto found = find(text, "factor", engine.getFactors(), nameless)) return *found;
  if (const auto found = find(text, "dimension", engine.getDimensions(), nameless)) return *found;
  return unitNamed(text, definitions).getTypeId();
}

}  // namespace tool
