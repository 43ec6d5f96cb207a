/// A host of version 1.0.0: it uses everything that the interface of that version has, and derives
/// where hosts may. It compiles with the headers of its time and with later ones, and runs with
/// every later library of the same soname. The file is kept as it is: it stands for programs that
/// nobody builds again. An operation that a later version adds is none of HostEngine's.
#include "tests/support/HostEngine.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

using namespace Units;

namespace {

using Text = std::string;

int failures = 0;

void expect(bool holds, const Text& what) {
  if (holds) return;
  ++failures;
  std::cerr << "not so: " << what << '\n';
}

/// An engine of the host's own: it notes the name of each operation and leaves it to another.
class NotingEngine : public HostEngine {
 public:
  std::vector<std::string> takeNames() { return std::exchange(names_, {}); }

 private:
  UnitsEngine& asked(const char* operation) const override {
    names_.push_back(operation);
    return *inner;
  }

  mutable std::vector<std::string> names_;
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

/// Every operation that changes an engine, in the order of `filling`.
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

/// Every other operation, in the order of `asking`.
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
  expect(moved.getTypeId() == upper.getTypeId() && source == moved, "records are copied");
  static_assert(!std::is_copy_assignable_v<Record> && !std::is_move_assignable_v<Record>);
  static_assert(!std::is_polymorphic_v<Record>);
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
  expect(FactorComponent().getFactor() == 1.0 && FactorComponent({{"a", 2}}).getFactor() == 1.0,
         "a factor is 1 where none is given");

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

std::vector<Text> wordsOf(const Text& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<Text>(stream), {}};
}

const std::vector<Text> filling = wordsOf(
    "addDimension addFactor addUnit addUnit addUnit addSymbol addQuantity addDefinition "
    "buildSchemas");
const std::vector<Text> asking = wordsOf(
    "convert canConvert formatFixedPoint formatFractional evaluateExpressionInUnit "
    "evaluateExpressionInUnit evaluateUnitlessExpression evaluateUnitlessExpression "
    "getDimension getFactor getUnit getSymbol getQuantity getDimensions getFactors getUnits "
    "getSymbols getQuantities getPrimitiveUnits getPrimitiveUnitsOfDimension "
    "getConvertibleUnits getUnitsWithPrimitivePowers getSymbolsOfUnit getQuantitiesOfUnit "
    "getDefinition getDependencies isRegistered isRegistered");

/// What of the library takes an engine, with one of the host's own.
void useDriven(const Text& schemas) {
  NotingEngine engine;
  UnitsEngine& operations = engine;
  fill(operations);
  expect(engine.takeNames() == filling, "the operations that fill");
  ask(operations);
  expect(engine.takeNames() == asking, "the operations that ask");

  const PreparedConversion toMeters(engine, "ft", "m");
  double values[] = {1.0, 0.0};
  toMeters.convert(values, values, 2);
  expect(toMeters(1.0) == 0.0254 * 12.0 && values[0] == toMeters(1.0) && values[1] == 0.0,
         "a prepared conversion");
  for (const Text& name : engine.takeNames())
    expect(std::count(asking.begin(), asking.end(), name) != 0, "what prepares asks");

  const Text bundle = Text("TrelvonUnits-schema-bundle-1\n") + schemaText + '\0';
  Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine);
  expect(engine.takeNames() == wordsOf("addDefinition buildSchemas"), "a bundle");
  expectThrown<std::logic_error>("failed to open schema bundle", [&] {
    Schemas::SchemaBundle::addDefinitionsFromFile("no such file", engine);
  });

  Schemas::SchemaUtility::addDefinitionsFromFolder(schemas, engine);
  std::vector<Text> loading = engine.takeNames();
  expect(loading.size() > 600 && loading.back() == "buildSchemas", "definitions are built");
  loading.pop_back();
  for (const Text& name : loading) expect(name == "addDefinition", "after they are added");
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
