#include "bindings/sqlite/Call.h"
#include "bindings/sqlite/Fault.h"

namespace Sql {

namespace {

bool mayLoadExtensions(sqlite3* connection) {
  int isAllowed = 0;
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, -1, &isAllowed);
  return isAllowed != 0;
}

int countRunning(sqlite3* connection) {
  int count = 0;
  for (sqlite3_stmt* statement = sqlite3_next_stmt(connection, nullptr); statement != nullptr;
       statement = sqlite3_next_stmt(connection, statement))
    if (sqlite3_stmt_busy(statement) != 0) ++count;
  return count;
}

}  // namespace

/// Within one statement, a deterministic function must give the same at each row. So a connection
/// loads only while nothing else runs.
void load(Call& call) {
  if (!mayLoadExtensions(call.connection()))
    throw Fault{"units_load needs a connection that may load extensions."};
  if (countRunning(call.connection()) > 1)
    throw Fault{"units_load cannot change units while another statement runs."};
  call.giveJson(call.engine().load(textOf(call.value(0), "The path of a folder")));
}

}  // namespace Sql
