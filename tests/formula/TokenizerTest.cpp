#include "formula/FormulaTokenizer.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/formula/FormulaSample.h"
#include "tests/formula/ReferenceTokenizer.h"

namespace {

/// Each token as its type and text, and what ended them.
template <class NextToken>
std::string tokens(const NextToken& nextToken) {
  std::string all;
  try {
    for (FormulaToken token; nextToken(token);)
      all += std::to_string(static_cast<int>(token.type)) + "[" + std::string(token.text) + "]";
  } catch (const std::logic_error& thrown) {
    all += thrown.what();
  }
  return all;
}

/// A number's token, read with the spaces behind it, must say what its text says, and with a minus
/// before it the negative.
void expectToBeRead(const FormulaToken& token, const Sample& sample) {
  if (token.symbol) {
    const auto shown = token.symbol->getPrefixOrSuffix();
    if (shown && std::string("\n \t").find(shown->getText().back()) != std::string::npos)
      return;  // the parser reads the text again
  }
  for (const std::string sign : {"", "-"}) {
    double value = 0;
    const Units::Symbol* symbol = nullptr;
    EXPECT_TRUE(
        Units::parseValueText(sign + std::string(token.text), &value, &symbol, sample.texts()))
        << token.text;
    EXPECT_EQ(sign.empty() ? value : -value, token.value) << token.text;
    EXPECT_EQ(symbol, token.symbol) << token.text;
  }
}

std::string tokens(const Sample& sample, std::string_view text,
                   VariableResolver resolver = rejectIdentifier) {
  FormulaTokenizer tokenizer(text, sample.texts(), sample.engine, std::move(resolver));
  return tokens([&](FormulaToken& token) {
    if (!tokenizer.nextToken(token)) return false;
    if (token.type == FormulaTokenType::Number) expectToBeRead(token, sample);
    return true;
  });
}

std::string referenceTokens(const Sample& sample, const std::string& text,
                            VariableResolver resolver) {
  ReferenceTokenizer tokenizer{text, sample.texts(), sample.engine, std::move(resolver)};
  std::string taken;
  return tokens([&](FormulaToken& token) {
    const bool any = tokenizer.nextToken(token.type, taken);
    token.text = taken;
    return any;
  });
}

struct Row {
  const char* text;
  const char* tokens;
};

TEST(Tokenizer, FindsTheLongestLiteral) {
  const Sample sample;
  for (const Row& row : std::vector<Row>{
           {"", ""},
           {" \n\t", ""},
           {"1e-5", "3[1e-5]"},
           {"2-1", "3[2]1[-]3[1]"},
           {"3 ft", "3[3 ft]"},
           {"\t3 ft \n", "Unrecognized identifier: 3 ft."},  // a literal ends in spaces alone
           {"3 ft  + 1", "3[3 ft]1[+]3[1]"},
           {"-5' 6\" + 3 in * 2", "1[-]3[5' 6\"]1[+]3[3 in]1[*]3[2]"},
           {"5' - 6 1/2\"*2", "3[5' - 6 1/2\"]1[*]3[2]"},
           {"2 /ft", "3[2 /ft]"},
           {"2 /ft/ft", "3[2 /ft]1[/]4[ft]"},
           {"(2)/ft", "5[(]3[2]6[)]1[/]4[ft]"},
           {"$5", "3[$5]"},
           {"$5-1", "4[$]3[5]1[-]3[1]"},
           {"1e-5-1e-5", "3[1e-5]1[-]3[1e-5]"},
           {"1e+5e-5", "Unrecognized identifier: 1e."},
           {"sin (1)", "2[sin]5[(]3[1]6[)]"},
           {"ft(", "4[ft]5[(]"},
           {"ft ft in", "4[ft]4[ft]4[in]"},
           {"a b", "Unrecognized identifier: a b."},
           {"2 + sinx", "3[2]1[+]Unrecognized identifier: sinx."}})
    EXPECT_EQ(tokens(sample, row.text), row.tokens) << row.text;
}

TEST(Tokenizer, ReadsReplacementsWithTheTextBehindThem) {
  const Sample sample;
  const std::map<std::string, std::string> variables = {
      {"same", "same"},  {"once", "1"},        {"twice", "once*once"}, {"none", ""},
      {"open", "1)*(2"}, {"height", "5' 6\""}, {"circle", "circle 2"}, {"circle 2", "circle 2"}};
  const auto resolver = [&](const std::string& name) { return variables.at(name); };
  for (const Row& row :
       std::vector<Row>{{"once", "5[(]3[1]6[)]"},
                        {"twice+1", "5[(]5[(]3[1]6[)]1[*]5[(]3[1]6[)]6[)]1[+]3[1]"},
                        {"none", "5[(]6[)]"},
                        {"open", "5[(]3[1]6[)]1[*]5[(]3[2]6[)]"},
                        {"-height", "1[-]5[(]3[5' 6\"]6[)]"},
                        {"2*same", "3[2]1[*]Variable resolved to an identical string."},
                        {" same ", "Variable resolved to an identical string."},
                        {"circle", "5[(]Variable resolved to an identical string."}})
    EXPECT_EQ(tokens(sample, row.text, resolver), row.tokens) << row.text;
}

/// Texts made of what tokens are made of, put together without sense.
class RandomTexts {
 public:
  explicit RandomTexts(unsigned seed) : random_(seed) {}

