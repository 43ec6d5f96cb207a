#include "formula/ExplanationContents.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/FormulaExplanation.h>

namespace Units {

namespace {

std::map<std::string, double> powersAt(const FormulaExplanation::Contents& contents,
                                       std::uint32_t index) {
  std::map<std::string, double> powers;
  if (index == FormulaExplanation::Contents::none) return powers;
  for (const auto& [unit, exponent] : contents.powers[index])
    powers.emplace(RecordAccess::typeId(unit), exponent);
  return powers;
}

}  // namespace

FormulaExplanation::FormulaExplanation(const Contents* contents) noexcept : contents_(contents) {}
FormulaExplanation::FormulaExplanation(const FormulaExplanation& other) noexcept = default;
FormulaExplanation::FormulaExplanation(FormulaExplanation&& other) noexcept = default;
FormulaExplanation::~FormulaExplanation() = default;

const std::string& FormulaExplanation::formula() const { return contents_->textOf(0); }
const std::string& FormulaExplanation::unitTypeId() const { return contents_->unitTypeId; }

std::vector<FormulaExplanation::Text> FormulaExplanation::texts() const {
  std::vector<Text> all(contents_->texts.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i].data_ = &contents_->texts[i];
  return all;
}

std::vector<FormulaExplanation::Token> FormulaExplanation::tokens() const {
  std::vector<Token> all(contents_->tokens.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i].contents_ = contents_.get();
    all[i].index_ = i;
  }
  return all;
}

std::vector<FormulaExplanation::Node> FormulaExplanation::nodes() const {
  std::vector<Node> all(contents_->nodes.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i].contents_ = contents_.get();
    all[i].index_ = i;
  }
  return all;
}

std::vector<FormulaExplanation::Warning> FormulaExplanation::warnings() const {
  std::vector<Warning> all(contents_->warnings.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i].data_ = &contents_->warnings[i];
  return all;
}

double FormulaExplanation::value() const { return contents_->value; }
std::map<std::string, double> FormulaExplanation::powers() const {
  return powersAt(*contents_.get(), contents_->resultPowers);
}

FormulaReason FormulaExplanation::reason() const { return contents_->reason; }
FormulaExplanation::ExceptionClass FormulaExplanation::exceptionClass() const {
  return contents_->exceptionClass;
}
const std::string& FormulaExplanation::message() const { return contents_->message; }
FormulaSpan FormulaExplanation::span() const { return contents_->span; }
const std::string& FormulaExplanation::sentence() const { return contents_->sentence; }
const std::vector<std::string>& FormulaExplanation::spellings() const {
  return contents_->spellings;
}

const std::string& FormulaExplanation::Text::text() const {
  return static_cast<const Contents::TextData*>(data_)->text;
}
FormulaSpan FormulaExplanation::Text::identifier() const {
  return static_cast<const Contents::TextData*>(data_)->identifier;
}

FormulaExplanation::TokenKind FormulaExplanation::Token::kind() const {
  return contents_->tokens[index_].kind;
}
FormulaSpan FormulaExplanation::Token::span() const { return contents_->tokens[index_].span; }
double FormulaExplanation::Token::value() const { return contents_->tokens[index_].value; }
std::string FormulaExplanation::Token::text() const { return contents_->textAt(span()); }

std::string FormulaExplanation::Token::symbolTypeId() const {
  const Symbol* const symbol = contents_->symbolOf(contents_->tokens[index_]);
  return symbol ? RecordAccess::typeId(*symbol) : std::string();
}
std::string FormulaExplanation::Token::unitTypeId() const {
  const Symbol* const symbol = contents_->symbolOf(contents_->tokens[index_]);
  return symbol ? RecordAccess::typeId(RecordAccess::unit(*symbol)) : std::string();
}

FormulaExplanation::NodeKind FormulaExplanation::Node::kind() const {
  return contents_->nodes[index_].kind;
}
std::size_t FormulaExplanation::Node::token() const { return contents_->nodes[index_].token; }
bool FormulaExplanation::Node::wasReached() const { return contents_->nodes[index_].wasReached; }
double FormulaExplanation::Node::value() const { return contents_->nodes[index_].value; }
std::map<std::string, double> FormulaExplanation::Node::powers() const {
  return powersAt(*contents_, contents_->nodes[index_].powers);
}
std::vector<std::size_t> FormulaExplanation::Node::operands() const {
  std::vector<std::size_t> all;
  for (const std::uint32_t operand : contents_->nodes[index_].operands)
    if (operand != Contents::none) all.push_back(operand);
  return all;
}

FormulaExplanation::WarningKind FormulaExplanation::Warning::kind() const {
  return static_cast<const Contents::WarningData*>(data_)->kind;
}
FormulaSpan FormulaExplanation::Warning::span() const {
  return static_cast<const Contents::WarningData*>(data_)->span;
}
const std::string& FormulaExplanation::Warning::sentence() const {
  return static_cast<const Contents::WarningData*>(data_)->sentence;
}
const std::string& FormulaExplanation::Warning::spelling() const {
  return static_cast<const Contents::WarningData*>(data_)->spelling;
}

}  // namespace Units
