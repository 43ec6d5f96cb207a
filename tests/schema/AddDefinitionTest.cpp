#include "registry/Registries.h"
#include "schema/Definitions.h"
#include "tests/schema/SchemaTexts.h"
#include "tests/support/Messages.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

struct Refusal {
  const char* name;
  std::string text;
  std::string message;
};

class SchemaText : public testing::TestWithParam<Refusal> {};

TEST_P(SchemaText, IsRefusedAndLeavesNoTrace) {
  Registries registries;
  addDefinition(dimension("taken"), registries);

  EXPECT_EQ(messageOf<ValidationException>([&] { addDefinition(GetParam().text, registries); }),
            GetParam().message);
  EXPECT_EQ(registries.pendingTypeIds, std::set<std::string>{"taken"});
  EXPECT_EQ(registries.dimensions.pending.size(), 1u);
  EXPECT_EQ(registries.factors.pending.size() + registries.units.pending.size() +
                registries.symbols.pending.size() + registries.quantities.pending.size(),
            0u);
}

const char* const noTypeId = "Schema must specify a typeid string.";
const char* const emptyTypeId = "The typeid string may not be empty.";
const char* const noArray = "Expected an array.";
const char* const emptyBase = "Expected an array of non-empty strings.";
const char* const oneBase = "Inheritance clause must specify exactly one base schema.";
const char* const noValue = "A property definition must contain either a value or a typedValue.";
const char* const noPropertyArray = "Expected schema properties to be an array.";
const char* const taken = "Schema with typeid taken is already registered.";
const char* const unknownBase = "Inheritance from an unrecognized base schema.";
const char* const noNumber = "Expected a number.";
const char* const noString = "Expected a string.";
const char* const emptyString = "Expected a non-empty string.";
const char* const noPowers = "Expected a map with string keys and integer values.";
const char* const noPower =
    "Expected a map with string keys and integer values, but value was not an integer.";
const char* const zero = "A parent may not be raised to a zero exponent.";
const char* const noParents = "Derived unit x must specify at least one parent unit.";
const char* const notTyped = "A typedValue must be an object.";
const char* const onlyTypeId =
    "A typedValue object may not be empty and must contain a typeid attribute only.";
const char* const notTypeId = "A typedValue did not contain a typeid attribute.";
const char* const noTypedText =
    "Expected a map with string keys and values, but value was not a string.";
const char* const emptyTyped = "A typeid attribute in a typedValue object may not be empty.";

std::string undefined(const std::string& id) {
  return "Schema x has an undefined " + id + " constant.";
}

/// Documents whose fault is in a part, and comes before another in what follows.
std::string head(const std::string& members) {
  return quoted("{" + members + ",'inherits':['b','']}");
}
std::string bases(const std::string& json) {
  return quoted("{'typeid':'x','inherits':" + json + ",'constants':0}");
}
std::string body(const std::string& members) {
  return quoted("{'typeid':'x','inherits':['y:factor-1.0']," + members + "}");
}

