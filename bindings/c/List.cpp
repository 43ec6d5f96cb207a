#include "bindings/c/List.h"

#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <iterator>

using namespace C;

trelvon_text trelvon_list::keep(std::string text) {
  texts.push_back(std::move(text));
  return textOf(texts.back());
}

const std::vector<trelvon_power>& trelvon_list::keep(const std::map<std::string, int>& exponents) {
  std::vector<trelvon_power> kept;
  kept.reserve(exponents.size());
  for (const auto& [typeId, exponent] : exponents) kept.push_back({keep(typeId), exponent});
  powers.push_back(std::move(kept));
  return powers.back();
}

namespace {

template <class Item>
trelvon_status itemAt(const trelvon_list* list, size_t index, Item* item, trelvon_error** error) {
  return guard(error, [&] {
    require(list, item);
    const auto* items = std::get_if<std::vector<Item>>(&list->items);
    if (items == nullptr) refuseArgument("The list contains items of another kind.");
    if (index >= items->size()) refuseArgument("The list has fewer items.");
    *item = (*items)[index];
  });
}

}  // namespace

size_t trelvon_list_count(const trelvon_list* list) {
  if (list == nullptr) return 0;
  return std::visit([](const auto& items) { return items.size(); }, list->items);
}

trelvon_status trelvon_list_text(const trelvon_list* list, size_t index, trelvon_text* text,
                                 trelvon_error** error) {
  const auto* set = list == nullptr ? nullptr : std::get_if<std::set<std::string>>(&list->items);
  if (set != nullptr && text != nullptr && index < set->size()) {
    if (error != nullptr) *error = nullptr;
    *text = textOf(*std::next(set->begin(), static_cast<std::ptrdiff_t>(index)));
    return TRELVON_OK;
  }
  return itemAt(list, index, text, error);
}

trelvon_status trelvon_list_dimension(const trelvon_list* list, size_t index,
                                      trelvon_dimension* dimension, trelvon_error** error) {
  return itemAt(list, index, dimension, error);
}

trelvon_status trelvon_list_factor(const trelvon_list* list, size_t index, trelvon_factor* factor,
                                   trelvon_error** error) {
  return itemAt(list, index, factor, error);
}

trelvon_status trelvon_list_unit(const trelvon_list* list, size_t index, trelvon_unit* unit,
                                 trelvon_error** error) {
  return itemAt(list, index, unit, error);
}

trelvon_status trelvon_list_symbol(const trelvon_list* list, size_t index, trelvon_symbol* symbol,
                                   trelvon_error** error) {
  return itemAt(list, index, symbol, error);
}

trelvon_status trelvon_list_quantity(const trelvon_list* list, size_t index,
                                     trelvon_quantity* quantity, trelvon_error** error) {
  return itemAt(list, index, quantity, error);
}

trelvon_status trelvon_list_name(const trelvon_list* list, size_t index, trelvon_name* name,
                                 trelvon_error** error) {
  return itemAt(list, index, name, error);
}

void trelvon_list_free(trelvon_list* list) { delete list; }
