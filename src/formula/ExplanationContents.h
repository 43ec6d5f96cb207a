#pragma once

#include "model/RecordContents.h"
#include "text/ValueText.h"

#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaOutcome.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Units {

/// What an explanation holds. Indexes instead of pointers, so that it can be copied and printed
/// without recursion. It holds records, which outlive their engine. The span of the outcome is in the
/// text where it stands.
struct ExplanationContents : CountedContents, FormulaOutcome {
  using TokenKind = FormulaExplanation::TokenKind;
  using NodeKind = FormulaExplanation::NodeKind;
  using WarningKind = FormulaExplanation::WarningKind;
  using ExceptionClass = FormulaExplanation::ExceptionClass;

  static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
  static constexpr std::uint32_t omitted = none - 1;

  struct TextData {
    std::string text;
    FormulaSpan identifier;
  };

  struct TokenData {
    TokenKind kind;
    FormulaSpan span;
    double value;
    std::uint32_t symbol;               // in `symbols`, or `none`
    std::optional<CompositeForm> form;  // of a composite literal
  };

  struct NodeData {
    NodeKind kind;
    bool wasReached = false;
    std::uint32_t token = 0;
    std::uint32_t operands[2] = {none, none};
    std::uint32_t powers = none;  // in `powers`; `omitted` if there are too many
    double value = std::numeric_limits<double>::quiet_NaN();
  };

  struct WarningData {
    WarningKind kind;
    FormulaSpan span;
    std::string sentence;
    std::string spelling = {};
  };

  /// Primitive units and exponents.
  using PowerList = std::vector<std::pair<Unit, double>>;

  std::string unitTypeId;
  std::vector<TextData> texts;
  std::vector<TokenData> tokens;
  std::vector<NodeData> nodes;
  std::vector<Symbol> symbols;
  std::vector<PowerList> powers;
  std::vector<WarningData> warnings;

  std::uint32_t resultPowers = none;
  bool inverted = false;  // the value was converted to the reciprocal dimension

  std::uint32_t refusedNode = none;  // whose value could not be computed
  std::string sentence;
  std::vector<std::string> spellings;

  const std::string& textOf(std::size_t text) const { return texts[text].text; }

  /// What a span covers. A literal that continues past the end of a replacement is covered up to
  /// that end.
  std::string textAt(const FormulaSpan& covered) const {
    const bool runsOn = covered.text != covered.endText;
    return textOf(covered.text)
        .substr(covered.begin, runsOn ? std::string::npos : covered.end - covered.begin);
  }

  /// Null if a node has none, or more than are recorded.
  const PowerList* powersOf(const NodeData& node) const {
    return node.powers >= omitted ? nullptr : &powers[node.powers];
  }

  /// Null if a token has none.
  const Symbol* symbolOf(const TokenData& token) const {
    return token.symbol == none ? nullptr : &symbols[token.symbol];
  }
};

}  // namespace Units
