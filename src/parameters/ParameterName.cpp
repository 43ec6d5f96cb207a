#include "parameters/ParameterName.h"

#include "formula/Evaluation.h"
#include "formula/FormulaTokenizer.h"
#include "model/Characters.h"
#include "model/CodePoints.h"
#include "model/ShownText.h"

#include <TrelvonUnits/Exceptions.h>

namespace Units {

namespace {

constexpr std::string_view otherCharacters = "_ .:@#$&!~|[]{}";

/// Ranges of Unicode, from U+0080 on, that hold marks, punctuation and symbols.
constexpr struct {
  char32_t first;
  char32_t last;
} noLetters[] = {
    {0x0080, 0x00A9},                    // up to the copyright sign
    {0x00AB, 0x00B4},                    // degree, plus-minus, superscript digits
    {0x00B6, 0x00B9},                    // middle dot
    {0x00BB, 0x00BF},                    // fractions
    {0x00D7, 0x00D7},                    // multiplication sign
    {0x00F7, 0x00F7},                    // division sign
    {0x2000, 0x207F},                    // spaces, dashes, quotation marks, primes, superscripts
    {0x208A, 0x208E},                    // subscript signs
    {0x20A0, 0x20FF},                    // currencies, marks around letters
    {0x2150, 0x2BFF},                    // fractions, arrows, operators, shapes
    {0x3000, 0x3003},                    // punctuation of East Asia
    {0x3008, 0x3020}, {0xE000, 0xF8FF},  // private use
    {0xFE00, 0xFE6F},                    // variants of characters and of punctuation
    {0xFEFF, 0xFF20},                    // wide forms of ASCII's
    {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF}, {0x110000, 0xFFFFFFFF},  // no UTF-8
};

bool isLetterOf(char32_t number) {
  if (number < 0x80) return isLetter(static_cast<char>(number));
  for (const auto& [first, last] : noLetters)
    if (number >= first && number <= last) return false;
  return true;
}

bool mayBeWithin(char32_t number) {
  if (isLetterOf(number)) return true;
  if (number >= 0x80) return false;
  const char c = static_cast<char>(number);
  return isDigit(c) || otherCharacters.find(c) != std::string_view::npos;
}

class AnyName final : public KnownVariables {
 public:
  const VariableValue* find(std::string_view) override { return &any_; }

 private:
  const VariableValue any_ = {};
};

}  // namespace

bool isParameterName(std::string_view text) {
  if (text.empty() || text.back() == ' ') return false;
  const char32_t first = firstCodePoint(text).number;
  if (!isLetterOf(first) && first != '_') return false;
  while (!text.empty()) {
    const CodePoint next = firstCodePoint(text);
    if (!mayBeWithin(next.number)) return false;
    text.remove_prefix(next.bytes);
  }
  return true;
}

std::string whyNotRead(const std::string& name, const UnitsEngineImpl& engine) {
  AnyName known;
  FormulaTokenizer tokenizer(name, engine.registries().symbolTexts, engine, rejectIdentifier, 0,
                             &known);
  FormulaToken token;
  tokenizer.nextToken(token);
  const std::string text(token.text);
  if (token.type == FormulaTokenType::Variable && text == name) return "";
  if (token.type == FormulaTokenType::Function) return "Formulas read " + text + " as a function.";
  return "Formulas read " + text + " as a unit.";
}

void checkParameterName(const std::string& name, const UnitsEngineImpl& engine) {
  if (name.empty()) throw ValidationException("Parameter name must not be empty.");
  if (!isParameterName(name))
    throw ValidationException("Parameter name " + shownText(name) + " is not an identifier.");
  const std::string why = whyNotRead(name, engine);
  if (!why.empty()) throw ValidationException("Parameter name " + name + " cannot be used. " + why);
}

}  // namespace Units
