#pragma once

#include "bindings/sqlite/Call.h"

#include <cstddef>

namespace Sql {

/// A table that SQL reads as `units_symbols` or, with an argument, as `units_symbols('foot')`. Its rows
/// are the items of a list.
struct Table {
  const char* name;
  std::string (
      *columns)();     ///< In the form of CREATE TABLE, followed by the argument's hidden one.
  int argument;        ///< The index of that column; -1 if there is none.
  const char* needed;  ///< What to say if there is no argument; null if it may be left out.
  /// @param argument  null if none is given.
  Owned<trelvon_list> (*rows)(Engine& engine, const std::string_view* argument);
  void (*give)(sqlite3_context* context, const trelvon_list* rows, std::size_t row, int column);
};

/// Columns.cpp says what the tables hold.
extern const Table tables[];
extern const int tableCount;

/// Gives a connection the tables, all or none. Returns a code of SQLite.
int addTables(sqlite3* connection, const SharedEngine& engine);

}  // namespace Sql
