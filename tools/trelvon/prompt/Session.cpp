#include "tools/trelvon/prompt/Session.h"

#include "tools/trelvon/Commands.h"
#include "tools/trelvon/NameReading.h"
#include "tools/trelvon/Readings.h"
#include "tools/trelvon/Running.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/prompt/LineCompletion.h"
#include "tools/trelvon/prompt/ShellWords.h"

#include <algorithm>
#include <cmath>

namespace tool {

namespace {

constexpr std::size_t longestVariable = 10000;

std::string trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return std::string(text.substr(begin, text.find_last_not_of(" \t") + 1 - begin));
}

/// The formula with its variables replaced by their texts, so that it keeps its meaning when they
/// change. These texts have no variables of their own.
std::string withoutVariables(const Units::FormulaExplanation& explanation) {
  std::string text;
  std::size_t copied = 0;
  for (const auto& replacement : explanation.texts()) {
    const Units::FormulaSpan place = replacement.identifier();
    if (place.end == 0) continue;  // the formula itself
    text.append(explanation.formula(), copied, place.begin - copied);
    text += replacement.text();
    copied = place.end;
  }
  return text.append(explanation.formula(), copied, std::string::npos);
}

/// Whether a value has few zeros before or after its first digits.
bool readsWell(double value) {
  constexpr double least = 0.001, tooLarge = 100000;
  return std::fabs(value) >= least && std::fabs(value) < tooLarge;
}

/// The place of the next unit in a list in which a value reads well, or simply the next one.
template <class ValueIn>
std::size_t placeAfter(std::size_t place, const std::vector<Units::Unit>& units, ValueIn valueIn) {
  for (std::size_t step = 1; step < units.size(); ++step) {
    const std::size_t next = (place + step) % units.size();
    if (readsWell(valueIn(units[next]))) return next;
  }
  return (place + 1) % units.size();
}

}  // namespace

const char* const promptHelp =
    "5' 6\" + 3 cm      a formula: shows its value\n"
    "x = 2 ft          sets a variable and shows its value\n"
    "?                 explains the last formula\n"
    "=                 shows the last value in the next unit of its quantity\n"
    "= in              shows it in a unit\n"
    "convert 5 ft in   a command, as in a shell; see `convert --help`, and\n"
    "                  `trelvon --help` for all commands\n"
    "quit              ends the session, as does Ctrl-D\n";

Status Session::run(const std::string& given) {
  const std::string line = trimmed(given);
  const Command* const command = findCommand(line.substr(0, line.find_first_of(" \t")));
  if (command != nullptr && !command->isHidden) return runCommand(line);
  if (line == "help") start_.out.write(promptHelp);
  if (line == "quit" || line == "exit") hasEnded_ = true;
  if (line.empty() || line == "help" || hasEnded_) return Status::Done;
  if (line == "?") return explainLast();
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return evaluate({line, variables_});
  const std::string name = trimmed(line.substr(0, equals));
  const std::string text = trimmed(line.substr(equals + 1));
  return name.empty() ? showLastIn(text) : assign(name, text);
}

Completions Session::complete(std::string_view before) const {
  std::vector<std::string> names;
  for (const auto& [name, text] : variables_) names.push_back(name);
  return completeLine(before, names, start_.definitions);
}

Arguments Session::argumentsOf(const char* command, const Formula& formula) const {
  Arguments arguments;
  arguments.command = findCommand(command);
  arguments.operands = {formula.text};
  arguments.options = start_.arguments.options;
  for (const auto& [name, text] : formula.variables)
    arguments.options["set"].push_back(name + '=' + text);
  return arguments;
}

Status Session::evaluate(const Formula& formula) {
  last_ = formula;
  const Arguments arguments = argumentsOf("eval", formula);
  Context context(arguments, start_.out, start_.errors, &start_.definitions);
  return arguments.command->run(context);
}

