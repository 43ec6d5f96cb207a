#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

/// A display, and the unit in which its values count; empty if there is none.
struct Display {
  Owned<trelvon_display> display;
  std::string unit;
};

/// Uses the display of the second argument. That of a constant is made once for a statement.
template <class Use>
void use(Call& call, const Use& use) {
  if (const auto* const known = call.kept<Display>(1)) return use(*known);
  auto made = std::make_unique<Display>();
  made->display = make<trelvon_display>(
      trelvon_display_create, call.engine().get(),
      textOf(textOf(call.value(1), "The options of a display", mostOfExplained)));
  made->unit = write(trelvon_display_unit, made->display.get());
  use(*made);
  call.keep(1, std::move(made));
}

}  // namespace

void show(Call& call) {
  use(call, [&call](const Display& as) {
    const double value = as.unit.empty() ? call.number(0) : call.number(0, as.unit);
    call.give(write(trelvon_display_show, as.display.get(), value));
  });
}

void read(Call& call) {
  use(call, [&call](const Display& as) {
    double value = 0;
    Sql::call(trelvon_display_read, as.display.get(),
              textOf(textOf(call.value(0), "A text that is read")), &value);
    call.give(value);
  });
}

}  // namespace Sql
