#include "tests/support/ExplanationCheck.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Sample.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

using Units::explainFormula;
using Units::FormulaExplanation;
using Units::FormulaReason;

std::string resolve(const std::string& name) {
  if (name == "own") throw std::out_of_range("a host's own");
  if (name == "odd") throw 7;
  if (name == "sum") return "1 ft + part";
  if (name == "part") return "2 ft";
  if (name == "x") return "5 r";
  if (name == "apart") return "5 ft - 6 in";
  if (name == "gone") throw Units::ParseException("There is no gone.");
  throw Units::ParseException("Unrecognized identifier: " + name + ".");
}

std::string times(int count, const std::string& text) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

/// "1:2-5" for bytes of the second text; "1:2-0:5" where it runs on.
std::string written(const Units::FormulaSpan& span) {
  const std::string begin = std::to_string(span.text) + ":" + std::to_string(span.begin) + "-";
  const bool runsOn = span.text != span.endText;
  return begin + (runsOn ? std::to_string(span.endText) + ":" : "") + std::to_string(span.end);
}

std::string placesOf(const FormulaExplanation& explained) {
  std::string places;
  for (const auto& text : explained.texts())
    places += text.text() + written(text.identifier()) + " ";
  for (const auto& token : explained.tokens()) places += " " + written(token.span());
  return places;
}

TEST(Explanation, PlacesTokensInReplacements) {
  const Engine engine = sampleEngine();
  EXPECT_EQ(placesOf(explainFormula(*engine, " 2 * sum", resolve)),
            " 2 * sum0:0-0 (1 ft + part)0:5-8 (2 ft)1:8-12 "
            " 0:1-2 0:3-4 1:0-1 1:1-5 1:6-7 2:0-1 2:1-5 2:5-6 1:12-13");
  addSuffix(*engine, "r", "foot", "r)) k");  // a literal that ends behind its replacement
  EXPECT_EQ(placesOf(explainFormula(*engine, "(x) k)", resolve)),
            "(x) k)0:0-0 (5 r)0:1-2  0:0-1 1:0-1 1:1-0:5 0:5-6");
}

/// The places of the refusal and of the warnings.
std::string saidOf(const FormulaExplanation& explained) {
  std::string said = written(explained.span());
  for (const auto& warning : explained.warnings())
    said += " " + written(warning.span()) + " " + warning.spelling();
  return said;
}

TEST(Explanation, PlacesWhatItSays) {
  const Engine engine = sampleEngine();
  for (const auto& [formula, said] :
       std::map<std::string, std::string>{{"2", "0:0-1 0:0-1 "},
                                          {"1/2 in", "0:0-6"},
                                          {"5 ft - 1e-1 in", "0:0-14 0:0-14 5 ft - (1e-1 in)"},
                                          {"1e-1\"", "0:0-5"},
                                          {"apart", "0:0-5 1:1-12 "},
                                          {"2 * (3", "0:4-5"},
                                          {"2 * ", "0:4-4"},
                                          {"abs 1 ", "0:0-5"},
                                          {"abs", "0:0-3"},
                                          {"abs + 1", "0:0-3"},
                                          {"2 * sum + 1", "0:8-9"}})
    EXPECT_EQ(saidOf(explainFormula(*engine, "foot", formula, resolve)), said) << formula;
}

