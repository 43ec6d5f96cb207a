/// A field for a length: users type expressions, the program keeps meters, the field shows feet and
/// inches.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <map>
#include <memory>
#include <string>

namespace {

const std::string foot = "trelvon.unit:foot-1.0.0", meter = "trelvon.unit:meter-1.0.0";
const std::string feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";
const std::map<std::string, std::string> drawing = {{"width", "3 ft 6 in"}};

std::string valueOf(const std::string& name) {
  const auto found = drawing.find(name);
  if (found == drawing.end()) throw Units::ParseException("Unrecognized identifier: " + name + ".");
  return found->second;
}

/// Reads the typed text; a plain number is in feet. If the text is refused, `meters` stays.
void enter(const Units::UnitsEngine& engine, const std::string& typed, double& meters) {
  const auto read = Units::explainFormula(engine, foot, typed, valueOf);
  std::cout << typed << '\n';
  if (read.reason() != Units::FormulaReason::Done) {
    std::cout << "  error at byte " << read.span().begin << ": " << read.sentence() << '\n';
    for (const std::string& spelling : read.spellings())
      std::cout << "  did you mean: " << spelling << '\n';
    return;
  }
  for (const auto& warning : read.warnings())
    if (warning.kind() != Units::FormulaExplanation::WarningKind::PlainNumber)
      std::cout << "  warning: " << warning.sentence() << '\n';
  meters = engine.convert(read.value(), foot, meter);
  std::cout << "  " << engine.formatFractional(read.value(), 4, &feetAndInches) << " is kept as "
            << meters << " m\n";
}

}  // namespace

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols", "/aliases"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  double meters = 0;
  for (const char* typed :
       {"12", "5' 6 1/2\" + 3 cm", "2 * width", "10 m - 35 cm", "2 * wdth", "1,5 m", "2 ft + 3 kg"})
    enter(*engine, typed, meters);
}
