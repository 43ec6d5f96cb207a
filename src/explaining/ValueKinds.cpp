#include "explaining/ValueKinds.h"

#include "engine/Reduction.h"
#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "model/ShownText.h"
#include "text/ShortNumber.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

namespace Units {

namespace {

/// "a length" for "Length", "an area" for "Area".
std::string withArticle(const std::string& name) {
  std::string word = shownText(name);
  const bool isWord = word.size() > 1 && word[1] >= 'a' && word[1] <= 'z';
  if (isWord && word[0] >= 'A' && word[0] <= 'Z') word[0] = static_cast<char>(word[0] - 'A' + 'a');
  const bool beginsWithVowel = std::string_view("aeioAEIO").find(word[0]) != std::string_view::npos;
  return (beginsWithVowel ? "an " : "a ") + word;
}

using PowerList = ExplanationContents::PowerList;

/// The powers that have not canceled.
PowerList withoutZeros(const PowerList& powers) {
  PowerList kept;
  for (const auto& power : powers)
    if (power.second != 0) kept.push_back(power);
  return kept;
}

bool areSame(const ExplanationContents::PowerList& a, const Powers& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(), [](const auto& left, const auto& right) {
        return RecordAccess::identity(left.first) == RecordAccess::identity(right.unit->record) &&
               left.second == static_cast<double>(right.exponent);
      });
}

/// Of the quantities that a predicate accepts, the name of the one with the most units; empty if
/// there is none.
template <class Predicate>
std::string largestQuantity(const Registries& registries, Predicate accepts) {
  const Quantity* largest = nullptr;
  for (const auto& [typeId, node] : registries.quantities.objects.nodes()) {
    const Quantity& quantity = node.record;
    const std::size_t units = RecordAccess::units(quantity).size();
    if (largest && units <= RecordAccess::units(*largest).size()) continue;
    if (accepts(quantity)) largest = &quantity;
  }
  return largest ? withArticle(RecordAccess::name(*largest)) : std::string();
}

}  // namespace

std::string ValueKinds::ofUnit(const Unit& unit) const {
  const std::string name = largestQuantity(registries_, [&](const Quantity& quantity) {
    const std::vector<Unit>& units = RecordAccess::units(quantity);
    return std::any_of(units.begin(), units.end(), [&](const Unit& listed) {
      return RecordAccess::identity(listed) == RecordAccess::identity(unit);
    });
  });
  return name.empty() ? "a value in " + shownText(RecordAccess::name(unit)) : name;
}

std::string ValueKinds::ofPowers(const Contents::PowerList& all) const {
  if (all.empty()) return "a plain number";
  const Contents::PowerList powers = withoutZeros(all);
  if (powers.empty()) return "a ratio";
  if (powers.size() < all.size()) return ofPowers(powers) + " times a ratio";
  Reducer reducer(Reducer::Purpose::Listing);
  const std::string name = largestQuantity(registries_, [&](const Quantity& quantity) {
    const std::vector<Unit>& units = RecordAccess::units(quantity);
    if (units.empty()) return false;
    const auto& first = lookUpNode(registries_.units.objects, RecordAccess::typeId(units.front()));
    return areSame(powers, reducer.reduce(first).powers);
  });
  if (!name.empty()) return name;
  std::map<std::string, std::string> byTypeId;  // the order of powers differs from run to run
  for (const auto& [unit, exponent] : powers)
    byTypeId[RecordAccess::typeId(unit)] = " " + shownText(RecordAccess::name(unit)) +
                                           (exponent == 1 ? "" : "^" + shortNumber(exponent));
  std::string units = "a value in";
  for (const auto& [typeId, power] : byTypeId) units += power;
  return units;
}

std::string ValueKinds::ofNode(const Contents& contents, std::uint32_t node) const {
  const auto* data = &contents.nodes[node];
  while (data->kind == FormulaExplanation::NodeKind::Parentheses)
    data = &contents.nodes[data->operands[0]];
  const Symbol* const symbol = contents.symbolOf(contents.tokens[data->token]);
  const Contents::PowerList* const powers = contents.powersOf(*data);
  if (data->powers == ExplanationContents::omitted) return "a value in many units";
  if (!powers) return ofPowers({});
  const bool isRatio = withoutZeros(*powers).empty();
  return symbol && !isRatio ? ofUnit(RecordAccess::unit(*symbol)) : ofPowers(*powers);
}

}  // namespace Units
