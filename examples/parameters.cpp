/// A table of parameters, as in a drawing: formulas that refer to each other by name.
#include <TrelvonUnits/TrelvonUnits.h>

#include <exception>
#include <iostream>
#include <memory>
#include <string>

int main(int count, char** arguments) {
  const std::string schemas = count > 1 ? arguments[1] : "schemas";
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* const pack : {"core", "symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + "/" + pack, *engine);
  const std::string millimeter = "trelvon.unit:millimeter-1.0.0";
  const std::string squareMeter = "trelvon.unit:squareMeter-1.0.0";

  Units::ParameterTable table(*engine);
  table.set("area", "width * height");     // in any order
  table.set("width", "1200", millimeter);  // a plain number is in the parameter's own unit
  table.set("height", "2 * width - 2 * frame");
  table.set("frame", "5 cm", millimeter);
  std::cout << "area: " << table.value("area", squareMeter) << " m^2\n";
  std::cout << "frame: " << table.value("frame") << " mm\n";

  table.set("frame", "2 in", millimeter);
  std::cout << table.evaluate() << " formulas depend on the frame\n";
  table.rename("frame", "border");
  std::cout << "height = " << table.formula("height") << "\n\n";

  const auto tell = [&](const std::string& name, const std::string& formula) {
    try {
      table.set(name, formula);
      table.value("area", squareMeter);
    } catch (const std::exception& refusal) {
      std::cout << name << " = " << formula << "\n  " << refusal.what() << '\n';
    }
  };
  tell("h", "2 m");
  tell("border", "5 fot");
  tell("border", "rim / 2");
  tell("rim", "height / 10");
  tell("rim", "2 kg");
  table.set("rim", "1 in");

  std::cout << '\n' << table.explainText("height");
}
