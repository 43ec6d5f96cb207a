#include "model/ShownText.h"
#include "reporting/ExplanationJson.h"

#include <TrelvonUnits/ParameterTable.h>

namespace Units {

namespace {

void write(JsonText& json, const ParameterExplanation& parameter) {
  json.beginObject();
  json.key("name").text(parameter.name);
  json.key("formula").text(wholeText(parameter.formula));
  if (!parameter.unitTypeId.empty()) json.key("unit").text(wholeText(parameter.unitTypeId));
  if (!parameter.message.empty()) json.key("message").text(wholeText(parameter.message));
  if (parameter.explanation) {
    json.key("explanation");
    writeExplanation(json, *parameter.explanation);
  }
  json.endObject();
}

}  // namespace

std::string ParameterTable::explainJson(const std::string& name) const {
  JsonText json;
  json.beginObject();
  json.key("parameters").beginArray();
  for (const ParameterExplanation& parameter : explain(name)) write(json, parameter);
  json.endArray();
  json.endObject();
  return json.str();
}

std::string ParameterTable::explainText(const std::string& name) const {
  std::string text;
  for (const ParameterExplanation& parameter : explain(name)) {
    text += (text.empty() ? "" : "\n") + parameter.name + ":\n";
    text += parameter.explanation
                ? parameter.explanation->toText()
                : shownText(parameter.formula) + "\n" + shownText(parameter.message) + "\n";
  }
  return text;
}

}  // namespace Units
