#include "tools/trelvon/Context.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/ShownText.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <stdexcept>

namespace tool {

Context::Context(const Arguments& given, Output& output, Output& errorOutput, Definitions* shared)
    : arguments(given),
      out(output),
      errors(errorOutput),
      definitions(shared == nullptr ? own_ : *shared),
      own_(given, [this](const std::string& sentence) { warn(sentence); }) {}

void Context::warn(const std::string& sentence) const {
  errors.write(errors.tinted("warning: ", Tint::Warning) + sentence + '\n');
}

void Context::print(const std::string& text) const {
  if (!wantsJson()) {
    out.write(text);
    return;
  }
  JsonWriter json;
  json.beginObject();
  json.member("text", text);
  json.endObject();
  out.write(json.text() + '\n');
}

Units::Unit Context::unit(const std::string& text) { return unitNamed(text, definitions); }

Units::FormulaExplanation Context::accepted(const Units::FormulaExplanation& explanation) const {
  if (explanation.reason() != Units::FormulaReason::Done) {
    std::string text = explanation.toText();
    while (!text.empty() && text.back() == '\n') text.pop_back();
    throw Failure(Status::Findings, "the formula is refused\n" + text);
  }
  for (const auto& warning : explanation.warnings())
    if (warning.kind() != Units::FormulaExplanation::WarningKind::PlainNumber)
      warn(shown(warning.sentence()));
  return explanation;
}

double Context::evaluate(const std::string& formula, const std::string* unitTypeId) {
  const Units::UnitsEngine& engine = definitions.engine();
  return accepted(unitTypeId == nullptr ? explainUnitlessFormula(engine, formula, variables())
                                        : explainFormula(engine, *unitTypeId, formula, variables()))
      .value();
}

VariableResolver Context::variables() const {
  std::map<std::string, std::string> texts;
  for (const std::string& assignment : arguments.texts("set")) {
    const std::size_t equals = assignment.find('=');
    if (equals == 0 || equals == std::string::npos)
      throw Failure(Status::Usage, "--set needs NAME=TEXT, not " + inQuotes(assignment));
    texts[assignment.substr(0, equals)] = assignment.substr(equals + 1);
  }
  return [texts](const std::string& name) {
    const auto found = texts.find(name);
    if (found == texts.end()) throw Units::ParseException("Unrecognized identifier: " + name + ".");
    return found->second;
  };
}

Units::ValueDisplay Context::display(const NumberFormat& format) {
  try {
    if (arguments.has("display"))
      return Units::ValueDisplay::fromJson(definitions.engine(),
                                           readFile(arguments.text("display")));
    Units::DisplayOptions options;
    options.symbol = format.symbol.value_or("");
    options.places = format.places;
    if (format.fraction) options.denominator = 1 << *format.fraction;
    options.groups = true;
    options.locale = arguments.text("locale", "en");
    return Units::ValueDisplay(definitions.engine(), options);
  } catch (const std::logic_error& error) {
    throw Failure(Status::Usage, shown(error.what()));
  }
}

NumberFormat Context::numberFormat(std::optional<std::string>& unitTypeId) {
  NumberFormat format;
  format.places = arguments.number("places");
  format.fraction = arguments.number("fraction");
  format.isTidy = arguments.has("tidy");
  if (arguments.has("as")) setSymbol(format, unitTypeId);
  if (!arguments.has("locale") && !arguments.has("display")) return format;
  format.display = std::make_shared<const Units::ValueDisplay>(display(format));
  if (!unitTypeId && !format.display->unitTypeId().empty())
    unitTypeId = format.display->unitTypeId();
  return format;
}

void Context::setSymbol(NumberFormat& format, std::optional<std::string>& unitTypeId) {
  const Units::Symbol symbol = symbolNamed(arguments.text("as"), definitions);
  const Units::Unit shownUnit = symbol.getUnit();
  if (!unitTypeId) unitTypeId = shownUnit.getTypeId();
  if (*unitTypeId != shownUnit.getTypeId())
    throw Failure(Status::Usage, "--as " + inQuotes(arguments.text("as")) + " shows " +
                                     inQuotes(shownUnit.getName()) + ", not " +
                                     inQuotes(definitions.engine().getUnit(*unitTypeId).getName()));
  format.symbol = symbol.getTypeId();
  // The parts of a composite symbol are differences, whose last places are noise.
  constexpr int placesOfParts = 6;
  if (!symbol.getPrefixOrSuffix()) format.mostPlaces = placesOfParts;
}

}  // namespace tool
