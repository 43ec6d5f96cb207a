#include "tests/support/Bits.h"
#include "tests/support/Messages.h"
#include "tests/unit/json/TextExceptions.h"

#include <gtest/gtest.h>

#include <utility>

using namespace std::string_literals;

namespace {

struct Refusal {
  std::string text;
  const char* message;  // behind "JSON parsing error at offset "
};

TEST(Reading, RefusesWhatIsNotJson) {
  const Refusal rows[] = {
      {"", "0: The document is empty."},
      {" \t\r\n", "4: The document is empty."},
      {"[1\0]"s, "2: Missing a comma or ']' after an array element."},
      {"{} x", "3: The document root must not be followed by other values."},
      {"]", "0: Invalid value."},
      {",[]", "0: Invalid value."},
      {"\xEF\xBB\xBF{}", "0: Invalid value."},
      {"{\"a\":1,}", "7: Missing a name for object member."},
      {"{\"a\" 1}", "5: Missing a colon after a name of object member."},
      {"{\"a\":1 \"b\":2}", "7: Missing a comma or '}' after an object member."},
      {"[\"a", "3: Missing a closing quotation mark in string."},
      {"[\\\"e1234567890\",1e1234567890]", "1: Invalid value."},
      {"\"a\nb\"", "2: Invalid escape character in string."},
      {"\"\\u12G4\"", "1: Incorrect hex digit after \\u escape in string."},
      {"\"\\uD800\"", "1: The surrogate pair in string is invalid."},
      {std::string(1000000, '['), "1000000: Invalid value."},
      {"[1.]", "3: Miss fraction part in number."},
      {"[1e-:1234567890]", "4: Miss exponent in number."},
      {"[1e-/1234567890]", "4: Miss exponent in number."},
      {"[1e+]", "4: Miss exponent in number."},
      {"[ 1e309]", "2: Number too big to be stored in double."},
      {"[-0.00E+0099999999999999999999]", "1: Number too big to be stored in double."}};
  for (const auto& [text, message] : rows)
    EXPECT_EQ(messageOf<TextError>([&, &bytes = text] { parse(bytes); }),
              std::string("JSON parsing error at offset ") + message);
}

TEST(Reading, TellsTypes) {
  const std::pair<const char*, const char*> kinds[] = {
      {"{}", "object"},  {"  [1]\n", "array"}, {"\"\"", "string"}, {"-1", "number"},
      {"1e5", "number"}, {"true", "bool"},     {"false", "bool"},  {"null", "null"}};
  for (const auto& [text, kind] : kinds) {
    const JSON json = parse(text);
    EXPECT_EQ(json.isObject(), kind == "object"s) << text;
    EXPECT_EQ(json.isArray(), kind == "array"s) << text;
    EXPECT_EQ(json.isString(), kind == "string"s) << text;
    EXPECT_EQ(json.isNumber(), kind == "number"s) << text;
    EXPECT_EQ(json.isBool(), kind == "bool"s) << text;
    EXPECT_EQ(json.getBool(), text == "true"s) << text;
  }
}

TEST(Reading, GivesNumbersAsDoubles) {
  const std::pair<const char*, double> rows[] = {
      {"-3", -3.0},
      {"-0", 0.0},  // an integer
      {"-0.0", -0.0},
      {"-2147483649", -2147483649.0},
      {"9007199254740993", 9007199254740992.0},
      {"18446744073709551615", 18446744073709551615.0},
      {"18446744073709551616", 18446744073709551616.0},
      {"25.4E-3", 0.0254},
      {"5e-324", 5e-324},
      // Exponents that overflow the reader's int together with the places of the fraction.
      {"0.11111111111e-2147483639", 0.0},
      {"-0.11111111111e-2147483639", -0.0},
      {"0.11111111111E-2147483639", 0.0},
      {"0.5e-99999999999999999999", 0.0},
      {"1.5e+0000000000000000000002", 150.0},
      {"1.5e-0000000000000000000308", 1.5e-308}};
  for (const auto& [text, value] : rows)
    EXPECT_EQ(bitsOf(parse(text).getNumber()), bitsOf(value)) << text;
  for (std::size_t spaces = 0; spaces < 10; ++spaces)
    EXPECT_EQ(parse(std::string(spaces, ' ') + "1e25").getNumber(), 1e25) << spaces;
}

TEST(Reading, CutsStringsAtTheirFirstNul) {
  const std::pair<const char*, std::string> rows[] = {
      {"\"\"", ""},
      {"\"a\\u0000b\"", "a"},
      {"\"\\u0000\"", ""},
      {"\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00B0\"", "\"\\/\b\f\n\r\t\xC2\xB0"},
      {"\"\\uD83D\\uDE00\"", "\xF0\x9F\x98\x80"},
      {"\"\xFF\xC0\"", "\xFF\xC0"},  // not checked
      {"\"\\\\\"", "\\"}};
  for (const auto& [text, value] : rows) {
    const JSON json = parse(text);
    EXPECT_EQ(json.getString(), value) << text;
    EXPECT_EQ(json.getStringView(), value) << text;
  }
}

TEST(Reading, TakesNoPartOfAStringForALongExponent) {
  EXPECT_EQ(parse("\"e-2147483648\"").getString(), "e-2147483648");
  for (const std::string before : {"\\\\", "\\\"", "a", "ab"}) {
    const JSON array = parse("[\"" + before + "\", \"e-2147483648\", 1e-2147483648]");
    EXPECT_EQ(array.getArray()[1].getString(), "e-2147483648") << before;
    EXPECT_EQ(array.getArray()[2].getNumber(), 0.0) << before;
  }
}

TEST(Reading, FindsTheFirstMemberOfExactlyThatName) {
  const JSON json =
      parse("{\"a\":1,\"a\":2,\"A\":3,\"\":4,\"n\\u0000x\":5,\"n\":6,\"o\":{\"i\":7}}");
  const std::pair<std::string, double> rows[] = {
      {"a", 1}, {"A", 3}, {"", 4}, {"n", 6}, {"n\0x"s, 5}};
  for (const auto& [key, value] : rows) {
    EXPECT_TRUE(json.hasMember(key)) << key;
    EXPECT_EQ(json.getMember(key).getNumber(), value) << key;
  }
  EXPECT_EQ(json.getMember("o").getMember("i").getNumber(), 7.0);

  for (const std::string& key : {"b"s, "aa"s, "n\0"s, "n\0y"s}) {
    EXPECT_FALSE(json.hasMember(key)) << key;
    const JSON none = json.getMember(key);
    EXPECT_FALSE(none.isObject() || none.isArray() || none.isString() || none.isNumber() ||
                 none.isBool() || none.hasMember(""));
  }
  for (const char* text : {"[{\"a\":1}]", "[]", "\"a\"", "1", "null", "true"}) {
    const JSON other = parse(text);
    EXPECT_FALSE(other.hasMember("a")) << text;
    EXPECT_FALSE(other.getMember("a").isNumber()) << text;
    EXPECT_TRUE(other.getStringIntMap().empty() && other.getStringStringMap().empty()) << text;
  }
}

TEST(Reading, ViewsOutliveTheirJsonButNotItsDocument) {
  JSON kept = parse("{\"o\":{\"a\":[\"deep\"],\"m\":{\"x\":null}}}");
  JSON element = kept.getMember("o").getMember("a").getArray().front().getMember("none");
  element = std::move(kept.getMember("o").getMember("a").getArray().front());
  JSON document = std::move(kept);
  EXPECT_EQ(element.getString(), "deep");
  // The factory goes with every view.
  EXPECT_EQ(messageOf<TextError>([&] { document.getMember("o").getMember("m").getStringIntMap(); }),
            "Expected a map with string keys and integer values, but value was not an integer.");
}

TEST(Reading, KeepsTheLastOfEqualNamesInMaps) {
  using Integers = std::map<std::string, int>;
  EXPECT_EQ(parse("{}").getStringIntMap(), Integers());
  EXPECT_EQ(parse("{\"a\":1,\"b\":-7,\"a\":2}").getStringIntMap(), (Integers{{"a", 2}, {"b", -7}}));
  EXPECT_EQ(
      parse("{\"n\\u0000x\":1,\"n\":2147483647,\"z\":-2147483648,\"-0\":-0}").getStringIntMap(),
      (Integers{{"n\0x"s, 1}, {"n", 2147483647}, {"z", -2147483647 - 1}, {"-0", 0}}));
  using Strings = std::map<std::string, std::string>;
  EXPECT_EQ(parse("{\"a\":\"x\",\"\":\"y\\u0000z\",\"a\":\"\"}").getStringStringMap(),
            (Strings{{"a", ""}, {"", "y"}}));
}

TEST(Reading, RefusesOtherValuesInMaps) {
  for (const char* value : {"1.5", "1.0", "1e0", "3000000000", "-2147483649", "4294967296", "\"1\"",
                            "true", "null", "[]", "{}"})
    EXPECT_EQ(
        messageOf<TextError>([&] { parse("{\"a\":1,\"a\":"s + value + "}").getStringIntMap(); }),
        "Expected a map with string keys and integer values, but value was not an integer.")
        << value;
  for (const char* value : {"1", "false", "null", "[]", "{}"})
    EXPECT_EQ(messageOf<TextError>(
                  [&] { parse("{\"a\":\"\",\"b\":"s + value + "}").getStringStringMap(); }),
              "Expected a map with string keys and values, but value was not a string.")
        << value;
}

TEST(Reading, HasALongestText) {
  std::string text(JSON::longestText + 1, ' ');
  EXPECT_EQ(messageOf<TextError>([&] { parse(text); }),
            "JSON parsing error at offset 536870912: The text is too long.");
  JSON root = JSON::makeDocument();
  EXPECT_THROW(JSON::makeString(root, text), std::length_error);
  EXPECT_THROW(root.setMember(root, text, JSON(1)), std::length_error);
  EXPECT_EQ(root.toString(), "{}");

  text.replace(0, 3, "{}\0"s);
  EXPECT_TRUE(parse(text).isObject());
}

}  // namespace
