/// A host outside the tree: everything that the interface promises to link, used once.
#include <TrelvonUnits/TrelvonUnits.h>

#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <vector>

using namespace Units;

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
  if (holds) return;
  ++failures;
  std::cerr << "not so: " << what << '\n';
}

/// Classes must be the same ones on both sides of the library's boundary.
template <class E>
void expectThrown(const char* message, const std::function<void()>& action) {
  try {
    action();
  } catch (const E& thrown) {
    expect(typeid(thrown) == typeid(E), "the exception is of the very class");
    expect(thrown.what() == std::string(message), message);
    return;
  } catch (const std::exception&) {
  }
  expect(false, message);
}

/// An engine of the host's own: the folder loader must be content with the interface.
struct CountingEngine : UnitsEngine {
  int definitions = 0;
  int builds = 0;

  std::set<std::string> addDefinition(const std::string&) override {
    ++definitions;
    return {};
  }
  void buildSchemas() override { ++builds; }

  // clang-format off
  [[noreturn]] static void refuse() { throw std::runtime_error("This engine only counts."); }
  double convert(double, std::string, std::string) const override { refuse(); }
  bool canConvert(std::string, std::string) const override { refuse(); }
  std::string formatFixedPoint(double, unsigned char, const std::string*, bool) const override { refuse(); }
  std::string formatFractional(double, unsigned char, const std::string*) const override { refuse(); }
  double evaluateExpressionInUnit(std::string, std::string, VariableResolver) const override { refuse(); }
  double evaluateExpressionInUnit(std::string, std::string) const override { refuse(); }
  double evaluateUnitlessExpression(std::string, VariableResolver) const override { refuse(); }
  double evaluateUnitlessExpression(std::string) const override { refuse(); }
  Dimension getDimension(std::string) const override { refuse(); }
  Factor getFactor(std::string) const override { refuse(); }
  Unit getUnit(std::string) const override { refuse(); }
  Symbol getSymbol(std::string) const override { refuse(); }
  Quantity getQuantity(std::string) const override { refuse(); }
  std::map<std::string, Dimension> getDimensions() const override { refuse(); }
  std::map<std::string, Factor> getFactors() const override { refuse(); }
  std::map<std::string, Unit> getUnits() const override { refuse(); }
  std::map<std::string, Symbol> getSymbols() const override { refuse(); }
  std::map<std::string, Quantity> getQuantities() const override { refuse(); }
  std::map<std::string, Unit> getPrimitiveUnits() const override { refuse(); }
  std::map<std::string, Unit> getPrimitiveUnitsOfDimension(std::optional<Dimension>) const override { refuse(); }
  std::map<std::string, Unit> getConvertibleUnits(std::string) const override { refuse(); }
  std::map<std::string, Unit> getUnitsWithPrimitivePowers(PrimitivePowers) const override { refuse(); }
  std::map<std::string, Symbol> getSymbolsOfUnit(std::string) const override { refuse(); }
  std::map<std::string, Quantity> getQuantitiesOfUnit(std::string) const override { refuse(); }
  void addDimension(Dimension) override { refuse(); }
  void addFactor(Factor) override { refuse(); }
  void addUnit(Unit) override { refuse(); }
  void addSymbol(Symbol) override { refuse(); }
  void addQuantity(Quantity) override { refuse(); }
  std::string getDefinition(std::string) const override { refuse(); }
  std::set<std::string> getDependencies(std::string) const override { refuse(); }
  bool isRegistered(std::string) const override { refuse(); }
  // clang-format on
};

void useRecords(UnitsEngine& engine) {
  engine.addDimension(Dimension("length"));
  engine.addFactor(Factor("dozen", FactorComponent(12.0)));
  const Unit meter("m", "meter", System::Metric,
                   PrimitiveUnitComponent(engine.getDimension("length")));
  const Unit inch("in", "inch", System::Imperial,
                  DerivedUnitComponent({{"m", 1}}, FactorComponent(0.0254)));
  const Unit foot("ft", "foot", System::Imperial,
                  DerivedUnitComponent({{"in", 1}}, FactorComponent({{"dozen", 1}})));
  const Unit gauge("above", "meter above the quay", System::Metric,
                   AbsoluteUnitComponent("m", 2.0));
  for (const Unit& unit : {meter, inch, foot, gauge}) engine.addUnit(unit);
  engine.addSymbol(Symbol("ft.sign", foot, PrefixOrSuffix("ft", Placement::Suffix, true)));
  engine.addQuantity(Quantity("height", "height", {meter, foot}));

  expect(engine.convert(1.0, "ft", "m") == 0.0254 * 12.0, "a foot is twelve inches");
  expect(engine.getUnit("ft") == foot && foot < meter, "units are compared by type id");
  expect(engine.getUnitsWithPrimitivePowers({{"m", 1}}).count("ft") == 1, "a foot is a length");
  expect(engine.getSymbolsOfUnit("ft").at("ft.sign").getPrefixOrSuffix()->getText() == "ft",
         "a symbol shows its text");
  expect(engine.getQuantity("height").getUnits().size() == 2, "a quantity lists its units");
}

void useExceptions(UnitsEngine& engine) {
  expectThrown<UnrecognizedIdentifierException>("Could not find unit with typeid ell.",
                                                [&] { engine.convert(1.0, "ell", "m"); });
  expectThrown<IncompatibleUnitsException>("Cannot convert between units m and above.",
                                           [&] { engine.convert(1.0, "m", "above"); });
  expectThrown<ValidationException>("Typeid must not be empty.",
                                    [&] { engine.addDimension(Dimension("")); });
  expectThrown<ParseException>("own", [] { throw ParseException("own"); });
  expectThrown<PrecisionException>("own", [] { throw PrecisionException("own"); });
}

}  // namespace

int main() {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  useRecords(*engine);
  useExceptions(*engine);

  CountingEngine counting;
  Schemas::SchemaUtility::addDefinitionsFromFolder(SCHEMAS_DIR, counting);
  expect(counting.definitions > 0 && counting.builds == 1, "the loader drives any engine");
  Schemas::SchemaUtility::addDefinitionsFromFolder(SCHEMAS_DIR, *engine);
  expect(engine->getUnits().size() > 4, "the shipped definitions load");

  const VariableResolver resolver = [](const std::string& name) { return name; };
  expect(resolver("x") == "x" && maximumSubstitutions > maximumSubstitutionDepth, "limits stand");
  std::cout << counting.definitions << " definitions, " << failures << " failures\n";
  return failures == 0 ? 0 : 1;
}
