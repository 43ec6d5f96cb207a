#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/NameReading.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <vector>

namespace tool {

using Explanation = Units::FormulaExplanation;

NameReading readName(const Units::UnitsEngine& engine, const std::string& name) {
  const Explanation explanation =
      explainFormula(engine, name, [](const std::string&) { return std::string("1"); });
  NameReading reading;
  reading.name = name;
  const auto texts = explanation.texts();
  if (texts.size() == 2) {
    const Units::FormulaSpan place = texts[1].identifier();
    reading.isFree = place.text == 0 && place.begin == 0 && place.end == name.size();
  }
  if (reading.isFree) return reading;
  for (const auto& token : explanation.tokens()) {
    if (token.span().text != 0) continue;
    const auto& known = reading.symbols;
    if (std::find(known.begin(), known.end(), token.symbolTypeId()) != known.end()) continue;
    if (!token.symbolTypeId().empty()) {
      reading.symbols.push_back(token.symbolTypeId());
      reading.what += (reading.what.empty() ? "" : ", ") +
                      inQuotes(engine.getSymbol(token.symbolTypeId()).getUnit().getName()) +
                      " by " + shown(token.symbolTypeId());
    } else if (token.kind() == Explanation::TokenKind::Function) {
      reading.what +=
          (reading.what.empty() ? "the function " : ", the function ") + shown(token.text());
    }
  }
  if (reading.what.empty()) reading.what = "other parts of a formula";
  return reading;
}

Status runNames(Context& context) {
  const Units::UnitsEngine& engine = context.definitions.engine();
  std::vector<NameReading> readings;
  bool allFree = true;
  for (const std::string& name : context.arguments.operands) {
    readings.push_back(readName(engine, name));
    allFree = allFree && readings.back().isFree;
  }
  if (context.wantsJson()) {
    JsonWriter json;
    json.beginObject();
    json.key("names");
    json.beginArray();
    for (const NameReading& reading : readings) {
      json.beginObject();
      json.member("name", reading.name);
      json.member("free", reading.isFree);
      json.member("symbols", reading.symbols);
      json.endObject();
    }
    json.endArray();
    json.endObject();
    context.out.write(json.text() + '\n');
  } else {
    for (const NameReading& reading : readings)
      context.out.write(shown(reading.name) +
                        (reading.isFree ? ": free\n" : ": read as " + reading.what + '\n'));
  }
  return allFree ? Status::Done : Status::Findings;
}

}  // namespace tool
