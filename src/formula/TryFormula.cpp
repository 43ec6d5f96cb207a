#include "formula/TryFormula.h"

#include <cstddef>
#include <cstdint>
#include <new>

namespace {

using Units::FormulaSpan;

/// Notes of each token that may be refused later where it is.
class Trial final : public FormulaRun {
 public:
  Trial(const FormulaContext& context, std::size_t formulaSize, Units::FormulaOutcome& out)
      : FormulaRun(context, formulaSize, SpanFinder::Spans::InFormula, out) {}

 private:
  struct Place {
    std::size_t begin;
    std::size_t end;
    const Place* previous;
    std::uint32_t token;  // and of those that follow, up to the next place
  };

  void addToken(const FormulaToken& token) override;
  FormulaSpan spanOf(std::uint32_t token) const override;

  const Place* last_ = nullptr;  // in the arena, as the nodes
  std::size_t opened_ = 0;       // parentheses in a row, up to the last token
};

void Trial::addToken(const FormulaToken& token) {
  opened_ = token.type == FormulaTokenType::OpenParen ? opened_ + 1 : 0;
  if (token.type == FormulaTokenType::Number || token.type == FormulaTokenType::CloseParen) return;
  if (opened_ > 2) return;  // shares the node of the first one, or of the second after a function
  const FormulaSpan span = lastSpan();
  // All of a replacement is in one place.
  if (last_ && last_->begin == span.begin && last_->end == span.end) return;
  last_ = new (arena_.allocate(sizeof(Place))) Place{span.begin, span.end, last_, lastToken()};
}

FormulaSpan Trial::spanOf(std::uint32_t token) const {
  const Place* place = last_;
  while (place->token > token) place = place->previous;
  return {0, place->begin, 0, place->end};
}

}  // namespace

Units::FormulaOutcome tryFormula(const std::string& formula, FormulaGoal goal,
                                 const Units::Unit* unit, const FormulaContext& context) {
  Units::FormulaOutcome out;
  Trial(context, formula.size(), out).run(formula, goal, unit);
  return out;
}
