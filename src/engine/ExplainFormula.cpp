#include "engine/ExplainedFormula.h"
#include "engine/UnitsEngineImpl.h"
#include "formula/Evaluation.h"
#include "model/Characters.h"
#include "model/DefinitionCopy.h"
#include "model/RecordAccess.h"
#include "model/ShownText.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <utility>

namespace Units {

namespace {

using Contents = FormulaExplanation::Contents;
using TokenKind = FormulaExplanation::TokenKind;

/// Whether the resolver has a variable. Whatever it throws means no.
bool resolves(const std::string& name, const VariableResolver& resolver) {
  try {
    resolver(name);
    return true;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    return false;
  }
}

/// Explains one formula for one engine.
class Explainer {
 public:
  Explainer(const UnitsEngineImpl& engine, FormulaGoal goal, const Unit* unit)
      : engine_(engine), goal_(goal), unit_(unit), units_(engine.formulaUnits()) {}

  FormulaExplanation explain(const std::string& formula, const VariableResolver& resolver,
                             HiddenVariables hidden);

 private:
  void addHidden(const VariableResolver& resolver);
  bool isNew(const std::string& spelling) const;
  bool works(const std::string& formula);

  const UnitsEngineImpl& engine_;
  const FormulaGoal goal_;
  const Unit* const unit_;
  FormulaUnits units_;
  std::unique_ptr<Contents> out_ = std::make_unique<Contents>();
  const ExplainedFormula explained_{*out_, engine_.registries(), units_, unit_};
  std::map<std::string, const std::string*> replacements_;  // of identifiers, in parentheses
};

}  // namespace

std::string ExplainedFormula::quoted(const FormulaSpan& span) const {
  constexpr std::size_t longest = 60;  // bytes
  const std::string text = contents.textAt(span);
  return "`" + shownText(text.substr(0, longest)) + (text.size() > longest ? "...`" : "`");
}

std::string ExplainedFormula::with(const FormulaSpan& span, const std::string& replacement) const {
  return formula().substr(0, span.begin) + replacement + formula().substr(span.end);
}

std::string suffixOf(const Unit& unit, const Registries& registries) {
  for (const auto& [typeId, node] : registries.symbols.objects.nodes()) {
    const auto* const shown = RecordAccess::prefixOrSuffix(node.record);
    if (shown && shown->getPlacement() == Placement::Suffix &&
        RecordAccess::identity(RecordAccess::unit(node.record)) == RecordAccess::identity(unit))
      return RecordAccess::text(*shown);
  }
  return {};
}

namespace {

FormulaExplanation Explainer::explain(const std::string& formula, const VariableResolver& resolver,
                                      HiddenVariables hidden) {
  if (unit_) out_->unitTypeId = RecordAccess::typeId(*unit_);
  recordFormula(formula, goal_, unit_, resolver, engine_.registries().symbolTexts, engine_, units_,
                *out_);
  out_->sentence = sentenceOf(explained_);
  if (out_->reason != FormulaReason::Done && formula.size() <= longestSpelled)
    for (std::string& near : nearFormulas(explained_))
      if (isNew(near) && works(near)) out_->spellings.push_back(std::move(near));
  if (hidden == HiddenVariables::Ask && resolver) addHidden(resolver);
  addWarnings(explained_, *out_);
  if (out_->reason == FormulaReason::Done)
    for (Contents::WarningData& warning : out_->warnings)
      if (!warning.spelling.empty() && !works(warning.spelling)) warning.spelling.clear();
  return FormulaExplanation(out_.release());
}

bool Explainer::isNew(const std::string& spelling) const {
  const std::vector<std::string>& known = out_->spellings;
  return std::find(known.begin(), known.end(), spelling) == known.end();
}

/// Whether a formula has a value, without asking the resolver anything new.
bool Explainer::works(const std::string& formula) {
  if (replacements_.empty())
    for (std::size_t i = 1; i < out_->texts.size(); ++i)
      replacements_.emplace(out_->textAt(out_->texts[i].identifier), &out_->texts[i].text);
  const auto replay = [this](const std::string& identifier) {
    const auto known = replacements_.find(identifier);
    if (known == replacements_.end()) return rejectIdentifier(identifier);
    return known->second->substr(1, known->second->size() - 2);  // without its parentheses
  };
  Contents tried;
  recordFormula(formula, goal_, unit_, replay, engine_.registries().symbolTexts, engine_, units_,
                tried);
  const bool isPlain = unit_ && tried.resultPowers == Contents::none;
  return tried.reason == FormulaReason::Done &&
         !(isPlain && out_->reason == FormulaReason::UnitsDiffer);  // would count in any unit
}

/// Asks for the names that begin with the text of a unit: "h1" in "h1 + 1".
void Explainer::addHidden(const VariableResolver& resolver) {
  std::set<std::string> asked;
  for (const Contents::TokenData& token : out_->tokens) {
    if (token.kind != TokenKind::UnitSymbol) continue;
    const std::string& text = out_->textOf(token.span.text);
    const std::size_t end = std::min(text.find_first_of("+-*/^()", token.span.end), text.size());
    std::string name = text.substr(token.span.begin, end - token.span.begin);
    while (isSeparator(name.back())) name.pop_back();
    if (!asked.insert(name).second || !resolves(name, resolver)) continue;
    out_->warnings.push_back({FormulaExplanation::WarningKind::VariableHidden, token.span,
                              "`" + shownText(name) + "` is a variable, but the unit text " +
                                  explained_.quoted(token.span) + " is read first."});
  }
}

FormulaExplanation explain(const UnitsEngine& engine, FormulaGoal goal,
                           const std::string* unitTypeId, const std::string& formula,
                           const VariableResolver& resolver, HiddenVariables hidden) {
  std::unique_ptr<UnitsEngineImpl> copy;
  const auto* own = dynamic_cast<const UnitsEngineImpl*>(&engine);
  if (!own) {
    copy = std::make_unique<UnitsEngineImpl>();
    copyDefinitions(engine, *copy);
    own = copy.get();
  }
  const Unit* const unit =
      unitTypeId ? &lookUp(own->registries().units.objects, *unitTypeId) : nullptr;
  return Explainer(*own, goal, unit).explain(formula, resolver, hidden);
}

}  // namespace

FormulaExplanation explainFormula(const UnitsEngine& engine, const std::string& unitTypeId,
                                  const std::string& formula, VariableResolver resolver,
                                  HiddenVariables hidden) {
  return explain(engine, FormulaGoal::InUnit, &unitTypeId, formula, resolver, hidden);
}

FormulaExplanation explainFormula(const UnitsEngine& engine, const std::string& formula,
                                  VariableResolver resolver, HiddenVariables hidden) {
  return explain(engine, FormulaGoal::Primitive, nullptr, formula, resolver, hidden);
}

FormulaExplanation explainUnitlessFormula(const UnitsEngine& engine, const std::string& formula,
                                          VariableResolver resolver, HiddenVariables hidden) {
  return explain(engine, FormulaGoal::Plain, nullptr, formula, resolver, hidden);
}

}  // namespace Units
