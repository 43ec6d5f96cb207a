#include "bindings/sqlite/Tables.h"

#include "bindings/sqlite/Fault.h"

#include <new>
#include <utility>

namespace Sql {

namespace {

/// What SQLite keeps of a table in a connection.
struct Module {
  const Table& table;
  SharedEngine engine;
};

struct OpenTable : sqlite3_vtab {
  explicit OpenTable(const Module& module)
      : sqlite3_vtab{}, table(module.table), engine(module.engine) {}

  const Table& table;
  SharedEngine engine;
};

struct FreeValue {
  void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};

struct Cursor : sqlite3_vtab_cursor {
  Cursor() : sqlite3_vtab_cursor{} {}

  Owned<trelvon_list> rows;
  std::unique_ptr<sqlite3_value, FreeValue> argument;
  std::size_t row = 0;
};

OpenTable& tableOf(sqlite3_vtab_cursor* cursor) { return *static_cast<OpenTable*>(cursor->pVtab); }
Cursor& cursorOf(sqlite3_vtab_cursor* cursor) { return *static_cast<Cursor*>(cursor); }

/// Runs an action and lets no exception reach SQLite.
template <class Action>
int guard(const Action& action, char** message) noexcept {
  try {
    try {
      action();
      return SQLITE_OK;
    } catch (const Fault& fault) {
      sqlite3_free(*message);
      *message = nullptr;
      *message = sqlite3_mprintf("%s", shown(fault.message).c_str());
      return SQLITE_ERROR;
    }
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (...) {
    return SQLITE_ERROR;
  }
}

void check(int status) {
  if (status == SQLITE_NOMEM) throw std::bad_alloc();
  if (status != SQLITE_OK) throw Fault{sqlite3_errstr(status)};
}

int connect(sqlite3* connection, void* module, int, const char* const*, sqlite3_vtab** opened,
            char** message) noexcept {
  return guard(
      [&] {
        auto made = std::make_unique<OpenTable>(*static_cast<const Module*>(module));
        const std::string columns = made->table.columns();
        const std::string visible = columns.substr(0, columns.size() - 2);
        const bool hasArgument = made->table.argument >= 0;
        const std::string all = hasArgument ? columns + "argument HIDDEN" : visible;
        check(sqlite3_declare_vtab(connection, ("CREATE TABLE units(" + all + ")").c_str()));
        check(sqlite3_vtab_config(connection, SQLITE_VTAB_INNOCUOUS));
        *opened = made.release();
      },
      message);
}

int disconnect(sqlite3_vtab* table) noexcept {
  delete static_cast<OpenTable*>(table);
  return SQLITE_OK;
}

/// Asks for the argument, if the query compares it with something. A plan in which its value is not
/// known yet is not usable: the rows depend on it.
int findPlan(sqlite3_vtab* opened, sqlite3_index_info* plan) noexcept {
  const int argument = static_cast<OpenTable*>(opened)->table.argument;
  plan->estimatedCost = 10000;
  plan->estimatedRows = 1000;
  if (argument < 0) return SQLITE_OK;
  bool isUnknown = false;
  for (int index = 0; index < plan->nConstraint; ++index) {
    const auto& constraint = plan->aConstraint[index];
    if (constraint.iColumn != argument || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    isUnknown = isUnknown || !constraint.usable;
    if (!constraint.usable || plan->idxNum != 0) continue;  // SQLite checks a second one itself
    plan->aConstraintUsage[index].argvIndex = 1;
    plan->aConstraintUsage[index].omit = 1;
    plan->idxNum = 1;
    plan->estimatedCost = 100;
    plan->estimatedRows = 30;
  }
  return isUnknown && plan->idxNum == 0 ? SQLITE_CONSTRAINT : SQLITE_OK;
}

int open(sqlite3_vtab*, sqlite3_vtab_cursor** opened) noexcept {
  *opened = new (std::nothrow) Cursor;
  return *opened == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int close(sqlite3_vtab_cursor* cursor) noexcept {
  delete static_cast<Cursor*>(cursor);
  return SQLITE_OK;
}

void read(Cursor& cursor, OpenTable& opened, sqlite3_value* argument) {
  const Table& table = opened.table;
  cursor.rows.reset();
  cursor.argument.reset();
  cursor.row = 0;
  if (argument == nullptr) {
    if (table.needed != nullptr) throw Fault{table.needed};
    cursor.rows = table.rows(*opened.engine, nullptr);
    return;
  }
  if (sqlite3_value_type(argument) == SQLITE_NULL) return;  // nothing equals NULL
  const std::string_view text = textOf(argument, "The argument of a table");
  cursor.argument.reset(sqlite3_value_dup(argument));
  if (cursor.argument == nullptr) throw std::bad_alloc();
  cursor.rows = table.rows(*opened.engine, &text);
}

int filter(sqlite3_vtab_cursor* cursor, int, const char*, int count,
           sqlite3_value** values) noexcept {
  OpenTable& table = tableOf(cursor);
  return guard([&] { read(cursorOf(cursor), table, count == 0 ? nullptr : values[0]); },
               &table.zErrMsg);
}

int next(sqlite3_vtab_cursor* cursor) noexcept {
  ++cursorOf(cursor).row;
  return SQLITE_OK;
}

int isAtEnd(sqlite3_vtab_cursor* cursor) noexcept {
  return cursorOf(cursor).row >= trelvon_list_count(cursorOf(cursor).rows.get()) ? 1 : 0;
}

int giveColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) noexcept {
  OpenTable& opened = tableOf(cursor);
  const Cursor& at = cursorOf(cursor);
  const Table& table = opened.table;
  return guard(
      [&] {
        if (column != table.argument)
          table.give(context, at.rows.get(), at.row, column);
        else if (at.argument != nullptr)
          sqlite3_result_value(context, at.argument.get());
      },
      &opened.zErrMsg);
}

int giveRowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) noexcept {
  *id = static_cast<sqlite3_int64>(cursorOf(cursor).row);
  return SQLITE_OK;
}

/// Tables that are there without CREATE, and that nothing can write to.
constexpr sqlite3_module makeModule() {
  sqlite3_module module{};
  module.xConnect = connect;
  module.xBestIndex = findPlan;
  module.xDisconnect = disconnect;
  module.xOpen = open;
  module.xClose = close;
  module.xFilter = filter;
  module.xNext = next;
  module.xEof = isAtEnd;
  module.xColumn = giveColumn;
  module.xRowid = giveRowId;
  return module;
}

constexpr sqlite3_module module = makeModule();

void release(void* kept) { delete static_cast<Module*>(kept); }

int add(sqlite3* connection, const SharedEngine& engine) {
  for (int index = 0; index < tableCount; ++index) {
    auto* const kept = new (std::nothrow) Module{tables[index], engine};
    if (kept == nullptr) return SQLITE_NOMEM;
    const int status =
        sqlite3_create_module_v2(connection, tables[index].name, &module, kept, release);
    if (status != SQLITE_OK) return status;  // and what is kept has been released
  }
  return SQLITE_OK;
}

}  // namespace

int addTables(sqlite3* connection, const SharedEngine& engine) {
  const int status = add(connection, engine);
  for (int index = 0; index < tableCount && status != SQLITE_OK; ++index)
    sqlite3_create_module_v2(connection, tables[index].name, nullptr, nullptr, nullptr);
  return status;
}

}  // namespace Sql
