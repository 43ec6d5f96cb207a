#include "tests/support/ExplanationCheck.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Sample.h"

#include <gtest/gtest.h>

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
  throw Units::ParseException("There is no " + name + ".");
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

TEST(Explanation, LetsForeignExceptionsPass) {
  const Engine engine = sampleEngine();
  EXPECT_THROW(explainFormula(*engine, "own", resolve), std::out_of_range);
  EXPECT_THROW(explainFormula(*engine, "1 + odd", resolve), int);
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
  for (const char* const formula : {"2 ft + 3 in", "20 degC", "1 ft + 1", "5 fot", "5' 6\""})
    EXPECT_EQ(explainFormula(host, "foot", formula, {}).toJson(),
              explainFormula(*inner, "foot", formula, {}).toJson());
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
  for (const auto& [name, said] : std::map<std::string, std::string>{
           {"Area", "an area"}, {"Zone", "a zone"}, {"pH", "a pH"}, {"VA", "a VA"}, {"x", "a x"}}) {
    const Engine engine = makeEngine();
    engine->addDefinition(primitive("p"));
    engine->buildSchemas();
    engine->addQuantity({"q", name, {engine->getUnit("p")}});
    addSuffix(*engine, "s", "p", "p");
    EXPECT_EQ(explainUnitlessFormula(*engine, "1 p", {}).sentence(),
              "The result is " + said + ", where a plain number is asked for.");
    EXPECT_EQ(explainUnitlessFormula(*engine, "1 p * 1 p", {}).sentence(),
              "The result is a value in n^2, where a plain number is asked for.");
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
      {"sum * gone", "sum * gone\n      ^~~~\nerror: `gone` is no unit, function or variable.\n"},
      {"2 ft", "2 ft\n= 24 inch\n"}};
  for (const auto& [formula, text] : shown) {
    const std::string actual = explainFormula(*engine, formula, resolve).toText();
    EXPECT_EQ(actual.substr(0, text.size()), text);
  }
}

}  // namespace
