#include "TrelvonUnits/Limits.h"
#include "formula/FormulaTokenizer.h"
#include "tests/support/Messages.h"
#include "tests/unit/formula/FormulaSample.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

/// Each token as its type and text, and what ended them.
std::string tokens(const Sample& sample, std::string_view text) {
  FormulaTokenizer tokenizer(text, sample.texts(), sample.engine, rejectIdentifier);
  std::string all;
  try {
    for (FormulaToken token; tokenizer.nextToken(token);)
      all += std::to_string(static_cast<int>(token.type)) + "[" + std::string(token.text) + "]";
  } catch (const std::logic_error& thrown) {
    all += thrown.what();
  }
  return all;
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
