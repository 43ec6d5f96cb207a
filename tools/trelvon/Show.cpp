#include "tools/trelvon/Ancestors.h"
#include "tools/trelvon/Columns.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tool {

namespace {

using Field = std::pair<std::string, std::vector<std::string>>;

/// Deeper parents are not indented any further, so that a long chain stays short.
constexpr std::size_t deepestIndent = 40;

std::string powerText(int power) { return power == 1 ? "" : '^' + std::to_string(power); }

SchemaNotes notesOf(const std::string& typeId, const Definitions& definitions) {
  SchemaNotes notes;
  definitions.forEachText([&](const std::string&, std::string_view text) {
    if (!notes.typeId.empty() || text.find(typeId) == std::string_view::npos) return;
    if (const auto read = readSchemaNotes(text); read && read->typeId == typeId) notes = *read;
  });
  return notes;
}

void addUses(const Units::UnitsEngine& engine, const std::string& typeId,
             std::vector<Field>& fields) {
  std::vector<std::string> symbols, quantities;
  for (const auto& [id, symbol] : engine.getSymbolsOfUnit(typeId))
    symbols.push_back(textOf(symbol).empty() ? Units::UnitNames::localId(id) : textOf(symbol));
  for (const auto& [id, quantity] : engine.getQuantitiesOfUnit(typeId))
    quantities.push_back(quantity.getName());
  fields.push_back({"symbols", symbols});
  fields.push_back({"quantities", quantities});
}

void addCodes(Definitions& definitions, const std::string& typeId, std::vector<Field>& fields) {
  std::vector<std::string> all;
  for (const std::string& system : definitions.codes().getSystems())
    for (const std::string& code : definitions.codes().getCodes(typeId, system))
      all.push_back(system + ':' + code);
  if (!all.empty()) fields.push_back({"codes", all});
}

std::vector<Field> fieldsOf(const std::string& typeId, const Described& described,
                            Definitions& definitions) {
  std::vector<Field> fields = {
      {"type id", {typeId}}, {"name", {described.name}}, {"kind", {described.kind}}};
  if (described.factor) fields.push_back({"factor", {shortestText(*described.factor)}});
  if (described.offset) fields.push_back({"offset", {shortestText(*described.offset)}});
  std::vector<std::string> parents;
  for (const Parent& parent : described.parents)
    parents.push_back(Units::UnitNames::localId(parent.typeId) + powerText(parent.power));
  fields.push_back({"parents", parents});
  if (described.kind.find("unit") != std::string::npos) {
    addUses(definitions.engine(), typeId, fields);
    addCodes(definitions, typeId, fields);
  }
  const SchemaNotes notes = notesOf(typeId, definitions);
  if (notes.exact)
    fields.push_back(
        {"exact",
         {notes.piPower == 0 ? *notes.exact : *notes.exact + " * pi" + powerText(notes.piPower)}});
  if (!notes.source.empty()) fields.push_back({"source", {notes.source}});
  return fields;
}

/// Calls a function for a definition and everything that it depends on, parents after their child.
/// It gets the depth, the power, and whether the definition is new; if not, its parents are
/// skipped.
template <class Action>
void walk(const Units::UnitsEngine& engine, const std::string& typeId, Action action) {
  struct Waiting {
    Parent parent;
    std::size_t depth;
  };
  std::vector<Waiting> waiting = {{{typeId, 1}, 0}};
  std::set<std::string> walked;
  while (!waiting.empty()) {
    const Waiting next = waiting.back();
    waiting.pop_back();
    const Described described = describe(engine, next.parent.typeId);
    const bool isNew = walked.insert(next.parent.typeId).second;
    action(next.parent, next.depth, described, isNew);
    if (!isNew) continue;
    for (auto parent = described.parents.rbegin(); parent != described.parents.rend(); ++parent)
      waiting.push_back({*parent, next.depth + 1});
  }
}

void writeTree(Output& out, const Units::UnitsEngine& engine, const std::string& typeId) {
  walk(engine, typeId,
       [&](const Parent& parent, std::size_t depth, const Described& described, bool isNew) {
         std::string line(2 * std::min(depth, deepestIndent), ' ');
         line += shown(Units::UnitNames::localId(parent.typeId)) + powerText(parent.power) + "  " +
                 described.kind;
         if (described.factor) line += ", factor " + shortestText(*described.factor);
         if (described.offset) line += ", offset " + shortestText(*described.offset);
         out.write(line + (isNew || described.parents.empty() ? "\n" : ", parents as above\n"));
       });
}

/// A text in quotes, as Graphviz reads it.
std::string dotText(const std::string& text) {
  std::string out = "\"";
  for (const char c : shown(text)) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + '"';
}

std::string dotOf(const Units::UnitsEngine& engine, const std::string& typeId) {
  std::string text = "digraph definitions {\n  node [shape=box];\n";
  walk(engine, typeId,
       [&](const Parent& child, std::size_t, const Described& described, bool isNew) {
         if (!isNew) return;
         std::string label = described.name;
         if (described.factor && *described.factor != 1.0)
           label += " = " + shortestText(*described.factor);
         text += "  " + dotText(child.typeId) + " [label=" + dotText(label) + "];\n";
         for (const Parent& parent : described.parents)
           text +=
               "  " + dotText(child.typeId) + " -> " + dotText(parent.typeId) +
               (parent.power == 1 ? ";\n" : " [label=\"" + std::to_string(parent.power) + "\"];\n");
       });
  return text + "}\n";
}

void writeFactorAndParents(const Described& described, JsonWriter& json) {
  if (described.factor) json.member("factor", *described.factor);
  if (described.offset) json.member("offset", *described.offset);
  json.key("parents");
  json.beginObject();
  for (const Parent& parent : described.parents) json.member(parent.typeId, parent.power);
  json.endObject();
}

void writeTreeJson(JsonWriter& json, const Units::UnitsEngine& engine, const std::string& typeId) {
  json.key("ancestors");
  json.beginArray();
  walk(engine, typeId,
       [&](const Parent& definition, std::size_t depth, const Described& described, bool isNew) {
         if (!isNew || depth == 0) return;
         json.beginObject();
         json.member("typeId", definition.typeId);
         json.member("kind", described.kind);
         writeFactorAndParents(described, json);
         json.endObject();
       });
  json.endArray();
}

void writeJson(Context& context, const std::string& typeId, const Described& described,
               const std::vector<Field>& fields) {
  JsonWriter json;
  json.beginObject();
  for (const auto& [name, texts] : fields) {
    if (name == "factor" || name == "offset" || name == "parents") continue;
    if (name == "symbols" || name == "quantities" || name == "codes")
      json.member(name, texts);
    else
      json.member(name == "type id" ? "typeId" : name, texts.front());
  }
  writeFactorAndParents(described, json);
  if (context.arguments.has("tree")) writeTreeJson(json, context.definitions.engine(), typeId);
  json.endObject();
  context.out.write(json.text() + '\n');
}

}  // namespace

Status runShow(Context& context) {
  const std::string typeId = definitionNamed(context.arguments.operands[0], context.definitions);
  const Units::UnitsEngine& engine = context.definitions.engine();
  if (context.arguments.has("dot")) {
    context.print(dotOf(engine, typeId));
    return Status::Done;
  }
  const Described described = describe(engine, typeId);
  const auto fields = fieldsOf(typeId, described, context.definitions);
  if (context.wantsJson()) {
    writeJson(context, typeId, described, fields);
    return Status::Done;
  }
  std::vector<Row> rows;
  for (const auto& [name, texts] : fields) {
    std::string cell;
    for (const std::string& text : texts) cell += (cell.empty() ? "" : ", ") + shown(text);
    if (!cell.empty()) rows.push_back({name, cell});
  }
  writeColumns(context.out, rows);
  if (context.arguments.has("tree")) {
    context.out.write("\n");
    writeTree(context.out, engine, typeId);
  }
  return Status::Done;
}

}  // namespace tool
