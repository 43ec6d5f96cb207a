#include "parameters/FormulaReading.h"

#include "explaining/ExplainFormula.h"
#include "formula/Evaluation.h"
#include "formula/FormulaParser.h"
#include "formula/Refusal.h"
#include "model/DefinitionCopy.h"
#include "parameters/ParameterName.h"

#include <TrelvonUnits/Exceptions.h>

#include <cstddef>
#include <stdexcept>
#include <utility>

namespace Units {

namespace {

std::unique_ptr<const UnitsEngineImpl> copyOfForeign(const UnitsEngine& host) {
  if (dynamic_cast<const UnitsEngineImpl*>(&host)) return nullptr;
  auto copy = std::make_unique<UnitsEngineImpl>();
  copyUnits(host, *copy);
  copySymbols(host, *copy);
  copyQuantities(host, *copy);
  return copy;
}

/// Makes a parameter for every identifier that may name one.
class Names final : public KnownVariables {
 public:
  explicit Names(ParameterFinder& finder) : finder_(finder) {}

  const VariableValue* find(std::string_view name) override {
    if (!isParameterName(name)) return nullptr;
    last_ = &finder_.of(name);
    return &last_->value;
  }

  Parameter* last() const { return last_; }

 private:
  ParameterFinder& finder_;
  Parameter* last_ = nullptr;
};

/// Reads one formula into a definition.
class Reader {
 public:
  Reader(FormulaSource& source, ParameterFinder& finder, Definition& out)
      : names_(finder),
        text_("(" + out.formula + ")"),
        tokenizer_(text_, source.engine().registries().symbolTexts, source.engine(),
                   rejectIdentifier, 0, &names_),
        parser_(out.arena, source.engine().registries().symbolTexts, source.engine(),
                source.units()),
        out_(out) {}

  FormulaReason read();

 private:
  FormulaReason take(const FormulaToken& token);

  Names names_;
  const std::string text_;
  FormulaTokenizer tokenizer_;
  FormulaParser parser_;
  Definition& out_;
  std::size_t depth_ = 0;  // open parentheses
  bool hasBegun_ = false;
};

FormulaReason Reader::read() {
  try {
    FormulaToken token;
    while (tokenizer_.nextToken(token)) {
      const FormulaReason reason = take(token);
      if (reason != FormulaReason::Done) return reason;
    }
    return parser_.finish(out_.root);
  } catch (const ParseException&) {
    return tokenizer_.refusal() == FormulaReason::Done ? FormulaReason::UnknownIdentifier
                                                       : tokenizer_.refusal();
  } catch (const std::logic_error&) {
    return FormulaReason::Other;
  }
}

FormulaReason Reader::take(const FormulaToken& token) {
  // Nothing may follow the closing parenthesis: "1) + (2" is not a formula by itself.
  if (depth_ == 0 && std::exchange(hasBegun_, true)) return FormulaReason::NeverOpened;
  if (token.type == FormulaTokenType::OpenParen) ++depth_;
  if (token.type == FormulaTokenType::CloseParen) --depth_;
  if (token.type == FormulaTokenType::Variable)
    out_.references.push_back({names_.last(), text_.size() - tokenizer_.lastStart() - 1});
  return parser_.take(token);
}

/// Knows every identifier that may name a parameter. The values do not matter.
class AnyNames final : public KnownVariables {
 public:
  const VariableValue* find(std::string_view name) override {
    return isParameterName(name) ? &any_ : nullptr;
  }

 private:
  const VariableValue any_ = {1, {}};
};

}  // namespace

FormulaSource::FormulaSource(const UnitsEngine& host)
    : copy_(copyOfForeign(host)),
      engine_(copy_ ? copy_.get() : dynamic_cast<const UnitsEngineImpl*>(&host)),
      units_(engine_->formulaUnits()) {}

std::unique_ptr<Definition> readFormula(FormulaSource& source, const std::string& formula,
                                        const std::string& unitTypeId, ParameterFinder& finder) {
  auto definition = std::make_unique<Definition>();
  definition->formula = formula;
  definition->unitTypeId = unitTypeId;
  if (!unitTypeId.empty())
    definition->unit = &lookUp(source.engine().registries().units.objects, unitTypeId);
  definition->reason = Reader(source, finder, *definition).read();
  return definition;
}

std::string whyNotRead(const FormulaSource& source, const Definition& definition) {
  const FormulaGoal goal = definition.unit ? FormulaGoal::InUnit : FormulaGoal::Primitive;
  // By itself, a formula can mean more than in parentheses: "$ 20".
  for (const std::string& text : {definition.formula, "(" + definition.formula + ")"}) {
    AnyNames names;
    const auto explained = explainWith(source.engine(), goal, definition.unit, text, {}, &names,
                                       HiddenVariables::Ignore);
    const bool isRead = explained.nodes().size() > 0;
    if (!isRead && !explained.sentence().empty()) return explained.sentence();
  }
  return messageOf(definition.reason);
}

}  // namespace Units
