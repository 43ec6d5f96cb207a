#include "tools/trelvon/Context.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <vector>

namespace tool {

namespace {

/// A constant of a definition, as a line of the file.
std::string constant(const std::string& id, const std::function<void(JsonWriter&)>& write) {
  JsonWriter json;
  json.beginObject();
  json.member("id", id);
  write(json);
  json.endObject();
  return json.text();
}

template <class Value>
std::string valueConstant(const std::string& id, const Value& value) {
  return constant(id, [&](JsonWriter& json) { json.member("value", value); });
}

void writeReference(JsonWriter& json, const std::string& typeId) {
  json.beginObject();
  json.member("typeid", typeId);
  json.endObject();
}

std::string referenceConstant(const std::string& id, const std::string& typeId) {
  return constant(id, [&](JsonWriter& json) {
    json.key("typedValue");
    writeReference(json, typeId);
  });
}

std::string powersConstant(const std::string& id, const std::map<std::string, int>& powers) {
  return constant(id, [&](JsonWriter& json) {
    json.key("value");
    json.beginObject();
    for (const auto& [typeId, power] : powers) json.member(typeId, power);
    json.endObject();
  });
}

/// The base and the constants of a definition.
struct Draft {
  std::string base;
  std::vector<std::string> constants;
};

/// Adds `NAME` or `NAME^POWER`. Tries the whole text as a name first: the text of a symbol may be
/// m^2.
template <class Find>
void addPower(const std::string& text, std::map<std::string, int>& powers, Find find) {
  const std::size_t caret = text.rfind('^');
  char* end = nullptr;
  const long power = caret == std::string::npos ? 0 : std::strtol(&text[caret + 1], &end, 10);
  const bool hasPower = power != 0 && power >= -999 && power <= 999 && *end == '\0';
  try {
    powers[find(text)] += 1;
  } catch (const Failure&) {
    if (!hasPower) throw;
    powers[find(text.substr(0, caret))] += static_cast<int>(power);
  }
}

/// A number with a unit, such as `67 in`, `5' 6"`, `67 inch` or `inch`.
struct Measure {
  double number = 1.0;
  std::string unit;
};

Measure readMeasure(Context& context, const std::string& text) {
  const auto explanation = explainFormula(context.definitions.engine(), text, {});
  const auto tokens = explanation.tokens();
  if (explanation.reason() == Units::FormulaReason::Done && tokens.size() == 1 &&
      !tokens[0].unitTypeId().empty())
    return {tokens[0].value(), tokens[0].unitTypeId()};
  const std::size_t space = text.find(' ');
  const bool hasNumber = space != std::string::npos && text.find_first_of("0123456789") < space;
  Measure measure;
  measure.unit = context.unit(hasNumber ? text.substr(space + 1) : text).getTypeId();
  if (hasNumber) measure.number = context.evaluate(text.substr(0, space), nullptr);
  return measure;
}

Draft draftUnit(Context& context) {
  const Arguments& arguments = context.arguments;
  Draft draft;
  draft.constants = {
      valueConstant("name", arguments.text("label", arguments.operands[1])),
      valueConstant("unitSystem", arguments.has("imperial") ? "Imperial" : "Metric")};
  if (arguments.has("dimension") && (arguments.has("from") || arguments.has("times")))
    throw Failure(Status::Usage, "--dimension cannot be combined with --from or --times");
  std::map<std::string, int> parents;
  for (const std::string& times : arguments.texts("times"))
    addPower(times, parents,
             [&](const std::string& name) { return context.unit(name).getTypeId(); });
  if (!arguments.has("from") && !arguments.has("offset") && parents.empty()) {
    draft.base = arguments.has("dimension") ? "unit.primitive.dimensional" : "unit.primitive";
    if (arguments.has("dimension"))
      draft.constants.push_back(referenceConstant(
          "dimension", dimensionNamed(arguments.text("dimension"), context.definitions)));
    return draft;
  }
  Measure from;
  if (arguments.has("from")) {
    from = readMeasure(context, arguments.text("from"));
    parents[from.unit] += 1;
  }
  if (arguments.has("offset")) {
    if (parents.size() != 1 || from.unit.empty() || from.number != 1.0)
      throw Failure(Status::Usage, "--offset needs --from UNIT, without a number");
    draft.base = "unit.absolute";
    draft.constants.push_back(referenceConstant("parentUnit", from.unit));
    draft.constants.push_back(
        valueConstant("offset", context.evaluate(arguments.text("offset"), nullptr)));
    return draft;
  }
  draft.base = "unit.derived";
  draft.constants.push_back(valueConstant("factor", from.number));
  draft.constants.push_back(powersConstant("parentUnits", parents));
  return draft;
}

Draft draftQuantity(Context& context) {
  const Arguments& arguments = context.arguments;
  return {"quantity",
          {valueConstant("name", arguments.text("label", arguments.operands[1])),
           constant("units", [&](JsonWriter& json) {
             json.key("typedValue");
             json.beginArray();
             for (const std::string& unit : arguments.texts("of"))
               writeReference(json, context.unit(unit).getTypeId());
             json.endArray();
           })}};
}

Draft draftSymbol(Context& context) {
  const Arguments& arguments = context.arguments;
  if (arguments.texts("of").size() != 1)
    throw Failure(Status::Usage, "new symbol needs one --of UNIT");
  return {"symbol.prefixOrSuffix",
          {referenceConstant("unit", context.unit(arguments.text("of")).getTypeId()),
           valueConstant("text", arguments.text("text", arguments.operands[1])),
           valueConstant("placement", arguments.has("prefix") ? "Prefix" : "Suffix"),
           valueConstant("space", !arguments.has("no-space"))}};
}

Draft draftFactor(Context& context) {
  const Arguments& arguments = context.arguments;
  std::map<std::string, int> parents;
  for (const std::string& of : arguments.texts("of"))
    addPower(of, parents,
             [&](const std::string& name) { return factorNamed(name, context.definitions); });
  if (!arguments.has("value") && parents.empty())
    throw Failure(Status::Usage, "new factor needs --value NUMBER or --of FACTOR");
  Draft draft = {parents.empty() ? "factor" : "factor.derived", {}};
  draft.constants.push_back(
      valueConstant("factor", context.evaluate(arguments.text("value", "1"), nullptr)));
  if (!parents.empty()) draft.constants.push_back(powersConstant("parentFactors", parents));
  return draft;
}

/// What can be drafted, and which options it takes.
struct Kind {
  const char* name;
  const char* folder;
  std::vector<std::string> options;
  Draft (*draft)(Context& context);
};

const Kind& kindNamed(const std::string& name) {
  static const std::vector<Kind> kinds = {
      {"unit", "units", {"from", "times", "offset", "dimension", "label", "imperial"}, draftUnit},
      {"quantity", "quantities", {"of", "label"}, draftQuantity},
      {"symbol", "symbols", {"of", "text", "prefix", "no-space"}, draftSymbol},
      {"factor", "factors", {"value", "of"}, draftFactor},
      {"dimension", "dimensions", {}, [](Context&) {
         return Draft{"dimension", {}};
       }}};
  for (const Kind& kind : kinds)
    if (kind.name == name) return kind;
  throw Failure(Status::Usage,
                inQuotes(name) + " is not one of unit, quantity, symbol, factor, dimension");
}

void checkOptions(const Arguments& arguments, const Kind& kind) {
  for (const char* const option : {"from", "times", "offset", "dimension", "label", "imperial",
                                   "of", "text", "prefix", "no-space", "value"})
    if (arguments.has(option) &&
        std::find(kind.options.begin(), kind.options.end(), option) == kind.options.end())
      throw Failure(Status::Usage, std::string("new ") + kind.name + " has no --" + option);
  const std::string& name = arguments.operands[1];
  const bool isPlain = std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.';
  });
  if (!isPlain || name.empty() || name.front() == '.')
    throw Failure(Status::Usage, inQuotes(name) +
                                     " becomes a type id and a file name: use letters, digits, "
                                     "underscores and points; --label and --text take any text");
}

