#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Readings.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

namespace tool {

namespace {

/// The powers, if all are whole.
std::optional<Units::PrimitivePowers> wholePowers(const std::map<std::string, double>& powers) {
  constexpr double largest = 1e9;
  Units::PrimitivePowers whole;
  for (const auto& [unit, power] : powers) {
    if (std::fabs(power) > largest || power != std::trunc(power)) return std::nullopt;
    whole[unit] = static_cast<int>(power);
  }
  return whole;
}

bool listsAnyOf(const std::vector<Units::Unit>& units, const std::set<std::string>& typeIds) {
  return std::any_of(units.begin(), units.end(),
                     [&](const Units::Unit& unit) { return typeIds.count(unit.getTypeId()) != 0; });
}

}  // namespace

std::vector<Reading> readingsOf(const Units::UnitsEngine& engine,
                                const Units::FormulaExplanation& explanation,
                                const VariableResolver& variables) {
  const auto powers = wholePowers(explanation.powers());
  if (!powers || powers->empty()) return {};
  std::set<std::string> used;
  for (const auto& token : explanation.tokens()) used.insert(token.unitTypeId());
  std::vector<Reading> readings;
  const auto fitting = engine.getUnitsWithPrimitivePowers(*powers);
  for (const auto& [typeId, quantity] : engine.getQuantities()) {
    const auto units = quantity.getUnits();
    if (units.empty() || fitting.count(units.front().getTypeId()) == 0) continue;
    const std::string unit = units.front().getTypeId();
    readings.push_back({engine.evaluateExpressionInUnit(unit, explanation.formula(), variables),
                        units.front(), quantity.getName(), !listsAnyOf(units, used),
                        engine.getDependencies(unit).size(), typeId});
  }
  std::vector<const Reading*> order;
  for (const Reading& reading : readings) order.push_back(&reading);
  std::stable_sort(order.begin(), order.end(), [](const Reading* left, const Reading* right) {
    return std::pair(left->isStranger, left->derivation) <
           std::pair(right->isStranger, right->derivation);
  });
  std::vector<Reading> sorted;
  for (const Reading* const reading : order) sorted.push_back(*reading);
  return sorted;
}

namespace {

std::string powersText(const std::map<std::string, double>& powers,
                       const Units::UnitsEngine& engine) {
  std::string text;
  for (const auto& [typeId, power] : powers) {
    text += (text.empty() ? "" : " * ") + engine.getUnit(typeId).getName();
    if (power != 1.0) text += '^' + shortestText(power);
  }
  return text;
}

void writeReading(JsonWriter& json, const Reading& reading, const std::string& text) {
  json.beginObject();
  json.member("value", reading.value);
  json.member("text", text);
  json.member("unit", reading.unit.getTypeId());
  if (!reading.quantity.empty()) json.member("quantity", reading.quantity);
  json.endObject();
}

/// The first value, and the names of the other quantities.
void writeText(Output& out, const Units::UnitsEngine& engine, const std::vector<Reading>& readings,
               const NumberFormat& format) {
  const Reading& first = readings.front();
  out.write(shown(numberText(engine, first.value, format)));
  if (!first.quantity.empty())
    out.write(' ' + shown(first.unit.getName()) + "  (" + shown(first.quantity) + ')');
  for (std::size_t index = 1; index < readings.size(); ++index)
    out.write((index == 1 ? "\nalso: " : ", ") + shown(readings[index].quantity));
  out.write("\n");
}

}  // namespace

void writeReadings(Context& context, const std::vector<Reading>& readings,
                   const NumberFormat& format) {
  const Units::UnitsEngine& engine = context.definitions.engine();
  if (!context.wantsJson()) {
    writeText(context.out, engine, readings, format);
    return;
  }
  JsonWriter json;
  json.beginObject();
  json.member("formula", context.arguments.operands[0]);
  json.key("readings");
  json.beginArray();
  for (const Reading& reading : readings)
    writeReading(json, reading, numberText(engine, reading.value, format));
  json.endArray();
  json.endObject();
  context.out.write(json.text() + '\n');
}

namespace {

/// A value that no quantity lists: in primitive units, or a plain number.
void writePrimitive(Context& context, double value, const std::map<std::string, double>& powers,
                    const NumberFormat& format) {
  const Units::UnitsEngine& engine = context.definitions.engine();
  const std::string text = numberText(engine, value, format);
  if (!context.wantsJson()) {
    const std::string units = shown(powersText(powers, engine));
    context.out.write(shown(text) + (units.empty() ? "" : ' ' + units) + '\n');
    return;
  }
  JsonWriter json;
  json.beginObject();
  json.member("formula", context.arguments.operands[0]);
  json.member("value", value);
  json.member("text", text);
  json.key("powers");
  json.beginObject();
  for (const auto& [unit, power] : powers) json.member(unit, power);
  json.endObject();
  json.endObject();
  context.out.write(json.text() + '\n');
}

}  // namespace

Status runEval(Context& context) {
  const std::string& formula = context.arguments.operands[0];
  std::optional<std::string> unit;
  if (context.arguments.has("to")) unit = context.unit(context.arguments.text("to")).getTypeId();
  const NumberFormat format = context.numberFormat(unit);
  const Units::UnitsEngine& engine = context.definitions.engine();
  if (unit) {
    const double value = context.evaluate(formula, &*unit);
    writeReadings(context, {{value, engine.getUnit(*unit), ""}}, format);
    return Status::Done;
  }
  const Units::FormulaExplanation explanation =
      context.accepted(explainFormula(engine, formula, context.variables()));
  const auto found = readingsOf(engine, explanation, context.variables());
  if (found.empty())
    writePrimitive(context, explanation.value(), explanation.powers(), format);
  else
    writeReadings(context, found, format);
  return Status::Done;
}

}  // namespace tool
