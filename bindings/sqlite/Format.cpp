#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

constexpr unsigned mostCounted = 256;  // which the engine refuses

/// A symbol, and the unit that it is of.
struct FoundSymbol {
  std::string typeId;
  std::string unit;
};

FoundSymbol find(Engine& engine, std::string_view name) {
  FoundSymbol found{engine.symbolCalled(name), {}};
  const auto record =
      make<trelvon_list>(trelvon_record, engine.get(), TRELVON_SYMBOL, textOf(found.typeId));
  trelvon_symbol symbol;
  call(trelvon_list_symbol, record.get(), std::size_t{0}, &symbol);
  found.unit = viewOf(symbol.unit);
  return found;
}

FoundSymbol symbolAt(Call& call, int index) {
  if (const auto* const known = call.kept<FoundSymbol>(index)) return *known;
  auto found = std::make_unique<FoundSymbol>(
      find(call.engine(), textOf(call.value(index), "The name of a symbol")));
  FoundSymbol symbol = *found;
  call.keep(index, std::move(found));
  return symbol;
}

}  // namespace

/// The arguments: a value, perhaps a symbol, places, perhaps whether to trim.
void format(Call& call) {
  const bool hasSymbol = call.count() > 2;
  const FoundSymbol symbol = hasSymbol ? symbolAt(call, 1) : FoundSymbol{};
  const double value = hasSymbol ? call.number(0, symbol.unit) : call.number(0);
  const unsigned places = countOf(call.value(hasSymbol ? 2 : 1), "Places", mostCounted);
  const int trim = call.count() > 3 && countOf(call.value(3), "Trimming", 1) != 0 ? 1 : 0;
  const trelvon_text typeId = textOf(symbol.typeId);
  call.give(write(trelvon_format_fixed, call.engine().get(), value, places,
                  hasSymbol ? &typeId : nullptr, trim));
}

void formatFraction(Call& call) {
  const bool hasSymbol = call.count() > 2;
  const FoundSymbol symbol = hasSymbol ? symbolAt(call, 1) : FoundSymbol{};
  const double value = hasSymbol ? call.number(0, symbol.unit) : call.number(0);
  const unsigned precision = countOf(call.value(hasSymbol ? 2 : 1), "A precision", mostCounted);
  const trelvon_text typeId = textOf(symbol.typeId);
  call.give(write(trelvon_format_fractional, call.engine().get(), value, precision,
                  hasSymbol ? &typeId : nullptr));
}

}  // namespace Sql
