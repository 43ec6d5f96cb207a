#pragma once

#include <TrelvonUnits/trelvon.h>

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <variant>
#include <vector>

/// Items as C reads them, and what they point to, in places that do not move.
struct trelvon_list {
  std::variant<std::vector<trelvon_text>, std::vector<trelvon_dimension>,
               std::vector<trelvon_factor>, std::vector<trelvon_unit>, std::vector<trelvon_symbol>,
               std::vector<trelvon_quantity>, std::vector<trelvon_name>,
               std::set<std::string>>  // texts that an engine hands over without an allocation
      items;
  std::deque<std::string> texts;
  std::deque<std::vector<trelvon_power>> powers;
  std::deque<std::vector<trelvon_text>> textArrays;

  /// Keeps a text; returns a view of it.
  trelvon_text keep(std::string text);

  /// Keeps exponents by type id.
  const std::vector<trelvon_power>& keep(const std::map<std::string, int>& exponents);
};

namespace C {

using List = std::unique_ptr<trelvon_list>;

/// Makes a list of what `itemOf(list, value)` makes of each value.
template <class Values, class ItemOf>
List listOf(const Values& values, const ItemOf& itemOf) {
  List list = std::make_unique<trelvon_list>();
  std::vector<decltype(itemOf(*list, *values.begin()))> items;
  for (const auto& value : values) items.push_back(itemOf(*list, value));
  list->items = std::move(items);
  return list;
}

/// Makes a list of texts.
template <class Texts>
List listOfTexts(const Texts& texts) {
  return listOf(texts, [](trelvon_list& list, const std::string& text) { return list.keep(text); });
}

}  // namespace C
