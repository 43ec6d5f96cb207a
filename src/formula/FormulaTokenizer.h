#pragma once

#include "formula/FormulaText.h"
#include "formula/KnownVariables.h"
#include "formula/OperatorSearch.h"
#include "formula/UnitMath.h"
#include "model/Characters.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/Limits.h>
#include <TrelvonUnits/VariableResolver.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

enum class FormulaTokenType : std::int32_t {
  Operator = 1,
  Function = 2,
  Number = 3,
  UnitSymbol = 4,
  OpenParen = 5,
  CloseParen = 6,
  Variable = 7,  // whose value is known
};

struct FormulaToken {
  FormulaTokenType type = FormulaTokenType::Operator;
  std::string_view text;                  // valid until the next token is read
  double value = 0;                       // of a number
  const Units::Symbol* symbol = nullptr;  // of a number with a symbol; in the registry
  std::optional<Units::CompositeForm> form = std::nullopt;  // of a composite literal
  const VariableValue* variable = nullptr;                  // of a known variable
};

/// Splits a formula into tokens.
///
/// A token ends at an operator, but not always at the next one: the longest text that is a value
/// literal is one number, so "1e-5" and "5' - 6\"" are one token each. Text that is not a literal,
/// symbol or function is an identifier. The resolver's text, in parentheses, replaces it and is
/// read next. A variable whose value is known is a token.
///
/// The cost is linear in the length of the formula and of all replacements.
class FormulaTokenizer {
 public:
  /// @param formula           must outlive the tokenizer.
  /// @param maxSubstitutions  how many identifiers may be replaced.
  /// @param known             null if all identifiers are replaced.
  FormulaTokenizer(std::string_view formula, const Units::SymbolTexts& symbols,
                   const Units::UnitMath& unitMath, VariableResolver resolver,
                   int maxSubstitutions = Units::maximumSubstitutions,
                   KnownVariables* known = nullptr);

  /// Returns false if no token is left.
  /// @throws Units::ParseException  an identifier resolves to itself, or a limit of
  ///                                <TrelvonUnits/Limits.h> is reached. Exceptions of
  ///                                the resolver propagate.
  bool nextToken(FormulaToken& token) {
    while (!text_.rest().empty()) {
      const char next = text_.rest().front();
      if (OperatorSearch::isOperator(next)) return takeOperator(token), true;
      if (Units::isSeparator(next))
        text_.skip(1);
      else if (takeOperand(token))
        return true;
    }
    return false;
  }

  /// Where the last token or identifier began, as a distance from the end of the text. Replacements
  /// are part of the text once they are put in.
  std::size_t lastStart() const { return lastStart_; }

  /// How long the last identifier was, without the separators behind it.
  std::size_t identifierSize() const { return identifierSize_; }

  /// How much text is left, which is where it goes on as such a distance.
  std::size_t unread() const { return text_.rest().size(); }

  /// Why `nextToken` threw; Done if the resolver did.
  Units::FormulaReason refusal() const { return refusal_; }

 private:
  void takeOperator(FormulaToken& token) {
    const std::string_view text = text_.rest().substr(0, 1);
    lastStart_ = text_.rest().size();
    text_.skip(1);
    token = {text[0] == '('   ? FormulaTokenType::OpenParen
             : text[0] == ')' ? FormulaTokenType::CloseParen
                              : FormulaTokenType::Operator,
             text};
  }

  /// Takes a number, symbol, function or known variable. Returns false if it replaced an identifier instead.
  bool takeOperand(FormulaToken& token);
  bool scanValueOrSymbol(FormulaToken& token, const Units::LiteralEnds& ends);
  bool mayBeSymbol(std::string_view text) const;
  std::string_view takeTrimmed(std::size_t length);
  void substitute(std::string_view identifier);
  void checkSubstitution();
  [[noreturn]] void refuse(Units::FormulaReason reason);

  FormulaText text_;
  OperatorSearch operators_;
  const Units::SymbolTexts& symbols_;
  const Units::UnitMath& unitMath_;
  VariableResolver resolver_;
  KnownVariables* const known_;
  std::vector<std::size_t> openSubstitutions_;  // ends, as distances from the end of the text
  int substitutionsLeft_;
  std::size_t lastStart_ = 0;
  std::size_t identifierSize_ = 0;
  Units::FormulaReason refusal_ = Units::FormulaReason::Done;
};
