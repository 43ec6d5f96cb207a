#include "tools/trelvon/Columns.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <map>
#include <set>

namespace tool {

namespace {

/// A definition in a list: what people say, and what else is known of it by the names of columns.
struct Item {
  std::string typeId;
  std::vector<std::pair<std::string, std::vector<std::string>>> columns;
};

using Items = std::vector<Item>;

Items unitItems(const std::map<std::string, Units::Unit>& units,
                const std::map<std::string, Units::Symbol>& symbols) {
  std::map<std::string, std::vector<std::string>> texts;
  for (const auto& [typeId, symbol] : symbols)
    if (const std::string text = textOf(symbol); !text.empty())
      texts[symbol.getUnit().getTypeId()].push_back(text);
  Items items;
  for (const auto& [typeId, unit] : units)
    items.push_back({typeId, {{"name", {unit.getName()}}, {"symbols", texts[typeId]}}});
  return items;
}

Items quantityItems(const std::map<std::string, Units::Quantity>& quantities) {
  Items items;
  for (const auto& [typeId, quantity] : quantities) {
    std::vector<std::string> units;
    for (const Units::Unit& unit : quantity.getUnits()) units.push_back(unit.getName());
    items.push_back({typeId, {{"name", {quantity.getName()}}, {"units", units}}});
  }
  return items;
}

Items symbolItems(const std::map<std::string, Units::Symbol>& symbols) {
  Items items;
  for (const auto& [typeId, symbol] : symbols)
    items.push_back({typeId, {{"text", {textOf(symbol)}}, {"unit", {symbol.getUnit().getName()}}}});
  return items;
}

/// Factors or dimensions; with `of` only those that this definition depends on.
template <class Record>
Items plainItems(const std::map<std::string, Record>& records,
                 const std::optional<std::set<std::string>>& dependencies) {
  Items items;
  for (const auto& [typeId, record] : records)
    if (!dependencies || dependencies->count(typeId) != 0) items.push_back({typeId, {}});
  return items;
}

Items itemsOf(Context& context, const std::string& kind) {
  std::optional<std::string> of;
  if (context.arguments.has("of")) of = context.unit(context.arguments.text("of")).getTypeId();
  const Units::UnitsEngine& engine = context.definitions.engine();
  if (kind == "units")
    return unitItems(of ? engine.getConvertibleUnits(*of) : engine.getUnits(), engine.getSymbols());
  if (kind == "quantities")
    return quantityItems(of ? engine.getQuantitiesOfUnit(*of) : engine.getQuantities());
  if (kind == "symbols")
    return symbolItems(of ? engine.getSymbolsOfUnit(*of) : engine.getSymbols());
  std::optional<std::set<std::string>> dependencies;
  if (of) dependencies = engine.getDependencies(*of);
  if (kind == "factors") return plainItems(engine.getFactors(), dependencies);
  if (kind == "dimensions") return plainItems(engine.getDimensions(), dependencies);
  throw Failure(Status::Usage,
                inQuotes(kind) + " is not one of units, quantities, symbols, factors, dimensions");
}

void writeJson(Output& out, const std::string& kind, const Items& items) {
  JsonWriter json;
  json.beginObject();
  json.key(kind);
  json.beginArray();
  for (const Item& item : items) {
    json.beginObject();
    json.member("typeId", item.typeId);
    for (const auto& [name, texts] : item.columns) {
      if (name.back() == 's')
        json.member(name, texts);
      else
        json.member(name, texts.front());
    }
    json.endObject();
  }
  json.endArray();
  json.endObject();
  out.write(json.text() + '\n');
}

}  // namespace

Status runList(Context& context) {
  const std::string& kind = context.arguments.operands[0];
  const Items items = itemsOf(context, kind);
  if (context.wantsJson()) {
    writeJson(context.out, kind, items);
    return Status::Done;
  }
  std::vector<Row> rows;
  for (const Item& item : items) {
    Row row = {shown(Units::UnitNames::localId(item.typeId))};
    for (const auto& [name, texts] : item.columns) {
      std::string cell;
      for (const std::string& text : texts) cell += (cell.empty() ? "" : ", ") + shown(text);
      row.push_back(cell);
    }
    rows.push_back(row);
  }
  writeColumns(context.out, rows);
  return Status::Done;
}

}  // namespace tool
