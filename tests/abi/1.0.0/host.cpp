/// A host of version 1.0.0: it uses everything that the interface of that version has, and derives
/// where hosts may. It compiles with the headers of its time and with later ones, and runs with
/// every later library of the same soname. The file is kept as it is: it stands for programs that
/// nobody builds again.
#include <TrelvonUnits/TrelvonUnits.h>

#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

using namespace Units;

namespace {

using Text = std::string;
template <class Record>
using All = std::map<Text, Record>;

int failures = 0;

void expect(bool holds, const Text& what) {
  if (holds) return;
  ++failures;
  std::cerr << "not so: " << what << '\n';
}

/// An engine of the host's own: it notes the slot of each operation and leaves it to another.
class NotingEngine : public UnitsEngine {
 public:
  explicit NotingEngine(UnitsEngine* inner) : inner_(inner) {}
  ~NotingEngine() override { expect(true, "the destructor is called"); }

  std::vector<int> takeSlots() { return std::exchange(slots_, {}); }

  double convert(double value, Text from, Text to) const override {
    return at(1).convert(value, from, to);
  }
  bool canConvert(Text from, Text to) const override { return at(2).canConvert(from, to); }
  Text formatFixedPoint(double v, unsigned char n, const Text* s, bool trims) const override {
    return at(3).formatFixedPoint(v, n, s, trims);
  }
  Text formatFractional(double v, unsigned char n, const Text* s) const override {
    return at(4).formatFractional(v, n, s);
  }
  double evaluateExpressionInUnit(Text unit, Text formula, VariableResolver r) const override {
    return at(5).evaluateExpressionInUnit(unit, formula, r);
  }
  double evaluateExpressionInUnit(Text unit, Text formula) const override {
    return at(6).evaluateExpressionInUnit(unit, formula);
  }
  double evaluateUnitlessExpression(Text formula, VariableResolver resolver) const override {
    return at(7).evaluateUnitlessExpression(formula, resolver);
  }
  double evaluateUnitlessExpression(Text formula) const override {
    return at(8).evaluateUnitlessExpression(formula);
  }
  Dimension getDimension(Text id) const override { return at(9).getDimension(id); }
  Factor getFactor(Text id) const override { return at(10).getFactor(id); }
  Unit getUnit(Text id) const override { return at(11).getUnit(id); }
  Symbol getSymbol(Text id) const override { return at(12).getSymbol(id); }
  Quantity getQuantity(Text id) const override { return at(13).getQuantity(id); }
  All<Dimension> getDimensions() const override { return at(14).getDimensions(); }
  All<Factor> getFactors() const override { return at(15).getFactors(); }
  All<Unit> getUnits() const override { return at(16).getUnits(); }
  All<Symbol> getSymbols() const override { return at(17).getSymbols(); }
  All<Quantity> getQuantities() const override { return at(18).getQuantities(); }
  All<Unit> getPrimitiveUnits() const override { return at(19).getPrimitiveUnits(); }
  All<Unit> getPrimitiveUnitsOfDimension(std::optional<Dimension> dimension) const override {
    return at(20).getPrimitiveUnitsOfDimension(dimension);
  }
  All<Unit> getConvertibleUnits(Text id) const override { return at(21).getConvertibleUnits(id); }
  All<Unit> getUnitsWithPrimitivePowers(PrimitivePowers powers) const override {
    return at(22).getUnitsWithPrimitivePowers(powers);
  }
  All<Symbol> getSymbolsOfUnit(Text id) const override { return at(23).getSymbolsOfUnit(id); }
  All<Quantity> getQuantitiesOfUnit(Text id) const override {
    return at(24).getQuantitiesOfUnit(id);
  }
  void addDimension(Dimension dimension) override { at(25).addDimension(dimension); }
  void addFactor(Factor factor) override { at(26).addFactor(factor); }
  void addUnit(Unit unit) override { at(27).addUnit(unit); }
  void addSymbol(Symbol symbol) override { at(28).addSymbol(symbol); }
  void addQuantity(Quantity quantity) override { at(29).addQuantity(quantity); }
  std::set<Text> addDefinition(const Text& text) override { return at(30).addDefinition(text); }
  void buildSchemas() override { at(31).buildSchemas(); }
  Text getDefinition(Text id) const override { return at(32).getDefinition(id); }
  std::set<Text> getDependencies(Text id) const override { return at(33).getDependencies(id); }
  bool isRegistered(Text id) const override { return at(34).isRegistered(id); }

