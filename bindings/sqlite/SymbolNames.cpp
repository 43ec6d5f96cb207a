#include "bindings/sqlite/SymbolNames.h"

#include "bindings/sqlite/Fault.h"

namespace Sql {

SymbolNames::SymbolNames(const trelvon_engine* engine) {
  const auto symbols = make<trelvon_list>(trelvon_records, engine, TRELVON_SYMBOL);
  for (std::size_t index = 0; index < trelvon_list_count(symbols.get()); ++index) {
    trelvon_symbol symbol;
    call(trelvon_list_symbol, symbols.get(), index, &symbol);
    const std::string typeId(viewOf(symbol.type_id));
    byLocalId_[write(trelvon_local_id, symbol.type_id)].push_back(typeId);
    if (symbol.text.size != 0) byText_[std::string(viewOf(symbol.text))].push_back(typeId);
  }
}

std::vector<std::string> SymbolNames::find(std::string_view text) const {
  for (const TypeIds* const typeIds : {&byLocalId_, &byText_})
    if (const auto found = typeIds->find(text); found != typeIds->end()) return found->second;
  return {};
}

}  // namespace Sql
