#include "registry/AddRecord.h"
#include "schema/Definitions.h"
#include "tests/support/Messages.h"
#include "tests/support/SchemaTexts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Units {
namespace {

using Powers = std::map<std::string, int>;

void load(Registries& registries, Ids texts) {
  for (const std::string& text : texts) addDefinition(text, registries);
  buildSchemas(registries);
}

std::string number(const std::string& json) {
  return schema("x", "factor", {value("factor", json)});
}
std::string family(const std::string& system) {
  return schema("x", "unit.primitive", {value("name", "'n'"), value("unitSystem", system)});
}
std::string sign(const std::string& text, const std::string& placement, const std::string& space) {
  return schema("x", "symbol.prefixOrSuffix",
                {typed("unit", "u"), value("text", text), value("placement", placement),
                 value("space", space)});
}
const std::string factorOne = value("factor", "1.0");
const std::string twoToTheV = value("parentUnits", "{'u':1,'v':-2}");
const std::string ofF = value("parentFactors", "{'f':-2147483648}");

struct Definition {
  std::string text;
  std::string written;
  std::string typeId = "x";
};
const Definition definitions[] = {
    {dimension("\\\"\xC3\xA4\\u0001\xFF"), dimension("\\\"\xC3\xA4\\u0001\xFF"),
     "\"\xC3\xA4\x01\xFF"},
    {number("-0.0"), number("-0.0")},
    {schema("x", "factor.derived", {ofF, value("factor", "1e300")}),
     schema("x", "factor.derived", {value("factor", "1e300"), ofF})},
    {family("'metric'"), family("'Imperial'")},
    {schema("x", "unit.derived", {twoToTheV, ofF, named}),
     schema("x", "unit.derived", {named, factorOne, ofF, twoToTheV})},
    {quoted("{'properties':[{'id':'p'}],'constants':[{'typedValue':{'typeid':'u'},"
            "'id':'parentUnit'},{'id':'offset','value':-273.15},{'id':'','value':[]},"
            "{'id':'unitSystem','value':'Metric'},{'id':'name','value':'n'}],"
            "'source':{},'inherits':['me:unit.absolute-1.9'],'typeid':'x'}"),
     schema("x", "unit.absolute", {named, typed("parentUnit", "u"), value("offset", "-273.15")})},
    {sign("''", "'Prefix'", "false"), sign("''", "'Prefix'", "false")},
    {sign("'a\\\\b'", "'prefix'", "true"), sign("'a\\\\b'", "'Suffix'", "true")}};

TEST(Definitions, AreWrittenAsTheyWereReadAndReadAsTheyWereWritten) {
  for (const Definition& row : definitions)
    for (const std::string& text : {row.text, row.written}) {
      Registries registries;
      load(registries, {dimension("d"), factor("f", {}), primitive("u"), primitive("v"), text});
      EXPECT_EQ(getDefinition(row.typeId, registries), row.written);
    }
}

// The rows above would not notice a field that is kept in a wrong place by reader and writer alike.
TEST(Definitions, ServeRecordsOfWhatTheySay) {
  Registries registries;
  load(registries,
       {dimension("d"), factor("f", {}), dimensional("u", "d"), absolute("a", "x"),
        schema("x", "unit.derived",
               {value("name", "'ex'"), value("unitSystem", "'US'"), value("factor", "0.25"),
                value("parentUnits", "{'u':3}"), value("parentFactors", "{'f':-1}")}),
        schema("s", "symbol.prefixOrSuffix",
               {typed("unit", "x"), value("text", "'t'"), value("placement", "'Prefix'"),
                value("space", "true")}),
        quantity("q", {"x", "u"})});
  const auto& units = registries.units.objects.records();
  EXPECT_EQ(units.at("x").getName(), "ex");
  EXPECT_EQ(units.at("x").getUnitSystem(), System::Imperial);
  const auto component = units.at("x").getDerivedUnitComponent();
  EXPECT_EQ(component->getParentUnitPowers(), (Powers{{"u", 3}}));
  EXPECT_EQ(component->getFactorComponent().getFactor(), 0.25);
  EXPECT_EQ(component->getFactorComponent().getParentFactorPowers(), (Powers{{"f", -1}}));
  EXPECT_EQ(units.at("a").getAbsoluteUnitComponent()->getParentUnit(), "x");
  EXPECT_EQ(units.at("a").getAbsoluteUnitComponent()->getOffset(), 0.0);
  EXPECT_EQ(units.at("u").getPrimitiveUnitComponent()->getDimension(), Dimension("d"));
  const Symbol symbol = registries.symbols.objects.records().at("s");
  EXPECT_EQ(symbol.getUnit().getName() + symbol.getPrefixOrSuffix()->getText(), "ext");
  EXPECT_TRUE(symbol.getPrefixOrSuffix()->hasSpace());
  EXPECT_EQ(registries.quantities.objects.records().at("q").getUnits()[0].getName(), "ex");
}

TEST(Definitions, AreNotWrittenWithNumbersThatJsonCannotHold) {
  const double infinity = std::numeric_limits<double>::infinity();
  const DerivedUnitComponent derived({{"u", 1}}, -infinity);
  Registries registries;
  load(registries, {primitive("u")});
  addFactor(Factor("factor", FactorComponent(std::nan(""))), registries);
  addUnit(Unit("derived", "n", System::Metric, derived), registries);
  addUnit(Unit("absolute", "n", System::Metric, AbsoluteUnitComponent("u", infinity)), registries);
  for (const std::string typeId : {"factor", "derived", "absolute"})
    EXPECT_EQ(messageOf<ValidationException>([&] { getDefinition(typeId, registries); }),
              "Definition " + typeId + " has a number that JSON cannot hold.");
}

TEST(Definitions, AreWrittenWithNulsAndReadUpToThem) {
  Registries registries;
  addFactor(Factor(std::string("f\0x", 3), FactorComponent(2.0)), registries);
  const std::string written = getDefinition(std::string("f\0x", 3), registries);
  EXPECT_NE(written.find("{\"typeid\":\"f\\u0000x\","), std::string::npos) << written;
  load(registries, {written});
  EXPECT_EQ(registries.factors.objects.records().count("f"), 1u);
}

TEST(Definitions, AreFoundOnlyWhenStored) {
  const std::string message = "Could not find any object with typeid x.";
  Registries registries;
  const auto define = [&] { getDefinition("x", registries); };
  const auto depend = [&] { getDependencies("x", registries); };
  EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(define), message);
  EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(depend), message);
  addDefinition(factor("x", {"y"}), registries);
  EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(define), message);
  EXPECT_EQ(getDependencies("x", registries), std::set<std::string>());
}

}  // namespace
}  // namespace Units
