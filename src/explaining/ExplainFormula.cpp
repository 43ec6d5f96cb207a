#include "explaining/ExplainFormula.h"

#include "explaining/ExplainedFormula.h"
#include "explaining/NearNames.h"
#include "formula/Evaluation.h"
#include "formula/TryFormula.h"
#include "model/Characters.h"
#include "model/DefinitionCopy.h"
#include "model/RecordAccess.h"
#include "model/ShownText.h"

#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaOutcome.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace Units {

namespace {

using Contents = ExplanationContents;
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

constexpr int mostTried = 16;              // suggestions
constexpr std::size_t mostAsked = 100;     // names that a unit may hide
constexpr std::size_t longestAsked = 100;  // bytes of such a name

bool isSame(double a, double b) { return std::fabs(a - b) <= 1e-12 * std::fabs(b); }

/// Explains one formula for one engine.
class Explainer {
 public:
  Explainer(const UnitsEngineImpl& engine, FormulaGoal goal, const Unit* unit,
            KnownVariables* known)
      : engine_(engine), goal_(goal), unit_(unit), known_(known), units_(engine.formulaUnits()) {}

  FormulaExplanation explain(const std::string& formula, const VariableResolver& resolver,
                             HiddenVariables hidden);

 private:
  FormulaContext context(const VariableResolver& resolver) {
    return {resolver, engine_.registries().symbolTexts, engine_, units_, known_};
  }
  void addHidden(const VariableResolver& resolver);
  bool isNew(const std::string& spelling) const;
  void addSpellings();
  std::optional<double> tryOut(const std::string& formula);

  const UnitsEngineImpl& engine_;
  const FormulaGoal goal_;
  const Unit* const unit_;
  KnownVariables* const known_;
  FormulaUnits units_;
  std::unique_ptr<Contents> out_ = std::make_unique<Contents>();
  const ExplainedFormula explained_{*out_, engine_.registries(), units_, unit_};
  std::map<std::string, const std::string*> replacements_;  // of identifiers, in parentheses
  int tried_ = 0;                                           // suggestions
};

}  // namespace

bool ExplainedFormula::maySpell() const {
  constexpr std::size_t longest = 1000;  // bytes
  std::size_t bytes = 0;
  for (const auto& text : contents.texts) bytes += text.text.size();
  return bytes <= longest;
}

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
  recordFormula(formula, goal_, unit_, context(resolver), *out_);
  out_->sentence = sentenceOf(explained_);
  if (hidden == HiddenVariables::Ask && resolver) addHidden(resolver);
  addWarnings(explained_, *out_);
  addSpellings();
  return FormulaExplanation(out_.release());
}

/// Keeps the suggestions that work. A suggestion of a warning may also fix a refusal.
void Explainer::addSpellings() {
  const bool isRefused = out_->reason != FormulaReason::Done;
  if (isRefused && explained_.maySpell())
    for (std::string& near : nearFormulas(explained_))
      if (isNew(near) && tryOut(near)) out_->spellings.push_back(std::move(near));
  auto& warnings = out_->warnings;
  const auto isNone = [&](Contents::WarningData& warning) {
    if (warning.spelling.empty()) return false;
    const std::optional<double> value = tryOut(warning.spelling);
    if (isRefused && value && isNew(warning.spelling)) out_->spellings.push_back(warning.spelling);
    if (!value) warning.spelling.clear();
    return !isRefused && value && isSame(*value, out_->value);  // two ways to write it
  };
  warnings.erase(std::remove_if(warnings.begin(), warnings.end(), isNone), warnings.end());
}

bool Explainer::isNew(const std::string& spelling) const {
  const std::vector<std::string>& known = out_->spellings;
  return std::find(known.begin(), known.end(), spelling) == known.end();
}

