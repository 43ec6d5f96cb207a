#include "formula/FormulaRecorder.h"

#include "formula/Evaluation.h"
#include "formula/FormulaParser.h"
#include "formula/Refusal.h"
#include "formula/SpanFinder.h"
#include "model/Characters.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <unordered_map>
#include <utility>

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
class Recorder {
 public:
  Recorder(const VariableResolver& resolver, const Units::SymbolTexts& symbols,
           const Units::UnitMath& unitMath, UnitTermsSource& units, KnownVariables* known,
           Contents& out)
      : resolver_(resolver),
        symbols_(symbols),
        unitMath_(unitMath),
        units_(units),
        known_(known),
        out_(out),
        spans_(out.texts) {}

  void run(const std::string& formula, FormulaGoal goal, const Units::Unit* unit);

  // Watches the reading and the evaluation.
  void onToken(const FormulaToken& token);
  void onEnd() { hasEnded_ = true; }
  void before(const Expression&) const {}
  void after(const Expression& node, EvaluatedValues& values);

 private:
  using Thrown = FormulaExplanation::ExceptionClass;

  FormulaReason read(const std::string& formula, std::unique_ptr<Expression>& root);
  FormulaReason evaluate(const Expression& root, FormulaGoal goal, const Units::Unit* unit);
  FormulaReason finish(EvaluatedValue& result, FormulaGoal goal, const Units::Unit* unit);
  std::string replace(const std::string& identifier);
  std::string ask(const std::string& identifier);
  FormulaSpan identifierSpan();
  FormulaSpan refusedSpan(FormulaReason reason, const FormulaParser& parser) const;
  void addNodes(const Expression& root);
  std::uint32_t symbolIndex(const Units::Symbol& symbol);
  std::uint32_t powersIndex(EvaluatedValue& value, std::size_t most);
  void record(FormulaReason reason, Thrown thrown, const char* message);

  const VariableResolver& resolver_;
  const Units::SymbolTexts& symbols_;
  const Units::UnitMath& unitMath_;
  UnitTermsSource& units_;
  KnownVariables* const known_;
  Contents& out_;
  SpanFinder spans_;
  FormulaTokenizer* tokenizer_ = nullptr;
  FormulaReason thrownReason_ = FormulaReason::Other;  // of a ParseException
  bool isForeign_ = false;   // the resolver threw something that is passed on, not explained
  bool hasEnded_ = false;    // all tokens were taken
  std::size_t reached_ = 0;  // nodes that have a value
  LocalNodeArena arena_;
  std::unordered_map<const void*, std::uint32_t> symbolIndexes_;
  std::unordered_map<const void*, std::uint32_t> unitPowersIndexes_;
};

void Recorder::run(const std::string& formula, FormulaGoal goal, const Units::Unit* unit) {
  out_.span = {0, 0, 0, formula.size()};
  try {
    std::unique_ptr<Expression> root;
    FormulaReason reason = read(formula, root);
    if (reason == FormulaReason::Done) reason = evaluate(*root, goal, unit);
    if (reason == FormulaReason::Done) return;
    record(reason,
           reason == FormulaReason::PowerOfNoUnits ? Thrown::LogicError : Thrown::ParseException,
           messageOf(reason));
  } catch (const Units::ParseException& refusal) {
    if (isForeign_) throw;
    record(thrownReason_, Thrown::ParseException, refusal.what());
  } catch (const Units::IncompatibleUnitsException& refusal) {
    if (isForeign_) throw;
    record(FormulaReason::Other, Thrown::IncompatibleUnitsException, refusal.what());
  } catch (const std::logic_error& refusal) {
    if (isForeign_ || typeid(refusal) != typeid(std::logic_error)) throw;
    record(FormulaReason::Other, Thrown::LogicError, refusal.what());
  }
}

void Recorder::record(FormulaReason reason, Thrown thrown, const char* message) {
  out_.reason = reason;
  out_.exceptionClass = thrown;
  out_.message = message;
}

FormulaReason Recorder::read(const std::string& formula, std::unique_ptr<Expression>& root) {
  FormulaTokenizer tokenizer(
      formula, symbols_, unitMath_, [this](const std::string& name) { return replace(name); },
      Units::maximumSubstitutions, known_);
  FormulaParser parser(arena_, symbols_, unitMath_, units_);
  tokenizer_ = &tokenizer;
  try {
    const FormulaReason reason = parseTokens(tokenizer, parser, root, *this);
    if (reason != FormulaReason::Done) out_.span = refusedSpan(reason, parser);
    return reason;
  } catch (const Units::ParseException&) {
    if (tokenizer.refusal() != FormulaReason::Done) thrownReason_ = tokenizer.refusal();
    out_.span = identifierSpan();
    throw;
  }
}

