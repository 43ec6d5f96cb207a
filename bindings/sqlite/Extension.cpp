/// What SQLite looks for when it loads this library.
#include "bindings/sqlite/Fault.h"
#include "bindings/sqlite/Functions.h"
#include "bindings/sqlite/Tables.h"

#include <new>

SQLITE_EXTENSION_INIT1

namespace {

constexpr int oldestSqlite = 3031000;  // it tells functions that are innocuous from others

int load(sqlite3* connection) {
  if (sqlite3_libversion_number() < oldestSqlite)
    throw Sql::Fault{"TrelvonUnits needs SQLite 3.31 or later."};
  const auto engine = std::make_shared<Sql::Engine>(Sql::findCatalog());
  int status = Sql::addFunctions(connection, engine);
  if (status != SQLITE_OK) return status;
  status = Sql::addTables(connection, engine);
  if (status != SQLITE_OK) Sql::removeFunctions(connection);
  return status;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int sqlite3_modtrelvonunits_init(
    sqlite3* connection, char** message, const sqlite3_api_routines* routines) noexcept {
  SQLITE_EXTENSION_INIT2(routines)
  try {
    try {
      return load(connection);
    } catch (const Sql::Fault& fault) {
      *message = sqlite3_mprintf("%s", Sql::shown(fault.message).c_str());
      return SQLITE_ERROR;
    }
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (...) {
    return SQLITE_ERROR;
  }
}
