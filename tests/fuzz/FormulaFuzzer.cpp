/// Formulas, with a resolver that answers out of the input. Tokens make up the formula, numbers are
/// what their texts say, a formula has one answer however it is written, its explanation is that
/// of the engine, and the engine that was asked answers as before.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/ExplanationCheck.h"
#include "tests/support/RandomFormulas.h"
#include "tests/unit/formula/FormulaSample.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

/// What tokens are made of, put together without sense.
const std::string pieces[] = {
    "1",   "12",    "0.5", "1e",  "1e-3",     "e",    "5'",
    "6\"", "1/2\"", "'",   "\"",  "ft",       "in",   "m",
    "cm",  "ft ",   "\t",  "\n",  " ",        " ",    "  ",
    "+",   "-",     "*",   "/",   "^",        "(",    ")",
    "(",   ")",     "sin", "pi",  "x",        "xy",   "x y",
    "$",   "%",     "m/s", "m^2", "/m",       "s",    "-",
    "0x1", "inf",   "z1",  ".",   "\xC2\xB0", "\xFF", std::string(1, '\0')};

const std::string symbolTexts[] = {
    "m", "m/s",  "m^2", "/m", "-",        "(",    "()",
    " ", "ft  ", "m ",  "1",  "in",       "'",    "x",
    "$", "%",    "s",   "$-", "+",        "e",    "m-m",
    "*", ")m",   "\t",  "12", "\xC2\xB0", "\xFF", std::string("m\0", 2)};

void addSymbols(Random& random, Sample& sample) {
  for (std::size_t count = random.below(12); count > 0; --count) {
    const std::string& text = random.oneOf(symbolTexts);
    sample.add(text, "foot", random.oneIn(3) ? Units::Placement::Prefix : Units::Placement::Suffix);
  }
}

std::string withoutSpaces(std::string text) {
  const auto isSpace = [](char c) { return std::string("\n \t").find(c) != std::string::npos; };
  text.erase(std::remove_if(text.begin(), text.end(), isSpace), text.end());
  return text;
}

/// A number's token, read with the spaces behind it, must say what its text says, and with a minus
/// before it the negative.
void checkNumber(const FormulaToken& token, const Sample& sample) {
  if (token.symbol) {
    const auto shown = token.symbol->getPrefixOrSuffix();
    if (shown && std::string("\n \t").find(shown->getText().back()) != std::string::npos)
      return;  // the parser reads the text again
  }
  for (const std::string sign : {"", "-"}) {
    double value = 0;
    const Units::Symbol* symbol = nullptr;
    const ExactText text(sign + std::string(token.text));
    check(Units::parseValueText(text, &value, &symbol, sample.texts()), token.text);
    checkEqual(sign.empty() ? value : -value, token.value, token.text);
    check(symbol == token.symbol, token.text);
  }
}

/// Answers in turn, and throws when it was asked too often.
VariableResolver makeResolver(const std::vector<std::string>& replacements) {
  return [&replacements, asked = std::size_t{0}](const std::string&) mutable {
    if (asked == 6) throw std::logic_error("Enough.");
    return replacements[asked++ % replacements.size()];
  };
}

void checkFormula(const std::string& formula, const std::vector<std::string>& replacements,
                  const Sample& sample) {
  const ExactText text(formula);
  bool isReplaced = false;
  const auto resolver = [&, answer = makeResolver(replacements)](const std::string& name) {
    return isReplaced = true, answer(name);
  };
  FormulaTokenizer tokenizer(text, sample.texts(), sample.engine, resolver);
  std::string all;
  try {
    for (FormulaToken token; tokenizer.nextToken(token);) {
      if (token.type == FormulaTokenType::Number) checkNumber(token, sample);
      all += token.text;
    }
  } catch (const std::logic_error&) {
    isReplaced = true;
  }
  if (!isReplaced) checkEqual(withoutSpaces(all), withoutSpaces(formula), "tokens");

  for (const std::string unit : {"foot", ""})
    checkEqual(ExplanationCheck(sample.engine, unit, formula, makeResolver(replacements)).run(), "",
               formula);

  const std::string outcome = sample.outcome(text, makeResolver(replacements));
  checkEqual(sample.outcome(text, makeResolver(replacements)), outcome, formula);
  checkEqual(sample.outcome("2 ft + 3 lb / 2 lb * 2 in"), "27 inch^1", formula);
}

/// The symbols are none of those whose words and marks make composite literals.
const Vocabulary words = {
    [](Random& random) {
      return random.oneOf({"1", "2", "3", "0.5", "7.25", "10", ".4", "1e3", "2E-2", "0x1.8p1"});
    },
    {{{"", "", "rad"}, {"lb", "st"}, {}}},
    {"abs", "sqrt", "round", "sin", "exp", ""},
    {"*", "/", "^"}};

void checkEquivalents(Random& random) {
  static const Sample sample;
  RandomFormulas formulas(random, words);
  const auto ways = formulas.make(random.between(0, 2), random.below(5)).ways;
  const auto resolver = [&](const std::string& name) {
    const auto found = formulas.variables.find(name);
    return found == formulas.variables.end() ? rejectIdentifier(name) : found->second;
  };
  const std::string outcome = sample.outcome(ways[bare]);
  for (const Way way : {full, spaced, applied, withNames}) {
    checkEqual(sample.outcome(ways[way], resolver), outcome, ways[way] + " for " + ways[bare]);
    checkEqual(ExplanationCheck(sample.engine, "foot", ways[way], resolver).run(), "", ways[way]);
  }
}

}  // namespace

void fuzz(Random& random) {
  if (random.takes('#')) {
    for (int count = 0; count < 8; ++count) checkEquivalents(random);
    return;
  }
  Sample sample;
  if (random.takes('%')) {
    addSymbols(random, sample);
    for (int count = 0; count < 4; ++count) {
      const std::string formula = random.text(pieces, 14);
      checkFormula(formula, {random.text(pieces, 4), random.text(pieces, 8), "x", "1+1"}, sample);
    }
    return;
  }
  // The formula, and behind each ";" a text of the resolver.
  std::vector<std::string> texts = split(random.rest(), ';');
  const std::string formula = texts.front();
  texts.front() = "1 ft";
  checkFormula(formula, texts, sample);
}
