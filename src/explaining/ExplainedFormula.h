#pragma once

#include "formula/FormulaRecorder.h"
#include "registry/Registries.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Units {

/// A recorded formula, with what its sentences and suggestions need.
struct ExplainedFormula {
  const ExplanationContents& contents;
  const Registries& registries;
  UnitTermsSource& units;
  const Unit* unit;  // the requested one; null if none was

  const std::string& formula() const { return contents.textOf(0); }
  const ExplanationContents::TokenData& tokenOf(std::uint32_t node) const {
    return contents.tokens[contents.nodes[node].token];
  }

  /// Whether the formula and its replacements are short enough to be read again for spellings, each
  /// of which is a whole formula.
  bool maySpell() const;

  /// From the start of one span to the end of another, which comes later.
  static FormulaSpan join(const FormulaSpan& first, const FormulaSpan& last) {
    return {first.text, first.begin, last.endText, last.end};
  }

  /// What a span covers, for people, in backticks.
  std::string quoted(const FormulaSpan& span) const;

  /// The formula with what a span covers replaced. The span must lie in the formula.
  std::string with(const FormulaSpan& span, const std::string& replacement) const;
};

/// The text of the first suffix symbol of a unit; empty if there is none.
std::string suffixOf(const Unit& unit, const Registries& registries);

/// Explains in a sentence why a formula was refused.
std::string sentenceOf(const ExplainedFormula& explained);

/// Formulas that are close to a refused one. The caller must evaluate them: not all of them work.
std::vector<std::string> nearFormulas(const ExplainedFormula& explained);

/// Adds the warnings, in order of their spans.
void addWarnings(const ExplainedFormula& explained, ExplanationContents& out);

}  // namespace Units