void Recorder::onToken(const FormulaToken& token) {
  const FormulaSpan span = spans_.find(tokenizer_->lastStart(), token.text.size());
  out_.tokens.push_back({static_cast<FormulaExplanation::TokenKind>(token.type), span, token.value,
                         Contents::none, token.form});
  const Units::Symbol* const symbol =
      token.type == FormulaTokenType::UnitSymbol ? symbols_.withText(token.text) : token.symbol;
  if (symbol) out_.tokens.back().symbol = symbolIndex(*symbol);
}

std::string Recorder::replace(const std::string& identifier) {
  std::string replacement = ask(identifier);
  if (replacement != identifier)
    spans_.replaced(identifierSpan(), tokenizer_->unread(), "(" + replacement + ")");
  return replacement;
}

std::string Recorder::ask(const std::string& identifier) {
  try {
    return resolver_ ? resolver_(identifier) : rejectIdentifier(identifier);
  } catch (const std::exception& refusal) {
    isForeign_ = typeid(refusal) != typeid(Units::ParseException);
    thrownReason_ = FormulaReason::UnknownIdentifier;
    throw;
  } catch (...) {
    isForeign_ = true;
    throw;
  }
}

/// Of the identifier that was read last, without the separators after it.
FormulaSpan Recorder::identifierSpan() {
  const std::size_t start = tokenizer_->lastStart();
  FormulaSpan span = spans_.find(start, start - tokenizer_->unread());
  const std::string& text = out_.texts[span.endText].text;
  while (Units::isSeparator(text[span.end - 1])) --span.end;
  return span;
}

FormulaSpan Recorder::refusedSpan(FormulaReason reason, const FormulaParser& parser) const {
  if (reason == FormulaReason::NeverClosed) return out_.tokens[*parser.openToken()].span;
  if (reason == FormulaReason::MissingParentheses && !hasEnded_)
    return out_.tokens[out_.tokens.size() - 2].span;
  if (reason == FormulaReason::MissingParentheses || !hasEnded_) return out_.tokens.back().span;
  const std::size_t end = out_.textOf(0).size();
  return {0, end, 0, end};
}

FormulaReason Recorder::evaluate(const Expression& root, FormulaGoal goal,
                                 const Units::Unit* unit) {
  addNodes(root);
  EvaluatedValues values;
  const FormulaReason reason = root.walk(values, *this);
  if (reason != FormulaReason::Done) {
    out_.refusedNode = static_cast<std::uint32_t>(reached_);
    out_.span = out_.tokens[out_.nodes[reached_].token].span;
    return reason;
  }
  return finish(values.back(), goal, unit);
}

void Recorder::addNodes(const Expression& root) {
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

void Recorder::after(const Expression&, EvaluatedValues& values) {
  Contents::NodeData& node = out_.nodes[reached_++];
  node.wasReached = true;
  node.value = values.back().value;
  node.powers = powersIndex(values.back(), mostPowers);
}

FormulaReason Recorder::finish(EvaluatedValue& result, FormulaGoal goal, const Units::Unit* unit) {
  out_.resultPowers = powersIndex(result, std::numeric_limits<std::size_t>::max());
  out_.nodes.back().powers = out_.resultPowers;
  FormulaReason reason = FormulaReason::Done;
  if (goal == FormulaGoal::InUnit) reason = countInUnit(result, *unit, units_, out_.inverted);
  if (goal == FormulaGoal::Plain && !result.isUnitless()) reason = FormulaReason::HasUnits;
  if (reason == FormulaReason::Done) out_.value = result.value;
  return reason;
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
                   const VariableResolver& resolver, const Units::SymbolTexts& symbols,
                   const Units::UnitMath& unitMath, UnitTermsSource& units, KnownVariables* known,
                   Contents& out) {
  // The tokenizer reads `formula`: the copy moves when the list of texts grows.
  out.texts.push_back({formula, {}});
  Recorder(resolver, symbols, unitMath, units, known, out).run(formula, goal, unit);
}