INSTANTIATE_TEST_SUITE_P(
    Documents, SchemaText,
    testing::Values(
        Refusal{"NoJson", "{} x",
                "JSON parsing error at offset 3: The document root must not be followed by other "
                "values."},
        Refusal{"NoObject", "[]", noTypeId}, Refusal{"NoTypeId", head("'x':1"), noTypeId},
        Refusal{"TypeIdIsNoString", head("'typeid':5,'typeid':'x'"), noTypeId},
        Refusal{"TypeIdIsEmpty", head("'typeid':''"), emptyTypeId},
        Refusal{"TypeIdIsEmptyUpToNul", head("'typeid':'\\u0000x'"), emptyTypeId},
        Refusal{"NoBases", quoted("{'typeid':'x','constants':0}"),
                "Schema must specify an inheritance array."},
        Refusal{"BasesAreText", bases("'b'"), noArray},
        Refusal{"BasesAreNull", bases("null"), noArray},
        Refusal{"BaseIsNoString", bases("[1,'']"), "Expected an array of strings."},
        Refusal{"BaseIsEmpty", bases("['',1]"), emptyBase},
        Refusal{"BaseIsEmptyBeforeCount", bases("['b','']"), emptyBase},
        Refusal{"NoBase", bases("[]"), oneBase}, Refusal{"TwoBases", bases("['b','c']"), oneBase},
        Refusal{"NoConstantArray", body("'constants':{},'properties':0"),
                "Expected schema constants to be an array."},
        Refusal{"NoPropertyArray", body("'properties':null"), noPropertyArray},
        Refusal{"NoProperty", body("'constants':[1,{}]"),
                "Expected an object describing a property."},
        Refusal{"NoId", body("'constants':[{'value':1},1]"),
                "A property definition must have an id attribute."},
        Refusal{"IdIsNoString", body("'properties':[{'id':null}]"),
                "A property's id attribute must be a string."},
        Refusal{"ConstantTwice", body("'constants':[{'id':'a'},{'id':'a'}]"),
                "Item a in constants array must be defined only once."},
        Refusal{"PropertyTwice", body("'properties':[{'id':''},{'id':''},1]"),
                "Item  in properties array must be defined only once."},
        Refusal{"NoValue", body("'constants':[{'id':'a'}],'properties':0"), noValue},
        Refusal{"PropertiesBeforeKind",
                body("'constants':[{'id':'factor','value':0}],'properties':0"), noPropertyArray},
        Refusal{"HeadBeforeTaken", quoted("{'typeid':'taken','inherits':[]}"), oneBase},
        Refusal{"TakenBeforeBase", schema("taken", "thing", {}), taken},
        Refusal{"TakenBeforeConstants", schema("taken", "unit.primitive", {}), taken},
        Refusal{"BaseOfNoKind", schema("x", "thing", {}), unknownBase},
        Refusal{"BaseInOtherCase", schema("x", "Dimension", {}), unknownBase},
        Refusal{"BaseOfNextMajorVersion", quoted("{'typeid':'x','inherits':['a:dimension-2.0.0']}"),
                unknownBase}),
    [](const auto& row) { return row.param.name; });

std::string product(const std::string& number, const std::string& parents) {
  return schema("x", "factor.derived", {value("parentFactors", parents), value("factor", number)});
}
std::string unit(const std::string& kind, Ids constants) {
  return schema("x", "unit." + kind, {named, list(constants)});
}
std::string scale(const std::string& parent) {
  return unit("absolute", {value("parentUnit", parent)});
}
std::string compound(const std::string& units, const std::string& factors) {
  return unit("derived", {value("parentUnits", units), value("parentFactors", factors)});
}

INSTANTIATE_TEST_SUITE_P(
    FactorsAndUnits, SchemaText,
    testing::Values(
        Refusal{"Factor", schema("x", "factor", {value("factor", "'3'")}), noNumber},
        Refusal{"TypedFactor", schema("x", "factor", {typed("factor", "u")}), noNumber},
        Refusal{"ValueBeforeTypedValue",
                schema("x", "factor", {"{'id':'factor','typedValue':{},'value':null}"}), noNumber},
        Refusal{"FactorBeforeParents", product("{}", "1"), noNumber},
        Refusal{"ParentsAreNoMap", product("1", "[]"), noPowers},
        Refusal{"NoIntegerBeforeZero", product("1", "{'a':0,'b':1.0}"), noPower},
        Refusal{"NoInt", product("1", "{'a':2147483648}"), noPower},
        Refusal{"ZeroParent", product("1", "{'a':1,'b':0}"), zero},
        Refusal{"NoNameNorSystem", schema("x", "unit.primitive", {}), undefined("name")},
        Refusal{"Name", schema("x", "unit.primitive", {value("name", "1")}), noString},
        Refusal{"EmptyName", schema("x", "unit.primitive", {value("name", "''")}), emptyString},
        Refusal{"NoSystemNorParent", schema("x", "unit.absolute", {value("name", "'n'")}),
                undefined("unitSystem")},
        Refusal{"SystemBeforeParent",
                schema("x", "unit.absolute", {value("name", "'n'"), value("unitSystem", "1")}),
                noString},
        Refusal{"EmptySystem",
                schema("x", "unit.derived", {value("name", "'n'"), value("unitSystem", "''")}),
                emptyString},
        Refusal{"OffsetBeforeParent", unit("absolute", {value("offset", "true")}), noNumber},
        Refusal{"NoParent", unit("absolute", {value("offset", "1")}), undefined("parentUnit")},
        Refusal{"Parent", scale("'u'"), notTyped}, Refusal{"EmptyParent", scale("{}"), onlyTypeId},
        Refusal{"ParentWithMore", scale("{'typeid':'u','x':'y'}"), onlyTypeId},
        Refusal{"ParentIdBeforeMore", scale("{'typeid':1,'x':'y'}"), noTypedText},
        Refusal{"ParentNamedOtherwise", scale("{'name':''}"), notTypeId},
        Refusal{"EmptyParentId", scale("{'typeid':''}"), emptyTyped},
        Refusal{"UnitFactorBeforeParents",
                unit("derived", {value("factor", "null"), value("parentFactors", "1")}), noNumber},
        Refusal{"ParentFactorsBeforeUnits", compound("1", "[]"), noPowers},
        Refusal{"ParentUnits", compound("[]", "{'f':0}"), noPowers},
        Refusal{"NoParentUnits", unit("derived", {value("parentFactors", "{'f':0}")}),
                undefined("parentUnits")},
        Refusal{"EmptyParentUnits", compound("{}", "{'f':0}"), noParents},
        Refusal{"ZeroParentUnit", compound("{'a':0}", "{}"), zero},
        Refusal{"ZeroParentFactor", compound("{'a':1}", "{'f':0}"), zero},
        Refusal{"NoDimension", unit("primitive.dimensional", {value("x", "1")}),
                undefined("dimension")},
        Refusal{"Dimension", unit("primitive.dimensional", {value("dimension", "1")}), notTyped}),
    [](const auto& row) { return row.param.name; });

