#include "registry/Registries.h"
#include "schema/Definitions.h"
#include "tests/support/Messages.h"
#include "tests/support/SchemaTexts.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

struct Refusal {
  std::string text;
  std::string message;
};

const char* const noTypeId = "Schema must specify a typeid string.";
const char* const emptyTypeId = "The typeid string may not be empty.";
const char* const emptyBase = "Expected an array of non-empty strings.";
const char* const oneBase = "Inheritance clause must specify exactly one base schema.";
const char* const noPropertyArray = "Expected schema properties to be an array.";
const char* const unknownBase = "Inheritance from an unrecognized base schema.";
const char* const noNumber = "Expected a number.";
const char* const noString = "Expected a string.";
const char* const emptyString = "Expected a non-empty string.";
const char* const noPowers = "Expected a map with string keys and integer values.";
const char* const noPower =
    "Expected a map with string keys and integer values, but value was not an integer.";
const char* const zero = "A parent may not be raised to a zero exponent.";
const char* const notTyped = "A typedValue must be an object.";
const char* const onlyTypeId =
    "A typedValue object may not be empty and must contain a typeid attribute only.";
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

std::string sign(Ids constants) {
  return schema("x", "symbol.prefixOrSuffix", {typed("unit", "u"), list(constants)});
}
const std::string text = value("text", "''");
const std::string place = value("placement", "'a'");

/// Where a text has two faults, the row pins which of them is reported.
const Refusal refusals[] = {
    {"[]", noTypeId},
    {head("'x':1"), noTypeId},
    {head("'typeid':''"), emptyTypeId},
    {head("'typeid':'\\u0000x'"), emptyTypeId},
    {quoted("{'typeid':'x','constants':0}"), "Schema must specify an inheritance array."},
    {bases("[1,'']"), "Expected an array of strings."},
    {bases("['',1]"), emptyBase},
    {bases("['b','']"), emptyBase},
    {bases("['b','c']"), oneBase},
    {body("'constants':{},'properties':0"), "Expected schema constants to be an array."},
    {body("'properties':null"), noPropertyArray},
    {body("'constants':[1,{}]"), "Expected an object describing a property."},
    {body("'constants':[{'value':1},1]"), "A property definition must have an id attribute."},
    {body("'properties':[{'id':null}]"), "A property's id attribute must be a string."},
    {body("'constants':[{'id':'a'},{'id':'a'}]"),
     "Item a in constants array must be defined only once."},
    {body("'properties':[{'id':''},{'id':''},1]"),
     "Item  in properties array must be defined only once."},
    {body("'constants':[{'id':'a'}],'properties':0"),
     "A property definition must contain either a value or a typedValue."},
    {body("'constants':[{'id':'factor','value':0}],'properties':0"), noPropertyArray},
    {quoted("{'typeid':'taken','inherits':[]}"), oneBase},
    {schema("taken", "thing", {}), "Schema with typeid taken is already registered."},
    {quoted("{'typeid':'x','inherits':['dimension-1.0.0']}"), unknownBase},

    {schema("x", "factor", {"{'id':'factor','typedValue':{},'value':null}"}), noNumber},
    {product("{}", "1"), noNumber},
    {product("1", "{'a':0,'b':1.0}"), noPower},
    {product("1", "{'a':1,'b':0}"), zero},
    {schema("x", "unit.primitive", {}), undefined("name")},
    {schema("x", "unit.primitive", {value("name", "1")}), noString},
    {schema("x", "unit.absolute", {value("name", "'n'")}), undefined("unitSystem")},
    {schema("x", "unit.derived", {value("name", "'n'"), value("unitSystem", "''")}), emptyString},
    {unit("absolute", {value("offset", "true")}), noNumber},
    {unit("absolute", {value("offset", "1")}), undefined("parentUnit")},
    {scale("{}"), onlyTypeId},
    {scale("{'typeid':1,'x':'y'}"),
     "Expected a map with string keys and values, but value was not a string."},
    {scale("{'typeid':'x','typeid':''}"), emptyTyped},
    {scale("{'typeid':'x','name':'x'}"), onlyTypeId},
    {scale("{'name':''}"), "A typedValue did not contain a typeid attribute."},
    {unit("derived", {value("factor", "null"), value("parentFactors", "1")}), noNumber},
    {compound("1", "[]"), noPowers},
    {compound("[]", "{'f':0}"), noPowers},
    {unit("derived", {value("parentFactors", "{'f':0}")}), undefined("parentUnits")},
    {compound("{}", "{'f':0}"), "Derived unit x must specify at least one parent unit."},
    {compound("{'a':1,'a':1.0}", "{}"), noPower},
    {compound("{'a':1,'a':0}", "{}"), zero},
    {compound("{'a':0}", "{}"), zero},
    {compound("{'a':1}", "{'f':0}"), zero},
    {unit("primitive.dimensional", {value("x", "1")}), undefined("dimension")},
    {unit("primitive.dimensional", {value("dimension", "1")}), notTyped},

    {schema("x", "symbol", {}), undefined("unit")},
    {schema("x", "symbol.prefixOrSuffix", {value("text", "1")}), undefined("unit")},
    {sign({value("placement", "''")}), undefined("text")},
    {sign({value("text", "1"), value("placement", "''")}), noString},
    {sign({text, value("space", "1")}), undefined("placement")},
    {sign({text, value("placement", "''"), value("space", "1")}), emptyString},
    {sign({text, place}), undefined("space")},
    {schema("x", "quantity", {value("units", "1")}), undefined("name")},
    {schema("x", "quantity", {value("name", "'n'"), typed("units", "u")}),
     "Expected an array of typedValue objects."},
    {quantity("x", {"u", "", "v"}), emptyTyped}};

TEST(AddDefinition, RefusesFaultyTextsAndLeavesNoTraceOfThem) {
  Registries registries;
  addDefinition(dimension("taken"), registries);
  for (const auto& [faulty, message] : refusals) {
    SCOPED_TRACE(faulty);
    EXPECT_EQ(
        messageOf<ValidationException>([&, &text = faulty] { addDefinition(text, registries); }),
        message);
    EXPECT_EQ(registries.pending.inOrder().size(), 1u);
    EXPECT_TRUE(isRegistered("taken", registries));
  }
}

TEST(AddDefinition, NamesWhatIsNotRegistered) {
  const std::pair<std::string, std::set<std::string>> rows[] = {
      {schema("x", "factor", {value("parentFactors", "{'a':1}")}), {}},
      {factor("x", {"x", "b", "a", "pending"}), {"a", "b"}},
      {dimensional("x", "d"), {"d"}},
      {derived("x", {"x", "u", "stored"}, {"f", "pending"}), {"f", "u"}},
      {compound("{'b':0,'a':1,'b':2}", "{}"), {"a", "b"}},  // the last exponent counts
      {absolute("x", "u"), {"u"}},
      {composite("x:feetAndInches-1", "u"), {"u"}},
      {quantity("x", {"v", "u", "stored", "v"}), {"u", "v"}}};
  for (const auto& [schemaText, unknown] : rows) {
    Registries registries;
    addDefinition(primitive("stored"), registries);
    buildSchemas(registries);
    addDefinition(factor("pending", {}), registries);
    EXPECT_EQ(addDefinition(schemaText, registries), unknown) << schemaText;
    EXPECT_EQ(registries.pending.inOrder().size(), 2u) << schemaText;
  }
}

}  // namespace
}  // namespace Units
