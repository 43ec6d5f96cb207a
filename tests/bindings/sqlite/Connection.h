/// A connection with the extension, for tests.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// Throws nothing: a fault is what `error` returns.
class Connection {
 public:
  explicit Connection(const char* file = ":memory:") { sqlite3_open(file, &connection_); }
  ~Connection() {
    sqlite3_free(loadMessage);
    sqlite3_close(connection_);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Loads the extension; `keepLoading` leaves the connection free to load others.
  bool load(const char* extension, bool keepLoading = true) {
    sqlite3_enable_load_extension(connection_, 1);
    lastStatus = sqlite3_load_extension(connection_, extension, nullptr, &loadMessage);
    sqlite3_enable_load_extension(connection_, keepLoading ? 1 : 0);
    return lastStatus == SQLITE_OK;
  }

  using Binding = std::function<void(sqlite3_stmt*)>;
  using Row = std::function<void(sqlite3_stmt*)>;

  /// Runs a statement, and calls `row` for each row. Returns a code of SQLite.
  int run(std::string_view sql, const Binding& bind = {}, const Row& row = {}) {
    sqlite3_stmt* statement = nullptr;
    lastStatus = sqlite3_prepare_v2(connection_, sql.data(), static_cast<int>(sql.size()),
                                    &statement, nullptr);
    if (lastStatus != SQLITE_OK) return lastStatus;
    if (bind) bind(statement);
    while ((lastStatus = sqlite3_step(statement)) == SQLITE_ROW)
      if (row) row(statement);
    const int reset = sqlite3_finalize(statement);
    return lastStatus = lastStatus == SQLITE_DONE ? reset : lastStatus;
  }

  /// The values of all rows, as SQL writes them, with `|` between columns and a space between rows;
  /// or `error: ` and the message.
  std::string all(std::string_view sql) {
    std::string text;
    run(sql, {}, [&](sqlite3_stmt* statement) { append(text, statement); });
    return lastStatus == SQLITE_OK ? text : "error: " + error();
  }

  static void append(std::string& text, sqlite3_stmt* row) {
    for (int column = 0; column < sqlite3_column_count(row); ++column) {
      const auto* const bytes = sqlite3_column_text(row, column);
      text += column > 0 ? "|" : text.empty() ? "" : " ";
      text += bytes == nullptr ? "NULL" : reinterpret_cast<const char*>(bytes);
    }
  }

  std::string error() const { return sqlite3_errmsg(connection_); }
  sqlite3* get() const { return connection_; }

  int lastStatus = SQLITE_OK;
  char* loadMessage = nullptr;

 private:
  sqlite3* connection_ = nullptr;
};
