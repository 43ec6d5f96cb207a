#include "registry/RecordChecks.h"

#include "registry/AddRecord.h"
#include "registry/Commit.h"
#include "tests/support/Messages.h"

#include <gtest/gtest.h>

#include <functional>

namespace Units {
namespace {

const FactorComponent one;
const Unit meter("meter", "meter", System::Metric, PrimitiveUnitComponent());

Unit derivedFrom(const std::map<std::string, int>& parents, const FactorComponent& factor = one,
                 const std::string& name = "name") {
  return Unit("new", name, System::Metric, DerivedUnitComponent(parents, factor));
}

/// Two of each, and a pending schema; "absolute" is the absolute unit.
Registries filled() {
  Registries registries;
  addDimension(Dimension("dimension"), registries);
  addFactor(Factor("factor", one), registries);
  addUnit(meter, registries);
  addUnit(Unit("absolute", "scale", System::Metric, AbsoluteUnitComponent("meter", 1.0)),
          registries);
  addSymbol(Symbol("symbol", meter, PrefixOrSuffix("m", Placement::Suffix, true)), registries);
  addQuantity(Quantity("quantity", "length", {meter}), registries);
  registries.pending.share(std::string_view("pending")).contents.emplace<Dimension>("pending");
  return registries;
}

const char* const zeroExponent = "A parent may not be raised to a zero exponent.";
using Powers = std::map<std::string, int>;

struct Refusal {
  std::function<void(Registries&)> add;
  const char* message;
};

#define REFUSED(kind, record, message)                                     \
  {                                                                        \
    [](Registries& registries) { add##kind(record, registries); }, message \
  }

/// Where a record has two faults, the row pins which of them is reported.
const Refusal refusals[] = {
    REFUSED(Dimension, Dimension(""), "Typeid must not be empty."),
    REFUSED(Dimension, Dimension("dimension"),
            "Schema with typeid dimension is already registered."),
    REFUSED(Factor, Factor("meter", one), "Schema with typeid meter is already registered."),
    REFUSED(Quantity, Quantity("pending", "name", {}),
            "Schema with typeid pending is already registered."),
    REFUSED(Factor, Factor("new", FactorComponent(Powers{{"a", 1}, {"b", 0}})), zeroExponent),
    REFUSED(Factor, Factor("new", FactorComponent(Powers{{"b", 1}, {"B", 1}, {"factor", 1}})),
            "Parent factor B not found."),
    REFUSED(Factor, Factor("factor", FactorComponent(Powers{{"a", 1}})),
            "Parent factor a not found."),
    REFUSED(Factor, Factor("new", FactorComponent(Powers{{"meter", 1}})),
            "Parent factor meter not found."),
    REFUSED(Unit, derivedFrom({}, one, ""), "Unit new has an empty name."),
    REFUSED(Unit, Unit("new", "name", System::Metric, AbsoluteUnitComponent("x", 0.0)),
            "Could not find relative unit with typeid x."),
    REFUSED(Unit, Unit("new", "name", System::Metric, AbsoluteUnitComponent("absolute", 0.0)),
            "Could not find relative unit with typeid absolute."),
    REFUSED(Unit, derivedFrom({}), "Derived unit new must specify at least one parent unit."),
    REFUSED(Unit, derivedFrom({{"a", 1}, {"b", 0}}), zeroExponent),
    REFUSED(Unit, derivedFrom({{"absolute", 1}, {"b", 1}}),
            "Could not find relative unit with typeid absolute."),
    REFUSED(Unit, derivedFrom({{"b", 1}}, FactorComponent(Powers{{"factor", 0}})),
            "Could not find relative unit with typeid b."),
    REFUSED(Unit, derivedFrom({{"meter", 1}}, FactorComponent(Powers{{"a", 1}, {"factor", 0}})),
            zeroExponent),
    REFUSED(Unit, derivedFrom({{"meter", 1}}, FactorComponent(Powers{{"factor", 1}, {"g", 1}})),
            "Parent factor g not found."),
    REFUSED(Unit, Unit("new", "name", System::Metric, PrimitiveUnitComponent(Dimension("meter"))),
            "Could not find dimension meter for primitive unit new."),
    REFUSED(Symbol, Symbol("new", derivedFrom({}), {}), "Symbol new must be a prefix or suffix."),
    REFUSED(Symbol, Symbol(":feetandInches-1.0", meter, {}),
            "Symbol :feetandInches-1.0 must be a prefix or suffix."),
    REFUSED(Symbol, Symbol("a:feetHyphenInches-1", derivedFrom({}), {}),
            "Could not find unit new for symbol a:feetHyphenInches-1."),
    REFUSED(Symbol, Symbol("symbol", derivedFrom({}), PrefixOrSuffix("", Placement::Prefix, false)),
            "Could not find unit new for symbol symbol."),
    REFUSED(Quantity, Quantity("", "", {derivedFrom({})}), "Quantity  has an empty name."),
    REFUSED(Quantity, Quantity("new", "name", {meter, derivedFrom({})}),
            "Could not find unit new for quantity new.")};

TEST(AddRecord, LeavesNoTraceOfWhatItRefuses) {
  const Registries before = filled();
  for (const auto& [add, message] : refusals) {
    Registries registries = filled();
    EXPECT_EQ(messageOf<ValidationException>([&, &action = add] { action(registries); }), message);
    EXPECT_EQ(registries.dimensions.objects.records(), before.dimensions.objects.records());
    EXPECT_EQ(registries.factors.objects.records(), before.factors.objects.records());
    EXPECT_EQ(registries.units.objects.records(), before.units.objects.records());
    EXPECT_EQ(registries.symbols.objects.records(), before.symbols.objects.records());
    EXPECT_EQ(registries.quantities.objects.records(), before.quantities.objects.records());
  }
}

TEST(AddRecord, StoresTheEnginesOwnUnits) {
  Registries registries = filled();
  const Unit impostor("meter", "impostor", System::Imperial, AbsoluteUnitComponent("x", 1.0));
  addSymbol(Symbol("a:metersAndCentimeters-1.0.0", impostor, {}), registries);
  addQuantity(Quantity("twice", "name", {impostor, meter, impostor}), registries);

  const Symbol symbol = registries.symbols.objects.records().at("a:metersAndCentimeters-1.0.0");
  EXPECT_EQ(symbol.getUnit().getName(), "meter");
  const auto units = registries.quantities.objects.records().at("twice").getUnits();
  ASSERT_EQ(units.size(), 3u);
  for (const Unit& unit : units) EXPECT_EQ(unit.getName(), "meter");
  EXPECT_TRUE(isRegistered(symbol.getTypeId(), registries));
  EXPECT_TRUE(isRegistered("twice", registries));
}

TEST(Commit, TakesNoRecordThatRestsOnNothing) {
  using E = UnrecognizedIdentifierException;
  const Powers parents = {{"gone", 1}};
  Registries units, factors;
  units.units.built = RecordStore<Unit>(
      {{"unit", Unit("unit", "name", System::Metric, DerivedUnitComponent(parents, 1.0))}});
  factors.factors.built =
      RecordStore<Factor>({{"factor", Factor("factor", FactorComponent(1.0, parents))}});
  EXPECT_EQ(messageOf<E>([&] { commit(units); }), "Could not find unit with typeid gone.");
  EXPECT_EQ(messageOf<E>([&] { commit(factors); }), "Could not find factor with typeid gone.");
}

}  // namespace
}  // namespace Units