std::string sign(Ids constants) {
  return schema("x", "symbol.prefixOrSuffix", {typed("unit", "u"), list(constants)});
}
const std::string text = value("text", "''");
const std::string place = value("placement", "'a'");

INSTANTIATE_TEST_SUITE_P(
    SymbolsAndQuantities, SchemaText,
    testing::Values(
        Refusal{"NoUnitBeforeForm", schema("x", "symbol", {}), undefined("unit")},
        Refusal{"NoForm", composite("x:feetandInches-1", "u"),
                "Symbol x:feetandInches-1 must be a prefix or suffix."},
        Refusal{"NoUnitBeforeText", schema("x", "symbol.prefixOrSuffix", {value("text", "1")}),
                undefined("unit")},
        Refusal{"NoTextBeforePlacement", sign({value("placement", "''")}), undefined("text")},
        Refusal{"TextBeforePlacement", sign({value("text", "1"), value("placement", "''")}),
                noString},
        Refusal{"NoPlacementBeforeSpace", sign({text, value("space", "1")}),
                undefined("placement")},
        Refusal{"EmptyPlacementBeforeSpace",
                sign({text, value("placement", "''"), value("space", "1")}), emptyString},
        Refusal{"NoSpace", sign({text, place}), undefined("space")},
        Refusal{"Space", sign({text, place, value("space", "'true'")}),
                "Expected a Boolean value."},
        Refusal{"NoNameBeforeUnits", schema("x", "quantity", {value("units", "1")}),
                undefined("name")},
        Refusal{"Units", schema("x", "quantity", {value("name", "'n'"), typed("units", "u")}),
                "Expected an array of typedValue objects."},
        Refusal{"EmptyUnit", quantity("x", {"u", "", "v"}), emptyTyped}),
    [](const auto& row) { return row.param.name; });

TEST(AddDefinition, NamesWhatIsNotRegistered) {
  const std::pair<std::string, std::set<std::string>> rows[] = {
      {schema("x", "dimension", {value("factor", "[]")}), {}},
      {schema("x", "factor", {value("parentFactors", "{'a':1}")}), {}},
      {factor("x", {"x", "b", "a", "pending"}), {"a", "b"}},
      {primitive("x"), {}},
      {dimensional("x", "d"), {"d"}},
      {derived("x", {"x", "u", "stored"}, {"f", "pending"}), {"f", "u"}},
      {absolute("x", "u"), {"u"}},
      {absolute("x", "x"), {}},
      {composite("x:feetAndInches-1", "u"), {"u"}},
      {quantity("x", {"v", "u", "stored", "v"}), {"u", "v"}}};
  for (const auto& [schemaText, unknown] : rows) {
    Registries registries;
    addDefinition(primitive("stored"), registries);
    buildSchemas(registries);
    addDefinition(factor("pending", {}), registries);
    EXPECT_EQ(addDefinition(schemaText, registries), unknown) << schemaText;
    EXPECT_EQ(registries.pendingTypeIds.size(), 2u) << schemaText;
  }
}

}  // namespace
}  // namespace Units
