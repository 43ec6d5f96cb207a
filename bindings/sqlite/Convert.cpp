#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

/// A conversion that is worked out once for all rows of a statement.
struct Prepared {
  std::string from;
  Owned<trelvon_conversion> conversion;
};

std::unique_ptr<Prepared> prepare(Call& call) {
  Engine& engine = call.engine();
  constexpr const char* what = "The name of a unit";
  auto prepared = std::make_unique<Prepared>();
  prepared->from = engine.unitCalled(textOf(call.value(1), what));
  const std::string to = engine.unitCalled(textOf(call.value(2), what));
  prepared->conversion = make<trelvon_conversion>(trelvon_conversion_create, engine.get(),
                                                  textOf(prepared->from), textOf(to));
  return prepared;
}

void convert(Call& call, const Prepared& prepared) {
  const bool isReal = sqlite3_value_type(call.value(0)) == SQLITE_FLOAT;
  const double value = isReal ? sqlite3_value_double(call.value(0)) : call.number(0, prepared.from);
  double converted = 0;
  trelvon_conversion_apply(prepared.conversion.get(), &value, 1, &converted, 1, 1);
  call.give(converted);
}

}  // namespace

/// The conversion is kept for the first unit. Something kept for the second one says that it, too, is
/// a constant: SQLite drops at once what is kept for others.
void convert(Call& call) {
  const auto* const known = call.kept<Prepared>(1);
  if (known != nullptr && call.kept<bool>(2) != nullptr) return convert(call, *known);
  std::unique_ptr<Prepared> prepared = prepare(call);
  convert(call, *prepared);
  call.keep(2, std::make_unique<bool>(true));
  call.keep(1, std::move(prepared));
}

void canConvert(Call& call) {
  const std::string from = call.unit(0), to = call.unit(1);
  int result = 0;
  Sql::call(trelvon_can_convert, call.engine().get(), textOf(from), textOf(to), &result);
  call.give(result != 0);
}

}  // namespace Sql