  std::string text(std::size_t pieces) {
    static const std::vector<std::string> all = {
        "1",   "12",    "0.5", "1e",  "1e-3",     "e",    "5'",
        "6\"", "1/2\"", "'",   "\"",  "ft",       "in",   "m",
        "cm",  "ft ",   "\t",  "\n",  " ",        " ",    "  ",
        "+",   "-",     "*",   "/",   "^",        "(",    ")",
        "(",   ")",     "sin", "pi",  "x",        "xy",   "x y",
        "$",   "%",     "m/s", "m^2", "/m",       "s",    "-",
        "0x1", "inf",   "z1",  ".",   "\xC2\xB0", "\xFF", std::string(1, '\0')};
    std::string made;
    for (std::size_t count = pick(pieces) + 1; count-- > 0;) made += all[pick(all.size())];
    return made;
  }

  std::size_t pick(std::size_t count) { return random_() % count; }

 private:
  std::mt19937 random_;
};

void addRandomSymbols(RandomTexts& random, Sample& sample) {
  static const std::vector<std::string> texts = {
      "m", "m/s", "m^2", "/m", "-",  "(", "()", " ",   "ft  ", "m ", "1",  "in", "'",
      "x", "$",   "%",   "s",  "$-", "+", "e",  "m-m", "*",    ")m", "\t", "12", "\xC2\xB0"};
  for (std::size_t count = random.pick(12); count-- > 0;)
    sample.add(texts[random.pick(texts.size())], "foot",
               random.pick(3) == 0 ? Units::Placement::Prefix : Units::Placement::Suffix);
}

TEST(Tokenizer, AgreesWithTheReference) {
  RandomTexts random(1);
  for (int set = 0; set < 200; ++set) {
    Sample sample;
    addRandomSymbols(random, sample);
    const std::vector<std::string> replacements = {random.text(4), random.text(8), "x", "1+1"};
    for (int count = 0; count < 300; ++count) {
      const std::string text = random.text(14);
      const auto makeResolver = [&] {
        return [&, asked = 0u](const std::string&) mutable {
          if (asked == 6) throw std::logic_error("Enough.");
          return replacements[(asked++ + text.size()) % replacements.size()];
        };
      };
      ASSERT_EQ(tokens(sample, text, makeResolver()), referenceTokens(sample, text, makeResolver()))
          << testing::PrintToString(text);
    }
  }
}

}  // namespace