Status Session::assign(const std::string& name, const std::string& text) {
  const Units::UnitsEngine& engine = start_.definitions.engine();
  const NameReading reading = readName(engine, name);
  if (!reading.isFree)
    throw Failure(Status::Findings,
                  inQuotes(name) + " cannot be a variable: it is read as " + reading.what);
  const Formula formula = {text, variables_};
  const Arguments arguments = argumentsOf("eval", formula);
  const Context context(arguments, start_.out, start_.errors, &start_.definitions);
  const std::string kept = withoutVariables(explainFormula(engine, text, context.variables()));
  if (kept.size() > longestVariable)
    throw Failure(Status::Findings, inQuotes(name) + " would have a text of more than " +
                                        std::to_string(longestVariable) + " bytes");
  const Status status = evaluate(formula);
  variables_[name] = kept;
  return status;
}

Status Session::explainLast() {
  if (last_.text.empty()) throw Failure(Status::Findings, "there is no formula yet");
  const Arguments arguments = argumentsOf("explain", last_);
  Context context(arguments, start_.out, start_.errors, &start_.definitions);
  arguments.command->run(context);
  return Status::Done;  // the refusal has been reported before
}

Status Session::showLastIn(const std::string& text) {
  const Arguments arguments = argumentsOf("eval", last_);
  Context context(arguments, start_.out, start_.errors, &start_.definitions);
  const VariableResolver variables = context.variables();
  const Units::UnitsEngine& engine = context.definitions.engine();
  const auto explanation = explainFormula(engine, last_.text, variables);
  if (explanation.reason() != Units::FormulaReason::Done)
    throw Failure(Status::Findings, "there is no value to show");
  const auto readings = readingsOf(engine, explanation, variables);
  const auto units = readings.empty() ? std::vector<Units::Unit>()
                                      : engine.getQuantity(readings[0].quantityTypeId).getUnits();
  if (text.empty() && units.empty())
    throw Failure(Status::Findings, "no quantity fits the value; `= UNIT` shows it in a unit");
  const auto explainedIn = [&](const Units::Unit& unit) {
    return explainFormula(engine, unit.getTypeId(), last_.text, variables);
  };
  const auto valueIn = [&](const Units::Unit& unit) { return explainedIn(unit).value(); };
  const Units::Unit unit =
      text.empty() ? units[placeAfter(last_.place, units, valueIn)] : context.unit(text);
  const auto shownIn = explainedIn(unit);
  if (shownIn.reason() != Units::FormulaReason::Done)
    context.accepted(shownIn);  // which refuses it
  const auto found = std::find(units.begin(), units.end(), unit);
  const bool isListed = found != units.end();
  if (isListed) last_.place = static_cast<std::size_t>(found - units.begin());
  writeReadings(context, {{shownIn.value(), unit, isListed ? readings[0].quantity : ""}}, {});
  return Status::Done;
}

Status Session::runCommand(const std::string& line) {
  const ShellWords read = shellWords(line);
  if (read.isOpen) throw Failure(Status::Usage, "a quote is not closed");
  Arguments arguments = readArguments(read.words);
  for (const char* const option : {"column", "watch"})
    if (arguments.has(option))
      throw Failure(Status::Usage, std::string("--") + option + " does not work at a prompt");
  const bool addsDefinitions = arguments.command->name == "new" && !arguments.has("help");
  const bool hasOwn = arguments.has("load") || arguments.has("only") || arguments.has("strict");
  const auto& common = start_.arguments.options;
  arguments.options.insert(common.begin(), common.end());  // those that are missing
  for (const auto& [name, text] : variables_) {
    auto& set = arguments.options["set"];
    set.insert(set.begin(), name + '=' + text);
  }
  Context context(arguments, start_.out, start_.errors,
                  hasOwn || addsDefinitions ? nullptr : &start_.definitions);
  const Status status = runArguments(context);
  if (addsDefinitions) {
    start_.definitions.load(arguments.text("in"));
    start_.definitions.unload();
  }
  return status;
}

}  // namespace tool
