#include "formula/FormulaRecorder.h"

#include "model/RecordAccess.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

using Units::FormulaExplanation;
using Units::FormulaSpan;
using Contents = Units::ExplanationContents;

constexpr std::size_t mostPowers = 16;    // of a node below the root
constexpr std::size_t mostUnmerged = 64;  // of a node below the root, before they are merged

FormulaExplanation::NodeKind kindOf(const Expression& node) {
  switch (node.kind()) {
    case ExpressionKind::Function:
      return FormulaExplanation::NodeKind::Function;
    case ExpressionKind::NumberConstant:
      return FormulaExplanation::NodeKind::Number;
    case ExpressionKind::Paren:
      return FormulaExplanation::NodeKind::Parentheses;
    case ExpressionKind::Symbol:
      return FormulaExplanation::NodeKind::Symbol;
    case ExpressionKind::Variable:
      return FormulaExplanation::NodeKind::Variable;
    default:
      return FormulaExplanation::NodeKind::Operator;
  }
}

Contents::PowerList listOf(const UnitPowers& powers) {
  Contents::PowerList list;
  list.reserve(powers.unmergedSize());
  for (const auto& [unit, exponent] : powers) list.emplace_back(unit->record, exponent);
  return list;
}

bool areEqual(const Contents::PowerList& a, const Contents::PowerList& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const auto& left, const auto& right) {
                      return Units::RecordAccess::identity(left.first) ==
                                 Units::RecordAccess::identity(right.first) &&
                             left.second == right.second;
                    });
}

/// Records one reading and evaluation.
class Recorder final : public FormulaRun {
 public:
  Recorder(const FormulaContext& context, Contents& out)
      : FormulaRun(context, out.textOf(0).size(), SpanFinder::Spans::InTexts, out), out_(out) {}

  void record(const std::string& formula, FormulaGoal goal, const Units::Unit* unit);

 private:
  void addToken(const FormulaToken& token) override;
  FormulaSpan spanOf(std::uint32_t token) const override { return out_.tokens[token].span; }
  void addReplacement(const std::string& text, const FormulaSpan& of) override {
    out_.texts.push_back({"(" + text + ")", of});
  }
  void addTree(const Expression& root) override;
  void addValue(EvaluatedValue& value) override;
  void addResult(EvaluatedValue& result) override;
  std::uint32_t symbolIndex(const Units::Symbol& symbol);
  std::uint32_t powersIndex(EvaluatedValue& value, std::size_t most);

  Contents& out_;
  std::size_t reached_ = 0;  // nodes that have a value
  std::unordered_map<const void*, std::uint32_t> symbolIndexes_;
  std::unordered_map<const void*, std::uint32_t> unitPowersIndexes_;
};

void Recorder::record(const std::string& formula, FormulaGoal goal, const Units::Unit* unit) {
  run(formula, goal, unit);
  out_.inverted = isInverted_;
  if (reached_ < out_.nodes.size()) out_.refusedNode = static_cast<std::uint32_t>(reached_);
}

void Recorder::addToken(const FormulaToken& token) {
  out_.tokens.push_back({static_cast<FormulaExplanation::TokenKind>(token.type), lastSpan(),
                         token.value, Contents::none, token.form});
  const Units::Symbol* const symbol = token.type == FormulaTokenType::UnitSymbol
                                          ? context_.symbols.withText(token.text)
                                          : token.symbol;
  if (symbol) out_.tokens.back().symbol = symbolIndex(*symbol);
}

void Recorder::addTree(const Expression& root) {
  std::vector<std::uint32_t> waiting;
  root.forEach([&](const Expression& node) {
    Contents::NodeData data{kindOf(node)};
    data.token = node.tokenNumber();
    for (std::size_t count = node.operandCount(); count-- > 0; waiting.pop_back())
      data.operands[count] = waiting.back();
    waiting.push_back(static_cast<std::uint32_t>(out_.nodes.size()));
    out_.nodes.push_back(data);
  });
}

void Recorder::addValue(EvaluatedValue& value) {
  Contents::NodeData& node = out_.nodes[reached_++];
  node.wasReached = true;
  node.value = value.value;
  node.powers = powersIndex(value, mostPowers);
}

void Recorder::addResult(EvaluatedValue& result) {
  out_.resultPowers = powersIndex(result, std::numeric_limits<std::size_t>::max());
  out_.nodes.back().powers = out_.resultPowers;
}

std::uint32_t Recorder::symbolIndex(const Units::Symbol& symbol) {
  const auto [found, isNew] = symbolIndexes_.emplace(
      Units::RecordAccess::identity(symbol), static_cast<std::uint32_t>(out_.symbols.size()));
  if (isNew) out_.symbols.push_back(symbol);
  return found->second;
}

std::uint32_t Recorder::powersIndex(EvaluatedValue& value, std::size_t most) {
  const auto next = static_cast<std::uint32_t>(out_.powers.size());
  if (const UnitPowers* const borrowed = value.borrowedUnits()) {
    if (borrowed->unmergedSize() > most) return Contents::omitted;
    const auto [found, isNew] = unitPowersIndexes_.emplace(borrowed, next);
    if (isNew) out_.powers.push_back(listOf(*borrowed));
    return found->second;
  }
  // Merging takes time, so below the root it is only done for a few.
  if (value.mostUnits() > std::max(most, mostUnmerged)) return Contents::omitted;
  if (value.isUnitless()) return Contents::none;
  if (value.mostUnits() > most) return Contents::omitted;
  Contents::PowerList list = listOf(value.units());
  if (next > 0 && areEqual(list, out_.powers.back())) return next - 1;
  out_.powers.push_back(std::move(list));
  return next;
}

}  // namespace

void recordFormula(const std::string& formula, FormulaGoal goal, const Units::Unit* unit,
                   const FormulaContext& context, Contents& out) {
  // The tokenizer reads `formula`: the copy moves when the list of texts grows.
  out.texts.push_back({formula, {}});
  Recorder(context, out).record(formula, goal, unit);
}
