#include "reporting/LoadLints.h"

#include "model/RecordAccess.h"
#include "model/SizeAndPowers.h"
#include "reporting/ReferencePlaces.h"
#include "reporting/SymbolLints.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace Schemas {

namespace {

using Units::RecordAccess;
using Units::SizeAndPowers;

/// Lints that need a whole load: they look for what no definition does.
constexpr std::string_view wholeLoadLints[] = {"unlisted-unit", "untypable-unit"};

/// Lints that need an engine with the definition.
constexpr std::string_view loadLints[] = {
    "unusable-factor",       "canceling-powers", "power-overflow",        "symbol-unread",
    "symbol-start",          "symbol-space",     "symbol-hides-function", "symbol-hides-symbol",
    "symbol-hides-variable", "layout-unit",      "quantity-powers"};

template <class Ids>
bool has(const Ids& ids, std::string_view id) {
  return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

class Linter {
 public:
  Linter(const LintedLoad& load, Findings& findings)
      : load_(load),
        findings_(findings),
        terms_(load.engine),
        symbols_(load.engine),
        variables_(load.variableNames.begin(), load.variableNames.end()) {
    for (const FiledDefinition& one : load.definitions)
      files_.emplace(one.definition.typeId, one.file);
    if (load.isWhole) collect();
  }

  void lint(const FiledDefinition& one) {
    switch (one.definition.kind) {
      case RecordKind::Factor:
        return lintValue(one, load_.engine.getFactor(one.definition.typeId).getFactorComponent(),
                         terms_.valueOf(one.definition.typeId));
      case RecordKind::RelativeUnit:
        lintTerms(one);
        return lintUse(one);
      case RecordKind::AbsoluteUnit:
        return lintUse(one);
      case RecordKind::Symbol:
        return lintSymbolOf(one);
      case RecordKind::Quantity:
        return lintPowers(one);
      default:
        return;
    }
  }

 private:
  void collect() {
    for (const auto& [typeId, quantity] : load_.engine.getQuantities())
      for (const Units::Unit& unit : RecordAccess::units(quantity))
        listed_.insert(RecordAccess::typeId(unit));
    for (const auto& [typeId, symbol] : load_.engine.getSymbols()) {
      hasSymbols_ = true;
      const auto* const decoration = RecordAccess::prefixOrSuffix(symbol);
      if (decoration && isTyped(RecordAccess::text(*decoration)))
        typed_.insert(RecordAccess::typeId(RecordAccess::unit(symbol)));
    }
  }

  static bool isTyped(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
  }

  FoundFault& add(const FiledDefinition& one, std::string_view id, const char* constant,
                  std::string sentence, std::string advice = {}) {
    const std::string& text = findings_.files[one.file].text;
    const Extent extent = constant ? extentOfConstant(text, constant) : extentOfTypeId(text);
    return findings_.add(id, placeIn(one.file, extent), std::move(sentence), std::move(advice));
  }

  void lintTerms(const FiledDefinition& one) {
    const SizeAndPowers& terms = terms_.termsOf(one.definition.typeId);
    if (terms.overflows)
      add(one, "power-overflow", "parentUnits", "A power does not fit in 32 bits.");
    if (terms.cancels) {
      std::string canceled;
      for (const auto& [primitive, power] : terms.powers)
        if (power == 0) canceled += (canceled.empty() ? "" : ", ") + primitive;
      add(one, "canceling-powers", "parentUnits",
          "Powers of " + canceled + " cancel, so sums in formulas can fail.");
    }
    const Units::Unit unit = load_.engine.getUnit(one.definition.typeId);
    if (const auto* const derived = RecordAccess::derived(unit))
      lintValue(one, RecordAccess::factorComponent(*derived), terms.factor);
  }

  /// Checks a number combined with its parents. If it is unusable by itself, that is another
  /// finding.
  void lintValue(const FiledDefinition& one, const Units::FactorComponent& component,
                 double value) {
    const auto isUsable = [](double number) { return number != 0.0 && std::isfinite(number); };
    if (isUsable(value) || !isUsable(RecordAccess::factor(component))) return;
    add(one, "unusable-factor", nullptr,
        std::string("Combined with its parents, the factor is ") + (value == 0.0 ? "0."
                                                                    : value != value
                                                                        ? "not a number."
                                                                        : "infinite."));
  }

  void lintUse(const FiledDefinition& one) {
    if (!load_.isWhole) return;
    const std::string& typeId = one.definition.typeId;
    if (!listed_.empty() && listed_.count(typeId) == 0)
      add(one, "unlisted-unit", nullptr, "No quantity lists the unit.");
    if (hasSymbols_ && typed_.count(typeId) == 0)
      add(one, "untypable-unit", nullptr, "The unit has no symbol that every keyboard can type.");
  }

  void lintSymbolOf(const FiledDefinition& one) {
    const Units::Symbol symbol = load_.engine.getSymbol(one.definition.typeId);
    const char* const constant = RecordAccess::prefixOrSuffix(symbol) ? "text" : "unit";
    lintSymbol(symbol, symbols_, variables_,
               [&](std::string_view id, std::string sentence, std::string advice,
                   const std::string& other) {
                 FoundFault& fault = add(one, id, constant, std::move(sentence), std::move(advice));
                 const auto file = files_.find(other);
                 if (file != files_.end())
                   fault.related.push_back(
                       {placeIn(file->second,
                                extentOfConstant(findings_.files[file->second].text, "text")),
                        "This is the other one."});
               });
  }

  static bool sharePowers(const SizeAndPowers& a, const SizeAndPowers& b) {
    if (a.isAbsolute != b.isAbsolute) return false;
    const auto isIn = [](const SizeAndPowers& some, const SizeAndPowers& others) {
      return std::all_of(some.powers.begin(), some.powers.end(), [&](const auto& power) {
        const auto found = others.powers.find(power.first);
        return power.second == (found == others.powers.end() ? 0 : found->second);
      });
    };
    return isIn(a, b) && isIn(b, a);
  }

  void lintPowers(const FiledDefinition& one) {
    const auto& references = one.definition.references;
    for (const Reference& reference : references) {
      const std::string& first = references.front().typeId;
      if (sharePowers(terms_.termsOf(first), terms_.termsOf(reference.typeId))) continue;
      ReferencePlaces places(findings_.files[one.file].text);
      findings_.add("quantity-powers", placeIn(one.file, places.at(reference)),
                    reference.typeId + " does not measure the same thing as " + first + ".");
      return;
    }
  }

  const LintedLoad& load_;
  Findings& findings_;
  Units::SizeFinder terms_;
  SymbolReader symbols_;
  const std::set<std::string> variables_;
  std::map<std::string, std::size_t> files_;  // by type id
  std::set<std::string> listed_, typed_;
  bool hasSymbols_ = false;
};

}  // namespace

std::vector<std::string> usualVariableNames() {
  return {"a",           "b",         "c",      "d",      "h",        "i",      "j",    "k",
          "l",           "n",         "r",      "t",      "w",        "x",      "y",    "z",
          "A",           "D",         "H",      "L",      "R",        "T",      "V",    "W",
          "angle",       "area",      "count",  "depth",  "diameter", "force",  "gap",  "height",
          "length",      "mass",      "offset", "pitch",  "pressure", "radius", "size", "speed",
          "temperature", "thickness", "time",   "volume", "width"};
}

void lintLoad(const LintedLoad& load, Findings& findings) {
  Linter linter(load, findings);
  for (const FiledDefinition& one : load.definitions) linter.lint(one);
}

void applyAllowances(bool hasLoad, bool isWhole, Findings& findings) {
  std::map<std::pair<std::size_t, std::string_view>, Allowance*> allowed;  // the first of an id
  for (std::size_t file = 0; file < findings.files.size(); ++file)
    for (Allowance& allowance : findings.files[file].allowances)
      allowed.emplace(std::pair(file, std::string_view(allowance.id)), &allowance);
  const auto isSilenced = [&](const FoundFault& fault) {
    if (fault.kind->severity != Severity::Warning) return false;
    const auto found = allowed.find({fault.place.file, fault.kind->id});
    if (found == allowed.end()) return false;
    found->second->isUsed = true;
    return true;
  };
  auto& faults = findings.faults;
  faults.erase(std::remove_if(faults.begin(), faults.end(), isSilenced), faults.end());

  for (std::size_t file = 0; file < findings.files.size(); ++file) {
    const bool isKept = findings.files[file].fate == FileFate::Loaded ||
                        findings.files[file].fate == FileFate::Sound;
    for (std::size_t next = 0; next < findings.files[file].allowances.size(); ++next) {
      const Allowance& allowance = findings.files[file].allowances[next];
      const bool couldBeUsed = has(wholeLoadLints, allowance.id) ? hasLoad && isWhole && isKept
                               : has(loadLints, allowance.id)    ? hasLoad && isKept
                                                                 : true;
      if (allowance.isUsed || !couldBeUsed) continue;
      findings.add("unused-allowance", {file, allowance.begin, allowance.end},
                   '"' + allowance.id + "\" silences nothing.");
    }
  }
}

}  // namespace Schemas
