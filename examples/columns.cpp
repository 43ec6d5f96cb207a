/// Converts columns of data: numbers with a prepared conversion, cells with units as formulas.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);
  const std::string bar = "trelvon.unit:bar-1.0.0", kPa = "trelvon.unit:kilopascal-1.0.0";

  // Throws if the units do not convert; from here on, nothing can fail and nothing is looked up.
  const Units::PreparedConversion toKilopascals(*engine, bar, kPa);
  std::vector<double> pressures = {1, 2.5, 300};
  toKilopascals.convert(pressures.data(), pressures.data(), pressures.size());
  for (const double pressure : pressures) std::cout << pressure << " kPa\n";

  // Cells as people fill them in. A plain number is in the unit of the column.
  for (const char* cell : {"2.5", "250 kPa", "36 psi", "2,5", "3 ft"}) {
    const auto read = Units::explainFormula(*engine, bar, cell, {});
    std::cout << cell << ": ";
    if (read.reason() == Units::FormulaReason::Done)
      std::cout << read.value() << " bar\n";
    else
      std::cout << read.sentence() << '\n';
  }
}
