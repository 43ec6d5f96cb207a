#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <new>

namespace Sql {

namespace {

/// The text that replaces a variable: for a number, the shortest one that reads back to it.
std::string replacementOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_FLOAT) {
    if (sqlite3_value_type(value) == SQLITE_INTEGER)
      return std::to_string(sqlite3_value_int64(value));
    return std::string(textOf(value, "The value of a variable", mostOfFormula));
  }
  if (!std::isfinite(sqlite3_value_double(value)))
    throw Fault{"The value of a variable must not be infinite."};
  char digits[32];  // the longest is -2.2250738585072014e-308
  const auto written =
      std::to_chars(std::begin(digits), std::end(digits), sqlite3_value_double(value));
  return {digits, written.ptr};
}

/// Variables of a formula: names and values by turns, from an argument on.
class Variables {
 public:
  static constexpr int first = 2;

  explicit Variables(const Call& call) : call_(call) {
    if (call.count() > first && call.count() % 2 != 0)
      throw Fault{"wrong number of arguments to function units_evaluate()"};
    for (int index = first; index < call.count(); index += 2)
      textOf(call.value(index), "The name of a variable");
  }

  static trelvon_status resolve(void* context, trelvon_text name, trelvon_answer* answer) {
    try {
      return static_cast<Variables*>(context)->answer(viewOf(name), answer);
    } catch (const Fault& fault) {
      const trelvon_status status = trelvon_answer_text(answer, textOf(fault.message));
      return status == TRELVON_OK ? TRELVON_CALLBACK : status;
    } catch (const std::bad_alloc&) {
      return TRELVON_MEMORY;
    }
  }

 private:
  trelvon_status answer(std::string_view name, trelvon_answer* answer) {
    for (int index = first; index < call_.count(); index += 2)
      if (textOf(call_.value(index), "The name of a variable") == name)
        return trelvon_answer_text(answer, textOf(counted(replacementOf(call_.value(index + 1)))));
    throw Fault{"The variable \"" + std::string(name) + "\" has no value."};
  }

  /// Variables that refer to each other may double a formula each time, and SQLite cannot interrupt a
  /// function.
  std::string counted(std::string replacement) {
    if (replacement.size() > left_)
      throw Fault{"The variables of a formula may have at most " + std::to_string(mostOfFormula) +
                  " bytes in all."};
    left_ -= replacement.size();
    return replacement;
  }

  const Call& call_;
  std::size_t left_ = mostOfFormula;
};

}  // namespace

void evaluate(Call& call) {
  if (call.count() == 0) throw Fault{"wrong number of arguments to function units_evaluate()"};
  const trelvon_engine* const engine = call.engine().get();
  const trelvon_text formula = textOf(textOf(call.value(0), "A formula", mostOfFormula));
  double result = 0;
  if (call.count() == 1) {
    Sql::call(trelvon_evaluate_unitless, engine, formula, nullptr, nullptr, &result);
    return call.give(result);
  }
  Variables variables(call);
  const std::string unit = call.unit(1);
  const trelvon_resolver resolver = call.count() > 2 ? Variables::resolve : nullptr;
  Sql::call(trelvon_evaluate, engine, textOf(unit), formula, resolver,
            static_cast<void*>(&variables), &result);
  call.give(result);
}

}  // namespace Sql
