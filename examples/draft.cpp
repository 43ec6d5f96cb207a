/// Values as a draftsman writes them. A value is rounded to the step that is shown before it is laid
/// out, so that no text says 12 inches.
#include <TrelvonUnits/TrelvonUnits.h>

#include <cmath>
#include <iostream>
#include <memory>
#include <string>

namespace {

const std::string feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";
const std::string millimeter = "trelvon.symbol:millimeter-1.0.0";
const std::string angle = "trelvon.symbol:degreesMinutesSeconds-1.0.0";

/// The nearest multiple of 1/steps.
double rounded(double value, double steps) { return std::round(value * steps) / steps; }

}  // namespace

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  for (const double feet : {5.53125, 5.999, -0.5, 11.9999}) {
    std::cout << feet << " ft: " << engine->formatFractional(feet, 4, &feetAndInches)
              << ", rounded " << engine->formatFractional(rounded(feet, 12 * 16), 4, &feetAndInches)
              << '\n';
  }
  for (const double degrees : {30.2575, 29.99999}) {
    std::cout << degrees << " degrees: " << engine->formatFixedPoint(degrees, 0, &angle, false)
              << ", rounded " << engine->formatFixedPoint(rounded(degrees, 3600), 0, &angle, false)
              << '\n';
  }
  const Units::PreparedConversion toMillimeters(*engine, "trelvon.unit:foot-1.0.0",
                                                "trelvon.unit:millimeter-1.0.0");
  std::cout << engine->formatFixedPoint(toMillimeters(5.53125), 1, &millimeter, false) << '\n';
}
