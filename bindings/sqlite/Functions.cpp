#include "bindings/sqlite/Functions.h"

#include "bindings/sqlite/Fault.h"

#include <new>

namespace Sql {

namespace {

bool noQuickWay(Call&) { return false; }

/// The function that SQLite calls. No exception may reach SQLite.
template <void (*body)(Call&), bool (*quickWay)(Call&) = noQuickWay>
void run(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
  Call call(context, count, values);
  if (quickWay(call)) return;
  for (int index = 0; index < count; ++index)
    if (sqlite3_value_type(values[index]) == SQLITE_NULL) return sqlite3_result_null(context);
  try {
    try {
      body(call);
    } catch (const Fault& fault) {
      const std::string message = shown(fault.message);
      sqlite3_result_error(context, message.data(), static_cast<int>(message.size()));
    }
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (...) {
    sqlite3_result_error(context, "An unknown error.", -1);
  }
}

constexpr int any = -1;
constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
#if defined(SQLITE_RESULT_SUBTYPE)
constexpr int json = SQLITE_RESULT_SUBTYPE;
#else
constexpr int json = 0;
#endif

constexpr struct {
  const char* name;
  int count;
  int flags;
  void (*run)(sqlite3_context*, int, sqlite3_value**) noexcept;
} functions[] = {
    {"units_convert", 3, pure, run<convert, convertByKept>},
    {"units_can_convert", 2, pure, run<canConvert>},
    {"units_evaluate", any, pure, run<evaluate>},
    {"units_format", 2, pure, run<format>},
    {"units_format", 3, pure, run<format>},
    {"units_format", 4, pure, run<format>},
    {"units_format_fraction", 2, pure, run<formatFraction>},
    {"units_format_fraction", 3, pure, run<formatFraction>},
    {"units_show", 2, pure, run<show>},
    {"units_read", 2, pure, run<read>},
    {"units_explain", 1, pure | json, run<explain>},
    {"units_explain", 2, pure | json, run<explain>},
    {"units_explain_text", 1, pure, run<explainText>},
    {"units_explain_text", 2, pure, run<explainText>},
    {"units_explain_tree", 1, pure, run<explainTree>},
    {"units_explain_tree", 2, pure, run<explainTree>},
    {"units_load", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY | json, run<load>},
    {"units_version", 0, pure, run<version>},
};

void release(void* engine) { delete static_cast<SharedEngine*>(engine); }

int add(sqlite3* connection, const SharedEngine& engine) {
  for (const auto& function : functions) {
    auto* const shared = new (std::nothrow) SharedEngine(engine);
    if (shared == nullptr) return SQLITE_NOMEM;
    const int status =
        sqlite3_create_function_v2(connection, function.name, function.count, function.flags,
                                   shared, function.run, nullptr, nullptr, release);
    if (status != SQLITE_OK) return status;  // and what is shared has been released
  }
  return SQLITE_OK;
}

}  // namespace

void version(Call& call) { call.give(std::string(trelvon_version())); }

int addFunctions(sqlite3* connection, const SharedEngine& engine) {
  const int status = add(connection, engine);
  if (status != SQLITE_OK) removeFunctions(connection);
  return status;
}

void removeFunctions(sqlite3* connection) {
  for (const auto& function : functions)
    sqlite3_create_function_v2(connection, function.name, function.count, SQLITE_UTF8, nullptr,
                               nullptr, nullptr, nullptr, nullptr);
}

}  // namespace Sql