std::string fileText(const std::string& typeId, const Draft& draft) {
  const auto jsonText = [](const std::string& text) {
    JsonWriter json;
    json.value(text);
    return json.text();
  };
  std::string text = "{\n  \"$schema\": " +
                     jsonText(Definitions::besideCatalog("schemas/definition.schema.json")) +
                     ",\n  \"typeid\": " + jsonText(typeId) + ",\n  \"inherits\": [" +
                     jsonText("vellamor.unit:" + draft.base + "-1.0.0") + "]";
  for (const std::string& line : draft.constants)
    text += (&line == &draft.constants.front() ? ",\n  \"constants\": [\n    " : ",\n    ") + line;
  return text + (draft.constants.empty() ? "\n}\n" : "\n  ]\n}\n");
}

}  // namespace

Status runNew(Context& context) {
  const Arguments& arguments = context.arguments;
  const Kind& kind = kindNamed(arguments.operands[0]);
  checkOptions(arguments, kind);
  // There is no default: everything in the folder is loaded, and the current folder could be any.
  if (!arguments.has("in")) throw Failure(Status::Usage, "new needs --in FOLDER");
  const std::string& name = arguments.operands[1];
  const std::filesystem::path folder = arguments.text("in");
  const std::string path = (folder / kind.folder / (name + ".json")).string();
  refuseToReplace(path);
  std::error_code unknown;
  if (std::filesystem::is_directory(folder, unknown)) context.definitions.load(folder.string());
  Units::UnitsEngine& engine = context.definitions.engine();

  const std::string typeId =
      arguments.text("namespace", "my") + '.' + kind.name + ':' + name + "-1.0.0";
  const std::string text = fileText(typeId, kind.draft(context));
  try {
    engine.addDefinition(text);
    engine.buildSchemas();
  } catch (const Units::ValidationException& error) {
    throw Failure(Status::Findings, shown(error.what()));
  }
  writeFile(path, text, false);
  if (!context.wantsJson()) {
    context.out.write(shown(path) + '\n');
    return Status::Done;
  }
  JsonWriter json;
  json.beginObject();
  json.member("file", path);
  json.member("typeId", typeId);
  json.endObject();
  context.out.write(json.text() + '\n');
  return Status::Done;
}

}  // namespace tool