TEST(Explanation, WritesJson) {
  const Engine engine = sampleEngine();
  EXPECT_EQ(
      explainFormula(*engine, "foot", "-2 in", {}).toJson(),
      R"~({"formula":"-2 in","unit":"foot","reason":"done","value":-0.16666666666666667,)~"
      R"~("powers":[{"unit":"inch","exponent":1.0}],)~"
      R"~("texts":[{"text":"-2 in","identifier":{"text":0,"begin":0,"endText":0,"end":0}}],)~"
      R"~("tokens":[{"kind":"operator","text":"-","span":{"text":0,"begin":0,"endText":0,"end":1}},)~"
      R"~({"kind":"number","text":"2 in","span":{"text":0,"begin":1,"endText":0,"end":5},)~"
      R"~("value":2.0,"symbol":"in","unit":"inch"}],)~"
      R"~("nodes":[{"kind":"number","token":1,"operands":[],"reached":true,"value":-2.0,)~"
      R"~("powers":[{"unit":"inch","exponent":1.0}]}],"warnings":[]})~");
  EXPECT_EQ(
      explainUnitlessFormula(*engine, "x", resolve).toJson(),
      R"~({"formula":"x","reason":"unknown-identifier","exception":"ParseException",)~"
      R"~("message":"Unrecognized identifier: 5 r.","span":{"text":1,"begin":1,"endText":1,"end":4},)~"
      R"~("sentence":"`r` is not a unit.","spellings":[],)~"
      R"~("texts":[{"text":"x","identifier":{"text":0,"begin":0,"endText":0,"end":0}},)~"
      R"~({"text":"(5 r)","identifier":{"text":0,"begin":0,"endText":0,"end":1}}],)~"
      R"~("tokens":[{"kind":"open-parenthesis","text":"(",)~"
      R"~("span":{"text":1,"begin":0,"endText":1,"end":1}}],"nodes":[],"warnings":[]})~");
}

TEST(Explanation, LetsForeignExceptionsPass) {
  const Engine engine = sampleEngine();
  EXPECT_THROW(explainFormula(*engine, "own", resolve), std::out_of_range);
  EXPECT_THROW(explainFormula(*engine, "1 + odd", resolve), int);
  EXPECT_THROW(Units::tryFormula(*engine, "foot", "1 + odd", resolve), int);
  EXPECT_THROW(explainFormula(*engine, "no unit", "1", resolve),
               Units::UnrecognizedIdentifierException);
  const auto gone = explainFormula(*engine, "1 + gone", resolve);
  EXPECT_EQ(gone.message(), "There is no gone.");
  EXPECT_EQ(written(gone.span()), "0:4-8");
  EXPECT_EQ(explainFormula(*engine, "x", {}).message(), "Unrecognized identifier: x.");
}

TEST(Explanation, IsTheSameForAHostsEngine) {
  const std::shared_ptr<Units::UnitsEngine> inner = sampleEngine();
  inner->addDefinition(factor("waiting", {}));
  const Units::HostEngine host{inner};
  for (const char* const formula :
       {"2 ft + 3 in", "20 degC", "1 ft + 1", "5 fot", "5' 6\"", "1 ft * (1 degC - 1 degC) + 1"}) {
    const auto explained = explainFormula(*inner, "foot", formula, {});
    EXPECT_EQ(explainFormula(host, "foot", formula, {}).toJson(), explained.toJson());
    EXPECT_EQ(Units::tryFormula(host, "foot", formula, {}).reason, explained.reason());
  }
}

TEST(Explanation, LeavesOutManyPowersBelowTheRoot) {
  const Engine engine = makeEngine();
  Powers powers;
  for (int number = 0; number < 9; ++number) {
    const std::string typeId = "p" + std::to_string(number);
    engine->addDefinition(primitive(typeId));
    powers[typeId] = 1;
    powers["q" + typeId] = 1;
    engine->addDefinition(primitive("q" + typeId));
  }
  engine->addDefinition(derived("all", powers));
  engine->addDefinition(derived("nine", Powers(powers.begin(), std::next(powers.begin(), 9))));
  engine->buildSchemas();
  addSuffix(*engine, "a", "all", "a");
  addSuffix(*engine, "b", "nine", "b");
  const auto nodesOf = [&](const char* formula) {
    return explainFormula(*engine, formula, {}).nodes();
  };
  EXPECT_EQ(nodesOf("1 b * 1 b * 1")[2].powers().size(), 9u);
  EXPECT_TRUE(nodesOf("1 a * 2 * 1")[2].arePowersLeftOut());
  EXPECT_EQ(nodesOf("1 a * 2").back().powers().size(), 18u);
  EXPECT_EQ(
      explainFormula(*engine, "1 a * 2 + 1", {}).sentence(),
      "`+` needs the same units on both sides: left is a value in many units, right is a plain "
      "number.");
}

TEST(Explanation, KnowsWhatNoPageShows) {
  const Engine engine = makeEngine();
  engine->addDefinition(primitive("u"));
  engine->buildSchemas();
  addSuffix(*engine, "s", "u", "gap ");
  EXPECT_EQ(explainFormula(*engine, "gap ", {}).reason(), FormulaReason::UnusableSymbol);
  const auto plain = explainFormula(*engine, "5' 6\"", {});
  ASSERT_EQ(plain.warnings().size(), 1u);
  EXPECT_EQ(plain.warnings()[0].kind(), FormulaExplanation::WarningKind::NoCompositeSymbol);
}

TEST(Explanation, NamesWhatValuesMeasureByTheEnginesWords) {
  for (const auto& [name, said] : std::map<std::string, std::string>{{"Area", "an area"},
                                                                     {"Zap", "a zap"},
                                                                     {"Azure", "an azure"},
                                                                     {"pH", "a pH"},
                                                                     {"V`", "a V`"},
                                                                     {"V{", "a V{"},
                                                                     {"[a", "a [a"},
                                                                     {"x", "a x"}}) {
    const Engine engine = makeEngine();
    engine->addDefinition(primitive("p"));
    engine->buildSchemas();
    engine->addQuantity({"q", name, {engine->getUnit("p")}});
    addSuffix(*engine, "s", "p", "p");
    EXPECT_EQ(explainUnitlessFormula(*engine, "1 p", {}).sentence(),
              "The result is " + said + ", but a plain number is needed.");
    EXPECT_EQ(explainUnitlessFormula(*engine, "1 p * 1 p", {}).sentence(),
              "The result is a value in n^2, but a plain number is needed.");
  }
}

TEST(Explanation, ShowsAnyBytes) {
  const Engine engine = sampleEngine();
  const std::string far(300, ' ');
  const std::pair<std::string, std::string> shown[] = {
      {"\xC3\xA9\xFF\n+", "\xC3\xA9\\xFF\\x0A+\n^~~~~\nerror: "},
      {"2 * sum + ()", "2 * sum + ()\n           ^\nerror: "},
      {"1 +" + far + "*" + far, "..." + std::string(60, ' ') + "*" + std::string(139, ' ') +
                                    "...\n" + std::string(63, ' ') + "^\nerror: "},
      {"a" + times(130, "\xC3\xA9"),
       "a" + times(99, "\xC3\xA9") + "...\n^" + std::string(99, '~') + "\nerror: "},
      {"sum * gone", "sum * gone\n      ^~~~\nerror: There is no gone.\n"},
      {"2\t* 3",
       "2\\x09* 3\n^\nerror: `2` is followed by a tab or line break. Only a space may come "
       "directly after a number or unit.\n  write: 2 * 3\n"},
      {"2\n", "2\\x0A\n^\nerror: `2` is followed by a tab or line break."},
      {"0.1 + 0.2", "0.1 + 0.2\n= 0.3\n"},
      {"2 ft", "2 ft\n= 24 inch\n"}};
  for (const auto& [formula, text] : shown) {
    const std::string actual = explainFormula(*engine, formula, resolve).toText();
    EXPECT_EQ(actual.substr(0, text.size()), text);
  }
}

}  // namespace