 private:
  UnitsEngine& at(int slot) const {
    slots_.push_back(slot);
    return *inner_;
  }

  const std::unique_ptr<UnitsEngine> inner_;
  mutable std::vector<int> slots_;
};

/// The classes are the same ones on both sides of the library's boundary.
template <class E>
void expectThrown(const Text& message, const std::function<void()>& action) {
  try {
    action();
  } catch (const std::logic_error& thrown) {
    expect(typeid(thrown) == typeid(E), "the very class throws: " + message);
    expect(thrown.what() == message, message);
    return;
  }
  expect(false, "thrown: " + message);
}

const Text schemaText =
    "{\"typeid\":\"score\",\"inherits\":[\"vellamor.unit:factor.derived-1.0.0\"],"
    "\"constants\":[{\"id\":\"factor\",\"value\":1.0},"
    "{\"id\":\"parentFactors\",\"value\":{\"dozen\":1}}]}";

/// Slots 25 to 31, in this order.
void fill(UnitsEngine& engine) {
  const Unit meter("m", "meter", System::Metric, PrimitiveUnitComponent(Dimension("length")));
  const Unit foot("ft", "foot", System::Imperial,
                  DerivedUnitComponent({{"m", 1}}, FactorComponent(0.0254, {{"dozen", 1}})));
  const Unit gauge("above", "above the quay", System::Metric, AbsoluteUnitComponent("m", 2.0));
  engine.addDimension(Dimension("length"));
  engine.addFactor(Factor("dozen", FactorComponent(12.0)));
  for (const Unit& unit : {meter, foot, gauge}) engine.addUnit(unit);
  engine.addSymbol(Symbol("ft.sign", foot, PrefixOrSuffix("ft", Placement::Suffix, true)));
  engine.addQuantity(Quantity("height", "height", {meter, foot}));
  expect(engine.addDefinition(schemaText).empty(), "nothing is missing");
  engine.buildSchemas();
}

/// Slots 1 to 24 and 32 to 34, in this order.
void ask(const UnitsEngine& engine) {
  const VariableResolver resolver = [](const Text& name) { return name == "x" ? "2 ft" : "4"; };
  const Text sign = "ft.sign";
  expect(engine.convert(1.0, "ft", "m") == 0.0254 * 12.0, "a foot is twelve inches");
  expect(!engine.canConvert("m", "above"), "a length is no height above the quay");
  expect(engine.formatFixedPoint(12.5, 2, &sign, false) == "12.50 ft", "decimal places");
  expect(engine.formatFractional(12.5, 1, nullptr) == "12 1/2", "a fraction");
  expect(engine.evaluateExpressionInUnit("ft", "x + 1 ft", resolver) == 3.0, "a formula of x");
  expect(engine.evaluateExpressionInUnit("ft", "2 ft + 3 ft") == 5.0, "a formula");
  expect(engine.evaluateUnitlessExpression("x / 1 ft + y", resolver) == 6.0, "a number of x");
  expect(engine.evaluateUnitlessExpression("2 * 3") == 6.0, "a number");
  expect(engine.getDimension("length") == Dimension("length"), "a dimension");
  expect(engine.getFactor("dozen").getFactorComponent().getFactor() == 12.0, "a factor");
  expect(engine.getUnit("ft").getName() == "foot", "a unit");
  expect(engine.getSymbol(sign).getUnit().getTypeId() == "ft", "a symbol");
  expect(engine.getQuantity("height").getUnits().size() == 2, "a quantity");
  expect(engine.getDimensions().count("length") == 1, "dimensions");
  expect(engine.getFactors().count("score") == 1, "factors");
  expect(engine.getUnits().size() == 3, "units");
  expect(engine.getSymbols().count(sign) == 1, "symbols");
  expect(engine.getQuantities().count("height") == 1, "quantities");
  expect(engine.getPrimitiveUnits().count("m") == 1, "primitive units");
  expect(engine.getPrimitiveUnitsOfDimension(std::nullopt).empty(), "primitive units of none");
  expect(engine.getConvertibleUnits("m").size() == 2, "what converts to a meter");
  expect(engine.getUnitsWithPrimitivePowers({{"m", 1}}).count("ft") == 1, "lengths");
  expect(engine.getSymbolsOfUnit("ft").count(sign) == 1, "symbols of a foot");
  expect(engine.getQuantitiesOfUnit("m").count("height") == 1, "quantities of a meter");
  expect(engine.getDefinition("score") == schemaText, "a definition");
  expect(engine.getDependencies("score").count("dozen") == 1, "what a score depends on");
  expect(engine.isRegistered("m") && !engine.isRegistered("n"), "type ids");
}

template <class Record>
void compare(const Record& lower, const Record& upper) {
  const Record copy(lower);
  Record source(upper);
  const Record moved(std::move(source));
  expect(copy == lower && moved != copy && copy < moved && moved > copy, "records are compared");
  expect(moved.getTypeId() == upper.getTypeId(), "records are copied");
}

/// Components are copied when they are moved too.
template <class Component, class Answer>
void copy(const Component& component, Answer (Component::*ask)() const) {
  Component source(component);
  const Component moved(std::move(source));
  expect((moved.*ask)() == (component.*ask)() && (source.*ask)() == (moved.*ask)(),
         "components are copied");
}

template <class E>
void copy(const E& exception) {
  const E copied(exception);
  expect(copied.what() == Text(exception.what()), "exceptions are copied");
}

void useRecords(const UnitsEngine& engine) {
  compare(Dimension("a"), Dimension("b"));
  compare(Factor("a", FactorComponent(2.0)), Factor("b", FactorComponent({{"a", -1}})));
  compare(engine.getUnit("ft"), engine.getUnit("m"));
  compare(engine.getSymbol("ft.sign"), Symbol("s", engine.getUnit("m"), std::nullopt));
  compare(Quantity("a", "a", {}), Quantity("b", "b", {}));

  copy(AbsoluteUnitComponent("a", 1.0), &AbsoluteUnitComponent::getOffset);
  copy(DerivedUnitComponent({{"a", 1}}, FactorComponent()),
       &DerivedUnitComponent::getParentUnitPowers);
  copy(FactorComponent(2.0), &FactorComponent::getFactor);
  copy(PrimitiveUnitComponent(Dimension("a")), &PrimitiveUnitComponent::getDimension);
  copy(PrefixOrSuffix("a", Placement::Prefix, false), &PrefixOrSuffix::getText);

  const auto scale = engine.getUnit("above").getAbsoluteUnitComponent();
  const auto parts = engine.getUnit("ft").getDerivedUnitComponent();
  const auto base = engine.getUnit("m").getPrimitiveUnitComponent();
  expect(scale && scale->getParentUnit() == "m" && scale->getOffset() == 2.0, "a scale");
  expect(parts && parts->getParentUnitPowers() == PrimitivePowers{{"m", 1}} &&
             parts->getFactorComponent().getParentFactorPowers().count("dozen") == 1,
         "a derived unit");
  expect(base && base->getDimension() == Dimension("length"), "a primitive unit");
  expect(engine.getUnit("above").getUnitSystem() == System::Metric, "a system");
  const auto shown = engine.getSymbol("ft.sign").getPrefixOrSuffix();
  expect(shown && shown->getText() == "ft" && shown->getPlacement() == Placement::Suffix &&
             shown->hasSpace(),
         "a suffix");
  expect(engine.getQuantity("height").getName() == "height", "a name");
}

void useExceptions(UnitsEngine& engine) {
  expectThrown<UnrecognizedIdentifierException>("Could not find unit with typeid ell.",
                                                [&] { engine.convert(1.0, "ell", "m"); });
  expectThrown<IncompatibleUnitsException>("Cannot convert between units m and above.",
                                           [&] { engine.convert(1.0, "m", "above"); });
  expectThrown<ValidationException>("Typeid must not be empty.",
                                    [&] { engine.addDimension(Dimension("")); });
  expectThrown<ParseException>("Unrecognized identifier: z.",
                               [&] { engine.evaluateUnitlessExpression("z"); });
  expectThrown<PrecisionException>(
      "Requested fixed point precision of 13 decimal places, but the maximum is 12.",
      [&] { engine.formatFixedPoint(1.0, 13, nullptr, false); });
  expectThrown<ParseException>("own", [] { throw ParseException("own"); });
  copy(IncompatibleUnitsException("units"));
  copy(ParseException("formula"));
  copy(PrecisionException("places"));
  copy(UnrecognizedIdentifierException("type id"));
  copy(ValidationException("definition"));
}

/// What of the library takes an engine, with one of the host's own.
void useDriven(const Text& schemas) {
  NotingEngine engine(CreateUnitsEngine());
  UnitsEngine& operations = engine;
  fill(operations);
  expect(engine.takeSlots() == std::vector<int>{25, 26, 27, 27, 27, 28, 29, 30, 31}, "slots");
  ask(operations);
  std::vector<int> asked;
  for (int slot = 1; slot <= 24; ++slot) asked.push_back(slot);
  asked.insert(asked.end(), {32, 33, 34, 34});
  expect(engine.takeSlots() == asked, "slots of what is asked");

  const PreparedConversion toMeters(engine, "ft", "m");
  double values[] = {1.0, 0.0};
  toMeters.convert(values, values, 2);
  expect(toMeters(1.0) == 0.0254 * 12.0 && values[0] == toMeters(1.0) && values[1] == 0.0,
         "a prepared conversion");
  for (const int slot : engine.takeSlots()) expect(slot >= 1 && slot <= 24, "what prepares asks");

  const Text bundle = Text("TrelvonUnits-schema-bundle-1\n") + schemaText + '\0';
  Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine);
  expect(engine.takeSlots() == std::vector<int>{30, 31}, "slots of a bundle");
  expectThrown<std::logic_error>("failed to open schema bundle", [&] {
    Schemas::SchemaBundle::addDefinitionsFromFile("no such file", engine);
  });

  Schemas::SchemaUtility::addDefinitionsFromFolder(schemas, engine);
  std::vector<int> loading(engine.takeSlots());
  expect(loading.size() > 600 && loading.back() == 31, "definitions come by slot 30");
  loading.pop_back();
  for (const int slot : loading) expect(slot == 30, "and by no other");
  expect(operations.getUnits().size() > 600, "the shipped definitions load");
}

}  // namespace

/// The folder of schemas is given by the build or on the command line.
int main(int count, char** arguments) {
#if defined(SCHEMAS_DIR)
  const Text schemas = count > 1 ? arguments[1] : SCHEMAS_DIR;
#else
  const Text schemas = count > 1 ? arguments[1] : "schemas";
#endif
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  fill(*engine);
  ask(*engine);
  useRecords(*engine);
  useExceptions(*engine);
  useDriven(schemas);
  expect(maximumSubstitutions > maximumSubstitutionDepth, "limits stand");
  std::cout << failures << " failures\n";
  return failures == 0 ? 0 : 1;
}
