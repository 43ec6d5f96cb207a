/// Shows what a host can do with the shipped definitions: load, convert, evaluate and format.
#include <TrelvonUnits/TrelvonUnits.h>

#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

std::string unit(const std::string& name) { return "trelvon.unit:" + name + "-1.0.0"; }

std::string symbol(const std::string& name) { return "trelvon.symbol:" + name + "-1.0.0"; }

void heading(const char* text) { std::cout << '\n' << text << '\n'; }

void load(Units::UnitsEngine& engine, const std::string& schemas) {
  for (const char* pack : {"core", "symbols", "aliases", "legacy", "gauge"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + "/" + pack, engine);
  std::cout << "Loaded " << engine.getUnits().size() << " units, " << engine.getFactors().size()
            << " factors, " << engine.getSymbols().size() << " symbols and "
            << engine.getQuantities().size() << " quantities.\n";
}

void convert(const Units::UnitsEngine& engine, double value, const std::string& from,
             const std::string& to) {
  std::cout << "  " << value << ' ' << engine.getUnit(unit(from)).getName() << " = "
            << engine.convert(value, unit(from), unit(to)) << ' '
            << engine.getUnit(unit(to)).getName() << '\n';
}

void evaluate(const Units::UnitsEngine& engine, const std::string& formula, const std::string& in) {
  std::cout << "  " << formula << "  in " << engine.getUnit(unit(in)).getName() << ": "
            << engine.evaluateExpressionInUnit(unit(in), formula) << '\n';
}

/// Prints the message that a host shows when the engine throws.
template <class Action>
void refused(const std::string& what, Action action) {
  try {
    action();
    std::cout << "  " << what << ": accepted?\n";
  } catch (const std::exception& error) {
    std::cout << "  " << what << ": " << error.what() << '\n';
  }
}

void showConversions(const Units::UnitsEngine& engine) {
  heading("Conversions");
  convert(engine, 6, "foot", "meter");
  convert(engine, 1, "mile", "kilometer");
  convert(engine, 2.5, "bar", "poundForcePerSquareInch");
  convert(engine, 100, "degreeCelsius", "degreeFahrenheit");
  convert(engine, 30, "milePerGallonUs", "literPer100Kilometers");
}

void showLists(const Units::UnitsEngine& engine) {
  heading("Units convertible to a bar");
  for (const auto& [typeId, found] : engine.getConvertibleUnits(unit("bar")))
    std::cout << "  " << found.getName() << '\n';

  heading("The units of the quantity torque");
  for (const Units::Unit& listed : engine.getQuantity("trelvon.quantity:torque-1.0.0").getUnits())
    std::cout << "  " << listed.getName() << '\n';
}

void showDefinition(const Units::UnitsEngine& engine, const std::string& typeId) {
  heading("A definition and its dependencies");
  std::cout << "  " << engine.getDefinition(typeId) << '\n';
  for (const std::string& dependency : engine.getDependencies(typeId))
    std::cout << "  " << dependency << '\n';
}

/// Adds a bag of cement, a unit of mass, from schema text and a currency from records.
void addOurOwn(Units::UnitsEngine& engine) {
  heading("Definitions of our own");
  const auto missing = engine.addDefinition(R"({
    "typeid": "shop.unit:bag-1.0.0",
    "inherits": ["vellamor.unit:unit.derived-1.0.0"],
    "constants": [
      {"id": "name", "value": "bag of cement"},
      {"id": "unitSystem", "value": "Metric"},
      {"id": "factor", "value": 25},
      {"id": "parentUnits", "value": {"trelvon.unit:kilogram-1.0.0": 1}}
    ]
  })");
  std::cout << "  " << missing.size() << " definitions are missing for the bag.\n";
  engine.buildSchemas();
  std::cout << "  40 bags of cement = " << engine.convert(40, "shop.unit:bag-1.0.0", unit("tonne"))
            << " tonnes\n";

  const Units::Unit dollar("shop.unit:dollar-1.0.0", "dollar", Units::System::Metric,
                           Units::PrimitiveUnitComponent());
  engine.addUnit(dollar);
  engine.addSymbol(Units::Symbol("shop.symbol:dollar-1.0.0", dollar,
                                 Units::PrefixOrSuffix("$", Units::Placement::Prefix, true)));
}

void showFormulas(const Units::UnitsEngine& engine) {
  heading("Formulas");
  evaluate(engine, "2 ft + 3 in", "meter");
  evaluate(engine, "-5' 6 1/2\" * 2", "foot");
  evaluate(engine, "10\xC2\xB0 30' 15\"", "degree");
  evaluate(engine, "30 mpg", "literPer100Kilometers");
  evaluate(engine, "sqrt(2 m^2 * 8 m^2)", "squareMeter");

  const Units::VariableResolver drawing = [](const std::string& name) -> std::string {
    if (name == "width") return "3 ft + 6 in";
    if (name == "height") return "2 * width";
    throw std::out_of_range("The drawing has no " + name + ".");
  };
  std::cout << "  width * height  in square meter, by the drawing: "
            << engine.evaluateExpressionInUnit(unit("squareMeter"), "width * height", drawing)
            << '\n';
  std::cout << "  $(12) / 1 m * 250 cm  in dollar: "
            << engine.evaluateExpressionInUnit("shop.unit:dollar-1.0.0", "$(12) / 1 m * 250 cm")
            << '\n';
}

void showTexts(const Units::UnitsEngine& engine) {
  heading("Display texts");
  const std::string feetAndInches = symbol("feetAndInches");
  const std::string angle = symbol("degreesMinutesSeconds");
  const std::string kilogram = symbol("kilogram");
  const std::string dollar = "shop.symbol:dollar-1.0.0";
  std::cout << "  " << engine.formatFractional(5.53125, 4, &feetAndInches) << '\n'
            << "  " << engine.formatFixedPoint(10.5, 0, &angle, false) << '\n'
            << "  " << engine.formatFixedPoint(12.5, 2, &kilogram, false) << '\n'
            << "  " << engine.formatFixedPoint(-30, 2, &dollar, false) << '\n';
}

void showErrors(Units::UnitsEngine& engine) {
  heading("Errors");
  refused("convert a meter into a bar", [&] { engine.convert(1, unit("meter"), unit("bar")); });
  refused("add a second meter", [&] { engine.addUnit(engine.getUnit(unit("meter"))); });
  refused("2 ft + 3 kg", [&] { engine.evaluateExpressionInUnit(unit("foot"), "2 ft + 3 kg"); });
  refused("2 * wdith", [&] { engine.evaluateUnitlessExpression("2 * wdith"); });
  refused("sin(30 deg)", [&] { engine.evaluateUnitlessExpression("sin(30 deg)"); });
  refused("13 decimal places", [&] { engine.formatFixedPoint(1, 13, nullptr, false); });
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: demo <folder of the shipped definitions>\n";
    return 2;
  }
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  load(*engine, arguments[1]);
  showConversions(*engine);
  showLists(*engine);
  showDefinition(*engine, unit("kilometerPerHour"));
  addOurOwn(*engine);
  showFormulas(*engine);
  showTexts(*engine);
  showErrors(*engine);
}
