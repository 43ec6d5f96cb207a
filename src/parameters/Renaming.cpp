#include "parameters/Renaming.h"

#include "parameters/ParameterGraph.h"
#include "parameters/ParameterName.h"

#include <TrelvonUnits/Exceptions.h>

#include <cstddef>
#include <utility>

namespace Units {

namespace {

/// Renames one parameter to a name that is not defined.
class Renaming {
 public:
  Renaming(ParameterTableContents& table, Parameter& from, const std::string& newName)
      : table_(table), from_(from), change_(table), to_(change_.of(newName)) {}

  void run();

 private:
  void rewriteReferrers();
  std::unique_ptr<Definition> rewritten(const Definition& definition);
  bool isSame(const Definition& before, const Definition& after) const;
  void move() noexcept;

  ParameterTableContents& table_;
  Parameter& from_;
  ParameterChange change_;
  Parameter& to_;
};

void Renaming::run() {
  rewriteReferrers();
  // Formulas that refer to the new name are read as before, but now it has a value. If the
  // parameter has no value, those that depend on it have its name in their messages.
  makeDue(to_);
  if (from_.state != ParameterState::HasValue) makeDue(from_);
  change_.commit();
  move();
}

void Renaming::rewriteReferrers() {
  const std::size_t before = table_.clock;
  for (const Reference* it = from_.referrers; it; it = it->next) {
    Parameter& referrer = *it->from;
    if (referrer.order > before) continue;  // it refers twice
    referrer.order = ++table_.clock;
    auto definition = rewritten(*referrer.definition);
    if (!isSame(*referrer.definition, *definition))
      throw ValidationException("Parameter " + *from_.name + " cannot be renamed to " + *to_.name +
                                ", because the formula of " + *referrer.name +
                                " would be read differently.");
    change_.define(referrer, std::move(definition));
  }
}

/// Reads a formula again, with the new name in place of the old one.
std::unique_ptr<Definition> Renaming::rewritten(const Definition& definition) {
  const std::string& old = definition.formula;
  std::string formula;
  std::size_t copied = 0;
  for (const Reference& reference : definition.references) {
    if (reference.to != &from_) continue;
    formula.append(old, copied, reference.offset - copied).append(*to_.name);
    copied = reference.offset + from_.name->size();
  }
  formula.append(old, copied);
  return readFormula(*table_.source, formula, definition.unitTypeId, change_);
}

bool Renaming::isSame(const Definition& before, const Definition& after) const {
  if (before.reason != after.reason || before.references.size() != after.references.size())
    return false;
  std::ptrdiff_t shift = 0;
  const auto longer = static_cast<std::ptrdiff_t>(to_.name->size()) -
                      static_cast<std::ptrdiff_t>(from_.name->size());
  for (std::size_t i = 0; i < before.references.size(); ++i) {
    const Reference &was = before.references[i], &is = after.references[i];
    const bool isRenamed = was.to == &from_;
    if (is.to != (isRenamed ? &to_ : was.to)) return false;
    if (static_cast<std::ptrdiff_t>(is.offset) != static_cast<std::ptrdiff_t>(was.offset) + shift)
      return false;
    if (isRenamed) shift += longer;
  }
  return true;
}

/// Nothing refers to the old name anymore.
void Renaming::move() noexcept {
  to_.definition = std::move(from_.definition);
  for (Reference& reference : to_.definition->references) reference.from = &to_;
  to_.state = from_.state;
  to_.reason = from_.reason;
  to_.value = std::move(from_.value);
  to_.inOwnUnit = from_.inOwnUnit;
  removeIfUnused(table_, from_);
}

}  // namespace

void renameParameter(ParameterTableContents& table, const std::string& name,
                     const std::string& newName) {
  Parameter& from = lookUpParameter(table, name);
  if (name == newName) return;
  checkParameterName(newName, table.source->engine());
  const auto taken = table.parameters.find(newName);
  if (taken != table.parameters.end() && taken->second.definition)
    throw ValidationException("Parameter " + newName + " is already defined.");
  Renaming(table, from, newName).run();
}

}  // namespace Units
