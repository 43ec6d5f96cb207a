/// Explains formulas that users type: how each was read, what is wrong with it, and what to write
/// instead.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <string>

int main(int count, char** arguments) {
  const std::string schemas = count > 1 ? arguments[1] : "schemas";
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* const pack : {"core", "symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + "/" + pack, *engine);

  const auto width = [](const std::string& name) -> std::string {
    if (name == "width") return "2 ft + 1 kg";
    throw Units::ParseException("Unrecognized identifier: " + name + ".");
  };
  const std::string meter = "trelvon.unit:meter-1.0.0";
  for (const char* const formula : {"10 m - 35 cm", "1,5 m", "2 * width", "5 fot", "2 ft + 3 in"})
    std::cout << Units::explainFormula(*engine, meter, formula, width).toText() << '\n';

  const auto explained = Units::explainFormula(*engine, "sqrt(2 m^2 * 8 m^2)", {});
  for (const auto& node : explained.nodes())
    std::cout << explained.tokens()[node.token()].text() << " is " << node.value() << '\n';
}
