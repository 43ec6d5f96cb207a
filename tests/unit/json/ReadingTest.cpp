#include "tests/support/Bits.h"
#include "tests/support/Messages.h"
#include "tests/unit/json/TextExceptions.h"

#include <gtest/gtest.h>

#include <utility>

using namespace std::string_literals;

namespace {

TEST(Reading, GivesNumbersAsDoubles) {
  const std::pair<const char*, double> rows[] = {
      {"-0", 0.0},  // an integer
      {"-0.0", -0.0},
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