/// The value of a suggestion; nothing if it does not work. The resolver is not asked anything new:
/// if the fix lies before a variable that is not known yet, the value is NaN.
std::optional<double> Explainer::tryOut(const std::string& formula) {
  if (++tried_ > mostTried) return std::nullopt;
  if (replacements_.empty())
    for (std::size_t i = 1; i < out_->texts.size(); ++i)
      replacements_.emplace(out_->textAt(out_->texts[i].identifier), &out_->texts[i].text);
  const VariableResolver replay = [this](const std::string& identifier) {
    const auto known = replacements_.find(identifier);
    if (known == replacements_.end()) return rejectIdentifier(identifier);
    return known->second->substr(1, known->second->size() - 2);  // without its parentheses
  };
  Contents tried;
  recordFormula(formula, goal_, unit_, context(replay), tried);
  if (tried.reason == FormulaReason::Done) {
    const bool isPlain = tried.resultPowers == Contents::none;
    const bool hadUnits =
        out_->resultPowers != Contents::none || out_->reason == FormulaReason::UnitsDiffer;
    if (unit_ && isPlain && hadUnits) return std::nullopt;  // it would count in any unit
    return tried.value;
  }
  const bool isBehind = out_->reason < FormulaReason::UnitsDiffer &&
                        tried.reason == FormulaReason::UnknownIdentifier && tried.span.text == 0 &&
                        tried.span.begin > out_->span.begin &&
                        wordStart(tried.textAt(tried.span)) == 0;
  if (isBehind) return std::numeric_limits<double>::quiet_NaN();
  return std::nullopt;
}

/// Asks the resolver about names that begin with the text of a unit: "h1" in "h1 + 1".
void Explainer::addHidden(const VariableResolver& resolver) {
  std::set<std::string> asked;
  for (const Contents::TokenData& token : out_->tokens) {
    if (token.kind != TokenKind::UnitSymbol) continue;
    const std::string& text = out_->textOf(token.span.text);
    const std::string_view rest =
        std::string_view(text).substr(0, token.span.begin + longestAsked + 1);
    const std::size_t end = std::min(rest.find_first_of("+-*/^()", token.span.end), rest.size());
    if (end - token.span.begin > longestAsked) continue;
    std::string name = text.substr(token.span.begin, end - token.span.begin);
    while (isSeparator(name.back())) name.pop_back();
    if (asked.size() == mostAsked) return;
    if (!asked.insert(name).second || !resolves(name, resolver)) continue;
    out_->warnings.push_back({FormulaExplanation::WarningKind::VariableHidden, token.span,
                              "`" + shownText(name) + "` is a variable, but the unit text " +
                                  explained_.quoted(token.span) + " is read first."});
  }
}

/// Lets the library's own engine work on a formula: `work(engine, unit)`.
template <class Work>
auto withOwnEngine(const UnitsEngine& engine, const std::string* unitTypeId, const Work& work) {
  std::unique_ptr<UnitsEngineImpl> copy;
  const auto* own = dynamic_cast<const UnitsEngineImpl*>(&engine);
  if (!own) {
    copy = std::make_unique<UnitsEngineImpl>();
    copyUnits(engine, *copy);
    copySymbols(engine, *copy);
    copyQuantities(engine, *copy);
    own = copy.get();
  }
  return work(*own, unitTypeId ? &lookUp(own->registries().units.objects, *unitTypeId) : nullptr);
}

FormulaExplanation explain(const UnitsEngine& engine, FormulaGoal goal,
                           const std::string* unitTypeId, const std::string& formula,
                           const VariableResolver& resolver, HiddenVariables hidden) {
  return withOwnEngine(engine, unitTypeId, [&](const UnitsEngineImpl& own, const Unit* unit) {
    return explainWith(own, goal, unit, formula, resolver, nullptr, hidden);
  });
}

FormulaOutcome tryIt(const UnitsEngine& engine, FormulaGoal goal, const std::string* unitTypeId,
                     const std::string& formula, const VariableResolver& resolver) {
  return withOwnEngine(engine, unitTypeId, [&](const UnitsEngineImpl& own, const Unit* unit) {
    FormulaUnits units = own.formulaUnits();
    return ::tryFormula(formula, goal, unit,
                        {resolver, own.registries().symbolTexts, own, units, nullptr});
  });
}

}  // namespace

FormulaExplanation explainWith(const UnitsEngineImpl& engine, FormulaGoal goal, const Unit* unit,
                               const std::string& formula, const VariableResolver& resolver,
                               KnownVariables* known, HiddenVariables hidden) {
  return Explainer(engine, goal, unit, known).explain(formula, resolver, hidden);
}

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

FormulaOutcome tryFormula(const UnitsEngine& engine, const std::string& unitTypeId,
                          const std::string& formula, VariableResolver resolver) {
  return tryIt(engine, FormulaGoal::InUnit, &unitTypeId, formula, resolver);
}

FormulaOutcome tryUnitlessFormula(const UnitsEngine& engine, const std::string& formula,
                                  VariableResolver resolver) {
  return tryIt(engine, FormulaGoal::Plain, nullptr, formula, resolver);
}

}  // namespace Units
