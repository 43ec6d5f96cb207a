#include "TrelvonUnits/Limits.h"
#include "formula/FormulaTokenizer.h"
#include "tests/support/Messages.h"
#include "tests/unit/formula/FormulaSample.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

/// Each token as its type and text, and what ended them.
std::string tokens(const Sample& sample, std::string_view text,
                   VariableResolver resolver = rejectIdentifier) {
  FormulaTokenizer tokenizer(text, sample.texts(), sample.engine, std::move(resolver));
  std::string all;
  try {
    for (FormulaToken token; tokenizer.nextToken(token);)
      all += std::to_string(static_cast<int>(token.type)) + "[" + std::string(token.text) + "]";
  } catch (const std::logic_error& thrown) {
    all += thrown.what();
  }
  return all;
}

using Rows = std::vector<std::pair<const char*, const char*>>;

TEST(Tokenizer, FindsTheLongestLiteral) {
  const Sample sample;
  for (const auto& [text, expected] :
       Rows{{" \n\t", ""},
            {"\t3 ft \n", "Unrecognized identifier: 3 ft."},  // a literal ends in spaces alone
            {"3 ft  + 1", "3[3 ft]1[+]3[1]"},
            {"-5' 6\" + 3 in * 2", "1[-]3[5' 6\"]1[+]3[3 in]1[*]3[2]"},
            {"2 /ft/ft", "3[2 /ft]1[/]4[ft]"},
            {"(2)/ft", "5[(]3[2]6[)]1[/]4[ft]"},
            {"$5-1", "4[$]3[5]1[-]3[1]"},
            {"1e-5-1e-5", "3[1e-5]1[-]3[1e-5]"},
            {"1e+5e-5", "Unrecognized identifier: 1e."},
            {"sin (1)", "2[sin]5[(]3[1]6[)]"},
            {"ft ft in", "4[ft]4[ft]4[in]"},
            {"a b", "Unrecognized identifier: a b."},
            {"2 + sinx", "3[2]1[+]Unrecognized identifier: sinx."}})
    EXPECT_EQ(tokens(sample, text), expected) << text;
}

TEST(Tokenizer, LooksForTheEndOfALiteralAtFivePlaces) {
  Sample sample;
  sample.add("****", "foot", Units::Placement::Suffix);
  sample.add("%*****", "foot", Units::Placement::Suffix);
  EXPECT_EQ(tokens(sample, "2****"), "3[2****]");
  EXPECT_EQ(tokens(sample, "2%*****"), "Unrecognized identifier: 2%.");
}

TEST(Tokenizer, EndsASymbolWhereNoLetterFollows) {
  Sample sample;
  sample.add("$%", "foot", Units::Placement::Suffix);
  sample.add("ft%", "foot", Units::Placement::Prefix);
  EXPECT_EQ(tokens(sample, "$%"), "4[$%]");
  EXPECT_EQ(tokens(sample, "ft%"), "4[ft%]");
  for (const std::string other : {"@", "[", "`", "{"})  // those beside the letters
    EXPECT_EQ(tokens(sample, "ft" + other), "4[ft]Unrecognized identifier: " + other + ".");
  for (const std::string letter : {"A", "Z", "a", "z"})
    EXPECT_EQ(tokens(sample, "ft" + letter), "Unrecognized identifier: ft" + letter + ".");
}

TEST(Tokenizer, ReadsReplacementsWithTheTextBehindThem) {
  const Sample sample;
  const std::map<std::string, std::string> variables = {
      {"same", "same"},  {"once", "1"},        {"twice", "once*once"}, {"none", ""},
      {"open", "1)*(2"}, {"height", "5' 6\""}, {"circle", "circle 2"}, {"circle 2", "circle 2"}};
  const auto resolver = [&](const std::string& name) { return variables.at(name); };
  for (const auto& [text, expected] :
       Rows{{"once", "5[(]3[1]6[)]"},
            {"twice+1", "5[(]5[(]3[1]6[)]1[*]5[(]3[1]6[)]6[)]1[+]3[1]"},
            {"none", "5[(]6[)]"},
            {"open", "5[(]3[1]6[)]1[*]5[(]3[2]6[)]"},
            {"-height", "1[-]5[(]3[5' 6\"]6[)]"},
            {"2*same", "3[2]1[*]Variable resolved to an identical string."},
            {" same ", "Variable resolved to an identical string."},
            {"circle", "5[(]Variable resolved to an identical string."}})
    EXPECT_EQ(tokens(sample, text, resolver), expected) << text;
}

TEST(Spellings, AreFoundByTheirValue) {
  const FunctionMap functions;
  for (const auto& [spelling, function] : functions.spellings())
    EXPECT_EQ(functions.spellingOf(function), spelling);
  EXPECT_EQ(functions.spellingOf(FormulaFunction::None), "");
  EXPECT_EQ(BinaryOperatorMap().spellingOf(FormulaBinaryOperator::Power), "^");
}

TEST(Resolvers, AreBoundedInDepth) {
  const Sample sample;
  int asked = 0;
  const auto circle = [&](const std::string& name) { return ++asked, name == "x" ? "y" : "x"; };
  EXPECT_EQ(sample.outcome("x", std::ref(circle)), "Variables are nested too deeply.");
  EXPECT_EQ(asked, Units::maximumSubstitutionDepth);

  // Texts side by side do not nest, however deep each of them goes.
  const auto chain = [](const std::string& name) {
    const int left = std::stoi(name.substr(1));
    return left == 1 ? std::string("1") : "n" + std::to_string(left - 1);
  };
  EXPECT_EQ(sample.outcome("n1000+n1000*n1000", chain), "2");
  EXPECT_EQ(sample.outcome("n2+n1001", chain), "Variables are nested too deeply.");
}

TEST(Resolvers, AreBoundedInNumber) {
  const Sample sample;
  EXPECT_EQ(Units::maximumSubstitutions, 10000000);
  int asked = 0;
  FormulaTokenizer tokenizer(
      "a-b-c-d-e-f", sample.texts(), sample.engine,
      [&](const std::string&) { return ++asked, "1"; }, 5);
  EXPECT_EQ(messageOf<Units::ParseException>([&] {
              for (FormulaToken token; tokenizer.nextToken(token);) continue;
            }),
            "Too many variables.");
  EXPECT_EQ(asked, 5);
}

}  // namespace
