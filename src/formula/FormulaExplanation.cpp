#include "formula/ExplanationContents.h"
#include "model/RecordAccess.h"

#include <TrelvonUnits/FormulaExplanation.h>

namespace Units {

namespace {

std::map<std::string, double> powersAt(const ExplanationContents& contents, std::uint32_t index) {
  std::map<std::string, double> powers;
  if (index >= ExplanationContents::omitted) return powers;
  for (const auto& [unit, exponent] : contents.powers[index])
    powers.emplace(RecordAccess::typeId(unit), exponent);
  return powers;
}

}  // namespace

FormulaExplanation::FormulaExplanation(const ExplanationContents* contents) noexcept
    : contents_(contents) {}
FormulaExplanation::FormulaExplanation(const FormulaExplanation& other) noexcept = default;
FormulaExplanation::FormulaExplanation(FormulaExplanation&& other) noexcept = default;
FormulaExplanation::~FormulaExplanation() = default;

const std::string& FormulaExplanation::formula() const { return contents_->textOf(0); }
const std::string& FormulaExplanation::unitTypeId() const { return contents_->unitTypeId; }

template <class View>
std::vector<View> FormulaExplanation::viewsOf(std::size_t count) const {
  std::vector<View> all;
  all.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const View view(contents_, i);
    all.push_back(view);
  }
  return all;
}

std::vector<FormulaExplanation::Text> FormulaExplanation::texts() const {
  return viewsOf<Text>(contents_->texts.size());
}
std::vector<FormulaExplanation::Token> FormulaExplanation::tokens() const {
  return viewsOf<Token>(contents_->tokens.size());
}
std::vector<FormulaExplanation::Node> FormulaExplanation::nodes() const {
  return viewsOf<Node>(contents_->nodes.size());
}
std::vector<FormulaExplanation::Warning> FormulaExplanation::warnings() const {
  return viewsOf<Warning>(contents_->warnings.size());
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

FormulaExplanation::Text::Text(const Shared<ExplanationContents>& contents,
                               std::size_t index) noexcept
    : contents_(contents), index_(index) {}
FormulaExplanation::Text::Text(const Text& other) noexcept = default;
FormulaExplanation::Text::~Text() = default;

FormulaExplanation::Token::Token(const Shared<ExplanationContents>& contents,
                                 std::size_t index) noexcept
    : contents_(contents), index_(index) {}
FormulaExplanation::Token::Token(const Token& other) noexcept = default;
FormulaExplanation::Token::~Token() = default;

FormulaExplanation::Node::Node(const Shared<ExplanationContents>& contents,
                               std::size_t index) noexcept
    : contents_(contents), index_(index) {}
FormulaExplanation::Node::Node(const Node& other) noexcept = default;
FormulaExplanation::Node::~Node() = default;

FormulaExplanation::Warning::Warning(const Shared<ExplanationContents>& contents,
                                     std::size_t index) noexcept
    : contents_(contents), index_(index) {}
FormulaExplanation::Warning::Warning(const Warning& other) noexcept = default;
FormulaExplanation::Warning::~Warning() = default;

const std::string& FormulaExplanation::Text::text() const { return contents_->texts[index_].text; }
FormulaSpan FormulaExplanation::Text::identifier() const {
  return contents_->texts[index_].identifier;
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
  return powersAt(*contents_.get(), contents_->nodes[index_].powers);
}
bool FormulaExplanation::Node::arePowersLeftOut() const {
  return contents_->nodes[index_].powers == ExplanationContents::omitted;
}
std::vector<std::size_t> FormulaExplanation::Node::operands() const {
  std::vector<std::size_t> all;
  for (const std::uint32_t operand : contents_->nodes[index_].operands)
    if (operand != ExplanationContents::none) all.push_back(operand);
  return all;
}

FormulaExplanation::WarningKind FormulaExplanation::Warning::kind() const {
  return contents_->warnings[index_].kind;
}
FormulaSpan FormulaExplanation::Warning::span() const { return contents_->warnings[index_].span; }
const std::string& FormulaExplanation::Warning::sentence() const {
  return contents_->warnings[index_].sentence;
}
const std::string& FormulaExplanation::Warning::spelling() const {
  return contents_->warnings[index_].spelling;
}

}  // namespace Units
