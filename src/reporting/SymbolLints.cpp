#include "reporting/SymbolLints.h"

#include "model/Characters.h"
#include "model/CompositeForms.h"
#include "model/RecordAccess.h"

#include <cmath>
#include <stdexcept>

namespace Schemas {

namespace {

using Units::RecordAccess;

/// The message of the engine's exception that an action throws, or an empty text.
template <class Action>
std::string refusalOf(const Action& action) {
  try {
    action();
    return {};
  } catch (const std::logic_error& error) {
    return error.what();
  }
}

/// The words by which the units of composite layouts are known, in the order of the layouts.
constexpr std::string_view layoutWords[][3] = {{"degree", "degrees", "deg"},
                                               {"foot", "feet", "ft"},
                                               {"foot", "feet", "ft"},
                                               {"meter", "metre", "meters"}};

/// @param word  in lower case.
bool hasWord(std::string text, std::string_view word) {
  for (char& c : text) c = Units::toLowerCase(c);
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
    const std::size_t end = at + word.size();
    if ((at == 0 || !Units::isLetter(text[at - 1])) &&
        (end == text.size() || !Units::isLetter(text[end])))
      return true;
  }
  return false;
}

void lintLayout(const Units::Symbol& symbol, const AddSymbolLint& add) {
  std::size_t form = 0;
  while (RecordAccess::typeId(symbol).find(Units::specialSymbolKeys[form]) == std::string::npos)
    ++form;
  const Units::Unit& unit = RecordAccess::unit(symbol);
  for (const std::string_view word : layoutWords[form])
    if (hasWord(RecordAccess::name(unit), word) || hasWord(RecordAccess::typeId(unit), word))
      return;
  const std::string word(layoutWords[form][0]);
  add("layout-unit",
      "The layout counts in the unit " + word + ", but the symbol's unit is " +
          RecordAccess::typeId(unit) + ".",
      "Use the unit " + word + ".", "");
}

/// Whether another unit's symbol has the same text; then formulas read one of them.
bool lintSameText(const Units::Symbol& symbol, const std::string& text, const SymbolReader& reader,
                  const AddSymbolLint& add) {
  const auto& all = reader.withText(text);
  const auto& [first, firstUnit] = *all.begin();
  const std::string& unit = RecordAccess::typeId(RecordAccess::unit(symbol));
  if (first == RecordAccess::typeId(symbol) || firstUnit == unit) return false;
  add("symbol-hides-symbol",
      quoted(text) + " is also the text of " + first + ", and formulas read it as " + firstUnit +
          ".",
      "", first);
  return true;
}

}  // namespace

SymbolReader::SymbolReader(const Units::UnitsEngine& engine)
    : engine_(engine), empty_(Units::CreateUnitsEngine()) {
  for (const auto& [typeId, symbol] : engine.getSymbols())
    if (const auto* const decoration = RecordAccess::prefixOrSuffix(symbol))
      byText_[RecordAccess::text(*decoration)].emplace(
          typeId, RecordAccess::typeId(RecordAccess::unit(symbol)));
}

const std::map<std::string, std::string>& SymbolReader::withText(const std::string& text) const {
  return byText_.at(text);
}

bool SymbolReader::reads(const std::string& unit, const std::string& formula,
                         double expected) const {
  constexpr double tolerance = 1e-6;  // of whole units: the offsets of scales round
  double value = 0.0;
  if (!refusalOf([&] { value = engine_.evaluateExpressionInUnit(unit, formula); }).empty())
    return false;
  // A factor that is 0 or infinite is another finding.
  return !std::isfinite(value) || std::abs(value - expected) <= tolerance;
}

std::string SymbolReader::unreadForm(const Units::Symbol& symbol) const {
  struct Form {
    const char* number;
    bool isSpaced;
    double value;
  };
  static constexpr Form forms[] = {
      {"7", true, 7.0}, {"7", false, 7.0}, {"(3+4)", true, 7.0}, {"1e-5", true, 1e-5}};
  const auto& decoration = *RecordAccess::prefixOrSuffix(symbol);
  const std::string& unit = RecordAccess::typeId(RecordAccess::unit(symbol));
  const std::string& text = RecordAccess::text(decoration);
  for (const auto& [number, isSpaced, value] : forms) {
    const std::string space = isSpaced ? " " : "";
    const std::string formula = decoration.getPlacement() == Units::Placement::Prefix
                                    ? text + space + number
                                    : number + space + text;
    if (!reads(unit, formula, value)) return formula;
  }
  return {};
}

bool SymbolReader::isFunction(const std::string& name) const {
  if (name.empty() || Units::countLeading<Units::isLetter>(name) < name.size()) return false;
  const std::string refusal = refusalOf([&] { empty_->evaluateUnitlessExpression(name + "(1)"); });
  return refusal.find("Unrecognized identifier") != 0 && refusal != "Unable to parse expression.";
}

void lintSymbol(const Units::Symbol& symbol, const SymbolReader& reader,
                const std::set<std::string>& variableNames, const AddSymbolLint& add) {
  const auto* const decoration = RecordAccess::prefixOrSuffix(symbol);
  if (!decoration) return lintLayout(symbol, add);
  const std::string& text = RecordAccess::text(*decoration);
  constexpr std::string_view numberOrOperator = "0123456789.,+-*/^()";
  const bool startsOddly =
      !text.empty() && numberOrOperator.find(text.front()) != numberOrOperator.npos;
  const bool hasSpace = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (startsOddly)
    add("symbol-start", quoted(text) + " begins like a number or an operator.", "", "");
  if (hasSpace) add("symbol-space", quoted(text) + " begins or ends with a space.", "", "");
  if (reader.isFunction(text))
    return add("symbol-hides-function", quoted(text) + " is the name of a function.", "", "");
  if (variableNames.count(text) != 0)
    add("symbol-hides-variable",
        "Formulas cannot use a variable named " + quoted(text) + ", which is a common name.", "",
        "");
  if (lintSameText(symbol, text, reader, add) || startsOddly || hasSpace) return;
  const std::string unread = reader.unreadForm(symbol);
  if (!unread.empty())
    add("symbol-unread",
        "Formulas do not read " + quoted(unread) + " as a number of " +
            RecordAccess::typeId(RecordAccess::unit(symbol)) + ".",
        "", "");
}

}  // namespace Schemas
