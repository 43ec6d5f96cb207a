/// Compares explanations and outcomes with what the engine answers.
#pragma once

#include "engine/UnitsEngineImpl.h"
#include "formula/FormulaTokenizer.h"
#include "model/Characters.h"
#include "model/ShownText.h"
#include "tests/support/Bits.h"
#include "tests/support/Outcome.h"
#include "tests/support/PlaceInFormula.h"

#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaOutcome.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

/// Explains and tries a formula, in a unit unless its id is empty, and returns what is wrong with what
/// is told; empty if nothing is.
class ExplanationCheck {
 public:
  ExplanationCheck(const Units::UnitsEngineImpl& engine, const std::string& unit,
                   const std::string& formula, const VariableResolver& resolver)
      : engine_(engine), unit_(unit), formula_(formula), resolver_(resolver) {}

  std::string run() const {
    std::vector<std::string> asked, askedAgain;
    std::optional<Units::FormulaExplanation> made;
    const std::string expected = outcome([&] { return evaluate(watched(asked)); });
    const std::string actual =
        outcome([&] { return answer(made.emplace(explain(watched(askedAgain)))); });
    if (actual != expected) return "explained as " + actual + " instead of " + expected;
    if (asked != askedAgain) return "the resolver was asked for other names";
    if (!made) return "";  // the resolver threw
    const Units::FormulaExplanation& explained = *made;
    asked.clear();
    if (!isSame(attempt(watched(asked)), explained)) return "tried with another outcome";
    if (asked != askedAgain) return "the resolver was asked for other names when tried";
    if (!haveSameTokens(explained)) return "other tokens";
    if (!isTree(explained)) return "no tree";
    if (!tiles(explained)) return "the tokens do not tile the texts";
    for (const std::string& text : {explained.toText(), explained.toTree(), explained.toJson()})
      if (Units::wholeText(text) != text) return "no UTF-8";
    return "";
  }

 private:
  VariableResolver watched(std::vector<std::string>& asked) const {
    return [resolver = resolver_, &asked](const std::string& name) {
      asked.push_back(name);
      return resolver(name);
    };
  }

  double evaluate(const VariableResolver& resolver) const {
    return unit_.empty() ? engine_.evaluateUnitlessExpression(formula_, resolver)
                         : engine_.evaluateExpressionInUnit(unit_, formula_, resolver);
  }
  Units::FormulaExplanation explain(const VariableResolver& resolver) const {
    return unit_.empty() ? explainUnitlessFormula(engine_, formula_, resolver)
                         : explainFormula(engine_, unit_, formula_, resolver);
  }

  Units::FormulaOutcome attempt(const VariableResolver& resolver) const {
    return unit_.empty() ? tryUnitlessFormula(engine_, formula_, resolver)
                         : tryFormula(engine_, unit_, formula_, resolver);
  }

  static bool isSame(const Units::FormulaOutcome& tried,
                     const Units::FormulaExplanation& explained) {
    const Units::FormulaSpan place = placeInFormula(explained);
    return written(tried.value) == written(explained.value()) &&
           tried.reason == explained.reason() &&
           tried.exceptionClass == explained.exceptionClass() &&
           tried.message == explained.message() && tried.span.text == 0 &&
           tried.span.begin == place.begin && tried.span.endText == 0 &&
           tried.span.end == place.end;
  }

  /// Answers as the engine is said to.
  static double answer(const Units::FormulaExplanation& explained) {
    using Thrown = Units::FormulaExplanation::ExceptionClass;
    switch (explained.exceptionClass()) {
      case Thrown::ParseException:
        throw Units::ParseException(explained.message());
      case Thrown::IncompatibleUnitsException:
        throw Units::IncompatibleUnitsException(explained.message());
      case Thrown::LogicError:
        throw std::logic_error(explained.message());
      case Thrown::None:
        return explained.value();
    }
    return 0;
  }

  bool haveSameTokens(const Units::FormulaExplanation& explained) const {
    FormulaTokenizer tokenizer(formula_, engine_.registries().symbolTexts, engine_, resolver_);
    for (const auto& token : explained.tokens()) {
      FormulaToken expected;
      if (!tokenizer.nextToken(expected) || static_cast<int>(token.kind()) != int(expected.type) ||
          bitsOf(token.value()) != bitsOf(expected.value))
        return false;
      const Units::FormulaSpan span = token.span();
      if (span.text == span.endText && token.text() != expected.text) return false;
    }
    return true;
  }

  /// Whether every node but the root is the operand of one later node, and values stop once.
  static bool isTree(const Units::FormulaExplanation& explained) {
    const auto nodes = explained.nodes();
    std::vector<int> uses(nodes.size(), 0);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].token() >= explained.tokens().size()) return false;
      if (i > 0 && nodes[i].wasReached() && !nodes[i - 1].wasReached()) return false;
      for (const std::size_t operand : nodes[i].operands())
        if (operand >= i || uses[operand]++ != 0) return false;
    }
    return nodes.empty() || std::count(uses.begin(), uses.end(), 0) == 1;
  }

  /// Whether tokens and replaced identifiers leave only separators between them, up to where
  /// reading stopped.
  static bool tiles(const Units::FormulaExplanation& explained) {
    const auto texts = explained.texts();
    std::vector<std::vector<Units::FormulaSpan>> pieces(texts.size());
    std::vector<std::size_t> ends(texts.size(), 0);  // of what was read
    const auto add = [&](const Units::FormulaSpan& span) {
      pieces[span.text].push_back(span);
      if (span.endText != span.text) ends[span.endText] = span.end;
    };
    for (const auto& token : explained.tokens()) add(token.span());
    for (std::size_t i = 1; i < texts.size(); ++i) add(texts[i].identifier());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      std::sort(pieces[i].begin(), pieces[i].end(),
                [](const auto& a, const auto& b) { return a.begin < b.begin; });
      std::size_t end = 0;
      for (const Units::FormulaSpan& piece : pieces[i]) {
        if (piece.begin < end) return false;
        if (ends[i] == 0 && !isGap(texts[i].text(), end, piece.begin)) return false;
        end = piece.endText == piece.text ? piece.end : texts[i].text().size();
      }
      const bool isWhole = !explained.nodes().empty() && ends[i] == 0;
      if (isWhole && !isGap(texts[i].text(), end, texts[i].text().size())) return false;
    }
    return true;
  }

  static bool isGap(const std::string& text, std::size_t begin, std::size_t end) {
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(begin),
                       text.begin() + static_cast<std::ptrdiff_t>(end), Units::isSeparator);
  }

  const Units::UnitsEngineImpl& engine_;
  const std::string& unit_;
  const std::string& formula_;
  const VariableResolver& resolver_;
};
