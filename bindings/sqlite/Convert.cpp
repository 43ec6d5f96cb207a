#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

using Shared = std::shared_ptr<const Prepared>;

/// The conversion is kept for the first unit. Something is kept for the second one to show that it
/// is a constant too: SQLite drops at once what is kept for arguments that are not.
const Prepared* keptConversion(const Call& call) {
  const auto* const conversion = call.kept<Shared>(1);
  return conversion != nullptr && call.kept<bool>(2) != nullptr ? conversion->get() : nullptr;
}

void give(Call& call, const Prepared& prepared, double value) {
  double converted = 0;
  trelvon_conversion_apply(prepared.conversion.get(), &value, 1, &converted, 1, 1);
  call.give(converted);
}

}  // namespace

bool convertByKept(Call& call) {
  const Prepared* const prepared = keptConversion(call);
  if (prepared == nullptr || !call.isReal(0)) return false;
  give(call, *prepared, sqlite3_value_double(call.value(0)));
  return true;
}

void convert(Call& call) {
  if (const Prepared* const prepared = keptConversion(call))
    return give(call, *prepared, call.number(0, prepared->from));
  constexpr const char* what = "The name of a unit";
  auto prepared = std::make_unique<Shared>(
      call.engine().conversion(textOf(call.value(1), what), textOf(call.value(2), what)));
  give(call, **prepared, call.number(0, (*prepared)->from));
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
