#pragma once

#include "bindings/sqlite/Call.h"

namespace Sql {

/// Gives a connection the functions, all or none. Returns a code of SQLite.
int addFunctions(sqlite3* connection, const SharedEngine& engine);

void removeFunctions(sqlite3* connection);

}  // namespace Sql
