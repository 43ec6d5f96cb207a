#include "naming/CodeFinder.h"

#include "model/LocalId.h"
#include "naming/Plurals.h"
#include "text/ShortNumber.h"

#include <algorithm>
#include <utility>

namespace Units {

namespace {

std::string withPowers(const SizeAndPowers& terms) {
  std::string text = shortNumber(terms.factor);
  for (const auto& [primitive, power] : terms.powers) {
    if (power == 0) continue;
    text += ' ' + std::string(localIdOf(primitive));
    if (power != 1) text += '^' + std::to_string(power);
  }
  return text;
}

}  // namespace

CodeFinder::CodeFinder(const UnitsEngine& engine, std::vector<Unit> units,
                       const std::map<std::string, CodesBySystem>& codes,
                       const NameEntries& entries, const ExactNames& names)
    : entries_(entries), names_(names), units_(engine, std::move(units)) {
  for (const auto& [unit, bySystem] : codes)
    for (const auto& [system, texts] : bySystem) systems_.insert(system);
}

std::vector<Unit> CodeFinder::find(std::string_view text) const {
  std::vector<Unit> units;
  auto expression = expressionOf(text);
  const auto terms = expression ? expression->read() : std::nullopt;
  if (!terms) return units;
  for (const std::size_t unit : units_.withTerms(*terms)) units.push_back(units_.unit(unit));
  return units;
}

std::string CodeFinder::whyNot(std::string_view text) const {
  const std::size_t colon = std::min(text.find(':'), text.size());
  const std::string_view system = text.substr(0, colon);
  if (colon == text.size() || systems_.find(system) == systems_.end())
    return quotedCode(text) + " does not name a unit and does not begin with a code system.";
  const std::string_view code = text.substr(colon + 1);
  auto expression = expressionOf(text);
  if (!expression)
    return "No unit has the code " + quotedCode(code) + " of " + std::string(system) + '.';
  if (const auto terms = expression->read())
    return quotedCode(code) + " is " + withPowers(*terms) + ", and no unit is equal to that.";
  return "No unit has the code " + quotedCode(code) + " of " + std::string(system) +
         ", and it cannot be read as an expression: " + expression->fault() + '.';
}

/// None if a system has no expressions.
std::optional<CodeExpression> CodeFinder::expressionOf(std::string_view text) const {
  constexpr std::string_view ucum = "ucum:", udunits = "udunits:";
  if (text.substr(0, ucum.size()) == ucum)
    return CodeExpression(text.substr(ucum.size()), CodeExpression::Syntax::Ucum,
                          [this](std::string_view code) { return ucumAtom(code); });
  if (text.substr(0, udunits.size()) == udunits)
    return CodeExpression(text.substr(udunits.size()), CodeExpression::Syntax::Udunits,
                          [this](std::string_view code) { return udunitsAtom(code); });
  return std::nullopt;
}

const SizeAndPowers* CodeFinder::ucumAtom(std::string_view code) const {
  return termsOf("ucum:" + std::string(code));
}

const SizeAndPowers* CodeFinder::udunitsAtom(std::string_view code) const {
  if (const auto* const terms = termsOf("udunits:" + std::string(code))) return terms;
  for (const std::string& singular : singularsOf(code))
    if (const auto* const terms = termsOf("udunits:" + singular)) return terms;
  return nullptr;
}

/// Codes are unique, but a host may have given the same code to several units. Such a code has no
/// terms.
const SizeAndPowers* CodeFinder::termsOf(const std::string& text) const {
  const NameGroup found = names_.find(text);
  if (found.size() != 1 || entries_[*found.first].kind != NameKind::Code) return nullptr;
  return &units_.termsOf(entries_[*found.first].unit);
}

}  // namespace Units
