#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

/// @param writer  the function that writes the explanation.
template <class Writer>
std::string explanation(Call& call, Writer* writer) {
  const trelvon_text formula = textOf(textOf(call.value(0), "A formula", mostOfExplained));
  const std::string unit = call.count() > 1 ? call.unit(1) : std::string();
  const trelvon_text unitText = textOf(unit);
  const auto made =
      make<trelvon_explanation>(trelvon_explain, call.engine().get(),
                                call.count() > 1 ? &unitText : nullptr, formula, nullptr, nullptr);
  return write(writer, made.get());
}

}  // namespace

void explain(Call& call) { call.giveJson(explanation(call, trelvon_explain_json)); }
void explainText(Call& call) { call.give(explanation(call, trelvon_explain_text)); }
void explainTree(Call& call) { call.give(explanation(call, trelvon_explain_tree)); }

}  // namespace Sql
