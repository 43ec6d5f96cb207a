#pragma once

#include <sqlite3ext.h>

/// The functions of the SQLite that has loaded this library.
SQLITE_EXTENSION_INIT3
