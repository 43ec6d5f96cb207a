/// Answers the calls of cases.py by the C++ interface. The arguments are folders of definitions.
#include "tests/cases/Lines.h"
#include "tests/support/Outcome.h"
#include "tests/support/PlaceInFormula.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>

using namespace Units;

namespace {

const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
std::unique_ptr<UnitNames> names;
std::unique_ptr<UnitCodes> codes = std::make_unique<UnitCodes>();
std::vector<std::string> results;

std::string text(std::size_t index) { return {words[index].data, words[index].size}; }
double number(std::size_t index) { return std::strtod(words[index].data, nullptr); }
int count(std::size_t index) { return std::atoi(words[index].data); }
std::optional<std::string> optionalText(std::size_t index) {
  if (words[index].data == nullptr) return std::nullopt;
  return text(index);
}

void add(const std::string& result) { results.push_back(result); }
void add(double result) { add(written(result)); }
void add(int result) { add(std::to_string(result)); }
void add(bool result) { add(result ? 1 : 0); }
void add(const std::map<std::string, int>& powers) {
  for (const auto& [typeId, exponent] : powers) add(typeId), add(exponent);
}
void add(const Dimension& dimension) { add(dimension.getTypeId()); }
void add(const Factor& factor) {
  add(factor.getTypeId());
  add(factor.getFactorComponent().getFactor());
  add(factor.getFactorComponent().getParentFactorPowers());
}
void add(const Unit& unit) {
  const auto primitive = unit.getPrimitiveUnitComponent();
  const auto absolute = unit.getAbsoluteUnitComponent();
  const auto derived = unit.getDerivedUnitComponent();
  const auto dimension = primitive ? primitive->getDimension() : std::nullopt;
  add(unit.getTypeId());
  add(unit.getName());
  add(static_cast<int>(unit.getUnitSystem()));
  add(primitive ? 0 : derived ? 1 : 2);
  add(dimension ? dimension->getTypeId() : std::string());
  add(absolute ? absolute->getParentUnit() : std::string());
  add(absolute ? absolute->getOffset() : 0.0);
  add(derived ? derived->getFactorComponent().getFactor() : 0.0);
  if (!derived) return;
  add(derived->getParentUnitPowers());
  add(derived->getFactorComponent().getParentFactorPowers());
}
void add(const Symbol& symbol) {
  const auto shown = symbol.getPrefixOrSuffix();
  add(symbol.getTypeId());
  add(symbol.getUnit().getTypeId());
  add(!shown);
  add(shown && shown->getPlacement() == Placement::Prefix);
  add(shown && shown->hasSpace());
  add(shown ? shown->getText() : std::string());
}
void add(const Quantity& quantity) {
  add(quantity.getTypeId());
  add(quantity.getName());
  for (const Unit& unit : quantity.getUnits()) add(unit.getTypeId());
}
void add(const UnitName& name) {
  add(name.getText());
  add(name.getUnit().getTypeId());
  add(static_cast<int>(name.getKind()));
  add(name.isExact());
}
void add(const ParameterProblem& problem) { add(problem.message); }
void add(const Schemas::SchemaReport& report) {
  add(static_cast<int>(report.getErrorCount()));
  add(static_cast<int>(report.getWarningCount()));
  add(report.toText());
}
template <class Record>
void add(const std::map<std::string, Record>& records) {
  for (const auto& entry : records) add(entry.second);
}
template <class Items>
auto add(const Items& items) -> decltype(items.begin(), void()) {
  for (const auto& item : items) add(item);
}

/// What a resolver throws to refuse otherwise than by a ParseException: STATUS MESSAGE.
struct Refusal {
  std::string said;
};

VariableResolver resolver(std::size_t first) {
  if (first >= word_count) return {};
  return [first](const std::string& name) -> std::string {
    for (std::size_t i = first; i < word_count; ++i) {
      if (text(i).rfind(name + "=", 0) != 0) continue;
      const std::string value = text(i).substr(name.size() + 1);
      if (value.rfind("!PARSE ", 0) == 0) throw ParseException(value.substr(7));
      if (value[0] == '!') throw Refusal{value.substr(1)};
      return value;
    }
    throw Refusal{"CALLBACK no such variable"};
  };
}

using Explain = FormulaExplanation (*)(const VariableResolver&);

HiddenVariables hidden() {
  return text(0).find("_hidden") == std::string::npos ? HiddenVariables::Ignore
                                                      : HiddenVariables::Ask;
}
FormulaExplanation explain(const VariableResolver& calls) {
  const auto unit = optionalText(1);
  return unit ? explainFormula(*engine, *unit, text(2), calls, hidden())
              : explainFormula(*engine, text(2), calls, hidden());
}
FormulaExplanation explainUnitless(const VariableResolver& calls) {
  return explainUnitlessFormula(*engine, text(1), calls, hidden());
}

/// The place of a refusal, as an explanation has it.
std::string span(Explain explained, std::size_t firstVariable) {
  const VariableResolver calls = resolver(firstVariable);
  const auto parsing = [&](const std::string& name) {
    try {
      if (calls) return calls(name);
    } catch (const Refusal&) {
    }
    throw ParseException("refused");
  };
  const FormulaSpan place = placeInFormula(explained(parsing));
  return "\t" + std::to_string(place.begin) + "\t" + std::to_string(place.end);
}

Schemas::ReportOptions options(std::size_t index) {
  Schemas::ReportOptions made;
  made.lint = !(count(index) & 1);
  made.leaveOutWhatCannotBuild = count(index) & 2;
  made.keepGoing = !(count(index) & 4);
  if (word_count > index + 1) made.variableNames.emplace();
  for (std::size_t i = index + 1; i < word_count; ++i) made.variableNames->push_back(text(i));
  return made;
}

template <class Of>
void withKind(const Of& of) {
  const std::string kind = text(1);
  if (kind == "dimension") of(&UnitsEngine::getDimension, &UnitsEngine::getDimensions);
  if (kind == "factor") of(&UnitsEngine::getFactor, &UnitsEngine::getFactors);
  if (kind == "unit") of(&UnitsEngine::getUnit, &UnitsEngine::getUnits);
  if (kind == "symbol") of(&UnitsEngine::getSymbol, &UnitsEngine::getSymbols);
  if (kind == "quantity") of(&UnitsEngine::getQuantity, &UnitsEngine::getQuantities);
}

Unit unit() { return {text(1), "", System::Metric, PrimitiveUnitComponent()}; }

const std::string* symbolOf(const std::optional<std::string>& symbol) {
  return symbol ? &*symbol : nullptr;
}

double evaluate() {
  const auto calls = resolver(3);
  return calls ? engine->evaluateExpressionInUnit(text(1), text(2), calls)
               : engine->evaluateExpressionInUnit(text(1), text(2));
}

double evaluateUnitless() {
  const auto calls = resolver(2);
  return calls ? engine->evaluateUnitlessExpression(text(1), calls)
               : engine->evaluateUnitlessExpression(text(1));
}

std::vector<double> preparedArray() {
  std::vector<double> values;
  for (std::size_t i = 3; i < word_count; ++i) values.push_back(number(i));
  PreparedConversion(*engine, text(1), text(2))
      .convert(values.data(), values.data(), values.size());
  return values;
}

PrimitivePowers powers() {
  PrimitivePowers made;
  for (std::size_t i = 1; i + 1 < word_count; i += 2) made[text(i)] = count(i + 1);
  return made;
}

void learnNames() {
  codes = std::make_unique<UnitCodes>(UnitCodes::fromText(text(1)));
  names = std::make_unique<UnitNames>(*engine, *codes);
}

std::optional<Dimension> optionalDimension() {
  const auto typeId = optionalText(1);
  if (!typeId) return std::nullopt;
  return Dimension(*typeId);
}

/// What a display refuses to read.
struct Unread {
  DisplayReading reading;
};

ValueDisplay display() { return ValueDisplay::fromJson(*engine, text(1)); }

double displayRead() {
  const DisplayReading reading = display().read(text(2));
  if (!reading.isRead()) throw Unread{reading};
  return reading.value();
}

/// A table that is filled by words: "set|NAME|FORMULA|UNIT", "rename|NAME|NAME" or "remove|NAME".
std::unique_ptr<ParameterTable> table() {
  auto made = std::make_unique<ParameterTable>(*engine);
  for (std::size_t i = 3; i < word_count; ++i) {
    std::vector<std::string> parts(4);
    std::istringstream step(text(i));
    for (std::string& part : parts) std::getline(step, part, '|');
    if (parts[0] == "set") made->set(parts[1], parts[2], parts[3]);
    if (parts[0] == "rename") made->rename(parts[1], parts[2]);
    if (parts[0] == "remove") made->remove(parts[1]);
  }
  return made;
}

double parameterValue() {
  const auto unit = optionalText(2);
  return unit ? table()->value(text(1), *unit) : table()->value(text(1));
}

#define GIVE(name, result)    \
  {                           \
    name, [] { add(result); } \
  }
const std::map<std::string, std::function<void()>> calls = {
    GIVE("convert", engine->convert(number(1), text(2), text(3))),
    GIVE("prepared_array", preparedArray()),
    GIVE("prepared", PreparedConversion(*engine, text(1), text(2))(number(3))),
    GIVE("can_convert", engine->canConvert(text(1), text(2))),
    GIVE("format_fixed", engine->formatFixedPoint(number(1), static_cast<unsigned char>(count(2)),
                                                  symbolOf(optionalText(3)), count(4) != 0)),
    GIVE("format_fractional",
         engine->formatFractional(number(1), static_cast<unsigned char>(count(2)),
                                  symbolOf(optionalText(3)))),
    GIVE("display_show", display().show(number(2))),
    GIVE("display_read", displayRead()),
    GIVE("display_read_json", display().read(text(2)).toJson()),
    GIVE("display_json", display().toJson()),
    GIVE("display_unit", display().unitTypeId()),
    GIVE("display_locales", ValueDisplay::locales()),
    GIVE("parameters_value", parameterValue()),
    GIVE("parameters_evaluate", static_cast<int>(table()->evaluate())),
    GIVE("parameters_formula", table()->formula(text(1))),
    GIVE("parameters_unit", table()->unitTypeId(text(1))),
    GIVE("parameters_names", table()->names()),
    GIVE("parameters_references", table()->references(text(1))),
    GIVE("parameters_dependents", table()->dependents(text(1))),
    GIVE("parameters_problems", table()->problems()),
    GIVE("parameters_explain_text", table()->explainText(text(1))),
    GIVE("parameters_explain_json", table()->explainJson(text(1))),
    GIVE("evaluate", evaluate()),
    GIVE("evaluate_unitless", evaluateUnitless()),
    GIVE("explain", explain(resolver(3)).toText()),
    GIVE("explain_hidden", explain(resolver(3)).toText()),
    GIVE("explain_unitless_hidden", explainUnitless(resolver(2)).toText()),
    GIVE("explain_tree", explain(resolver(3)).toTree()),
    GIVE("explain_json", explain(resolver(3)).toJson()),
    GIVE("explain_unitless", explainUnitless(resolver(2)).toText()),
    GIVE("add_definition", engine->addDefinition(text(1))),
    {"build_schemas", [] { engine->buildSchemas(); }},
    GIVE("definition", engine->getDefinition(text(1))),
    GIVE("dependencies", engine->getDependencies(text(1))),
    GIVE("is_registered", engine->isRegistered(text(1))),
    {"add_folder", [] { Schemas::SchemaUtility::addDefinitionsFromFolder(text(1), *engine); }},
    {"add_bundle", [] { Schemas::SchemaBundle::addDefinitionsFromBuffer(text(1), *engine); }},
    {"add_bundle_file", [] { Schemas::SchemaBundle::addDefinitionsFromFile(text(1), *engine); }},
    GIVE("load_folder", Schemas::loadFolders({text(1)}, *engine, options(2))),
    GIVE("load_text", Schemas::loadTexts({{text(1), text(2)}}, *engine, options(3))),
    GIVE("load_bundle", Schemas::loadBundle(text(1), text(2), *engine, options(3))),
    GIVE("load_report_json",
         Schemas::loadTexts({{text(1), text(2)}}, *engine, options(3)).toJson()),
    GIVE("load_report_sarif",
         Schemas::loadTexts({{text(1), text(2)}}, *engine, options(3)).toSarif()),
    GIVE("check_text", Schemas::checkText(text(1), text(2), *engine)),
    {"record", [] { withKind([](auto one, auto) { add(((*engine).*one)(text(2))); }); }},
    {"records", [] { withKind([](auto, auto all) { add(((*engine).*all)()); }); }},
    GIVE("primitive_units", engine->getPrimitiveUnits()),
    GIVE("primitive_units_of", engine->getPrimitiveUnitsOfDimension(optionalDimension())),
    GIVE("convertible_units", engine->getConvertibleUnits(text(1))),
    GIVE("units_with_powers", engine->getUnitsWithPrimitivePowers(powers())),
    GIVE("symbols_of", engine->getSymbolsOfUnit(text(1))),
    GIVE("quantities_of", engine->getQuantitiesOfUnit(text(1))),
    {"learn_names", learnNames},
    GIVE("find", names->find(text(1))),
    GIVE("find_best", names->findBest(text(1))),
    GIVE("find_code", names->findCode(text(1), text(2))),
    GIVE("suggest", names->suggest(text(1), static_cast<std::size_t>(count(2)))),
    GIVE("completions", names->completions(text(1), static_cast<std::size_t>(count(2)))),
    GIVE("names_of", names->namesOf(unit())),
    GIVE("why_not", names->whyNot(text(1))),
    GIVE("unambiguous", names->unambiguousName(unit())),
    GIVE("local_id", UnitNames::localId(text(1))),
    GIVE("systems", codes->getSystems()),
    GIVE("codes", codes->getCodes(text(1), text(2)))};

void print(const char* status, const std::string& message, bool isOfUnit = false) {
  std::fputs(status, stdout);
  print_word(message.data(), message.size());
  const std::string call = text(0);
  if (call == "evaluate" && !isOfUnit) std::fputs(span(explain, 3).c_str(), stdout);
  if (call == "evaluate_unitless") std::fputs(span(explainUnitless, 2).c_str(), stdout);
}

void answer() {
  results.clear();
  try {
    calls.at(text(0))();
    std::fputs("OK", stdout);
    for (const std::string& result : results) print_word(result.data(), result.size());
  } catch (const UnrecognizedIdentifierException& error) {
    print("UNRECOGNIZED", error.what(), true);
  } catch (const ValidationException& error) {
    print("VALIDATION", error.what());
  } catch (const IncompatibleUnitsException& error) {
    print("INCOMPATIBLE", error.what());
  } catch (const PrecisionException& error) {
    print("PRECISION", error.what());
  } catch (const ParseException& error) {
    print("PARSE", error.what());
  } catch (const Unread& unread) {
    print("PARSE", unread.reading.sentence());
    std::printf("\t%zu\t%zu", unread.reading.span().begin, unread.reading.span().end);
  } catch (const std::logic_error& error) {
    print(text(0) == "learn_names" ? "PARSE" : "FILE", error.what());
  } catch (const Refusal& refusal) {
    const std::size_t space = refusal.said.find(' ');
    print(refusal.said.substr(0, space).c_str(), refusal.said.substr(space + 1));
  }
  std::putchar('\n');
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) Schemas::SchemaUtility::addDefinitionsFromFolder(argv[i], *engine);
  names = std::make_unique<UnitNames>(*engine);
  while (read_line()) answer();
}
