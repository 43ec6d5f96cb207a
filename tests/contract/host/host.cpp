/// A host outside the tree: everything that the interface promises to link, used once.
#include <TrelvonUnits/TrelvonUnits.h>

#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <vector>

#include "tests/loading/RecordingEngine.h"

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

  RecordingEngine counting;  // an engine of the host's own must be enough for the loader
  Schemas::SchemaUtility::addDefinitionsFromFolder(SCHEMAS_DIR, counting);
  expect(!counting.texts.empty() && counting.builds == 1, "the loader drives any engine");
  Schemas::SchemaUtility::addDefinitionsFromFolder(SCHEMAS_DIR, *engine);
  expect(engine->getUnits().size() > 4, "the shipped definitions load");

  const VariableResolver resolver = [](const std::string& name) { return name; };
  expect(resolver("x") == "x" && maximumSubstitutions > maximumSubstitutionDepth, "limits stand");
  std::cout << counting.texts.size() << " definitions, " << failures << " failures\n";
  return failures == 0 ? 0 : 1;
}
