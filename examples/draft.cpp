/// Shows values as a draftsman writes them, and reads them back. Rounds them before splitting them
/// into feet and inches, so that no text says 12 inches.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>

namespace {

/// Shows values, and reads the shown texts.
void tryOut(const Units::ValueDisplay& display, std::initializer_list<double> values) {
  for (const double value : values) {
    const std::string text = display.show(value);
    std::cout << value << ": " << text << ", read as " << display.read(text).value() << '\n';
  }
}

}  // namespace

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  Units::DisplayOptions drawing;
  drawing.symbol = "trelvon.symbol:feetAndInches-1.0.0";
  drawing.denominator = 16;
  tryOut(Units::ValueDisplay(*engine, drawing), {5.53125, 5.999, -0.5, 11.9999});
  const std::string text = engine->formatFractional(5.999, 4, &drawing.symbol);
  std::cout << "Without a display: " << text << '\n';

  Units::DisplayOptions angle;
  angle.symbol = "trelvon.symbol:degreesMinutesSeconds-1.0.0";
  angle.places = 0;
  tryOut(Units::ValueDisplay(*engine, angle), {30.2575, 29.99999});

  Units::DisplayOptions plan;
  plan.unit = "trelvon.unit:meter-1.0.0";
  plan.symbol = "trelvon.symbol:millimeter-1.0.0";
  plan.places = 1;
  plan.groups = true;
  plan.locale = "de";
  tryOut(Units::ValueDisplay(*engine, plan), {1.6859, 12.3456});
}
