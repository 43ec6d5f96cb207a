/// What the table of cases cannot say of the extension: how SQL types, schemas, statements, tables,
/// connections and failing allocations meet it. Runs against the whole catalog.
#include "tests/bindings/sqlite/Connection.h"
#include "tests/support/Check.h"
#include "tests/support/FolderTree.h"
#include "tests/support/Heap.h"
#include "tests/support/Random.h"
#include "tests/support/Sample.h"

#include <fstream>
#include <thread>
#include <vector>

namespace {

struct Said {
  const char* sql;
  const char* expected;
};

/// A statement and its rows, with which the lines of queries.txt are compared.
void checkQueries(Connection& connection) {
  std::ifstream file(TRELVON_TESTS_SOURCE_DIR "/tests/bindings/sqlite/queries.txt");
  std::string sql, got;
  for (std::string line; std::getline(file, line);) {
    const bool isRows = line.compare(0, 2, "  ") == 0;
    if (line.empty() || line[0] == '#') continue;
    checkEqual(got, isRows ? line.substr(2) : "", sql);
    if (!isRows) sql = line;
    got = isRows ? "" : connection.all(sql);
  }
  check(!sql.empty() && got.empty(), "The queries end with ", sql, got);
}

void checkAll(Connection& connection, const std::vector<Said>& rows) {
  for (const Said& row : rows) checkEqual(connection.all(row.sql), row.expected, row.sql);
}

void checkParameters(Connection& connection) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(connection.get(), "SELECT units_convert(1, ?1, 'in')", -1, &statement,
                     nullptr);
  for (const auto& [unit, inches] : {std::pair("ft", 12), {"yd", 36}, {"ft", 12}}) {
    sqlite3_bind_text(statement, 1, unit, -1, SQLITE_STATIC);
    sqlite3_step(statement);
    checkEqual(sqlite3_column_int(statement, 0), inches, "a parameter that is bound again");
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}

void checkLoading() {
  const FolderTree folder;
  folder.write("units/smoot.json", derived("my:smoot", {"trelvon.unit:inch-1.0.0"}));
  folder.write("units/foot.json", derived("my:foot", {"trelvon.unit:inch-1.0.0"}));
  const std::string load = "SELECT units_load('" + folder.path().string() + "') ->> '$.errors'";
  Connection closed, connection;
  closed.load(TRELVON_EXTENSION, false);
  checkEqual(closed.all(load), "error: units_load needs a connection that may load extensions.",
             "a connection that loads no extensions");
  connection.load(TRELVON_EXTENSION);
  const std::string faults =
      connection.all("SELECT units_load('" TRELVON_TESTS_SOURCE_DIR "/tests/data/faults')");
  check(faults.find("faults/json.json:") != std::string::npos, "A faulty folder gives ", faults);
  connection.run("SELECT 1 UNION SELECT 2", {}, [&](sqlite3_stmt*) {
    checkEqual(connection.all(load),
               "error: units_load cannot change units while another statement runs.", "busy");
  });
  checkAll(connection, {{"SELECT units_convert(1, 'foot', 'in')", "12.0"},
                        {"SELECT units_convert(1, 'smoot', 'in')",
                         "error: Could not find unit with typeid smoot. Did you mean \"foot\"?"}});
  checkEqual(connection.all(load), "0", "a folder");
  checkAll(connection,
           {{"SELECT units_convert(2, 'smoot', 'in')", "2.0"},
            {"SELECT units_convert(1, 'foot', 'in')",
             "error: \"foot\" names more than one unit. Write one of: \"my:foot\", \"'\"."}});
  check(connection.load(TRELVON_EXTENSION), "It cannot be loaded again.");
  check(connection.all("SELECT units_convert(1, 'smoot', 'in')").find("error") == 0, "Not anew.");
  check(closed.all("SELECT units_convert(1, 'smoot', 'in')").find("error") == 0, "It is shared.");
}

/// Any values in any function and table: whatever comes of it, the connection goes on.
void checkAnyValues(Connection& connection, Random& random) {
  const std::string literals[] = {"NULL",
                                  "0",
                                  "-1",
                                  "3",
                                  "9223372036854775807",
                                  "1.5",
                                  "-9e999",
                                  "''",
                                  "'12'",
                                  "'5'' 6\"'",
                                  "'ft'",
                                  "'m'",
                                  "'feetAndInches'",
                                  R"('{"symbol": "trelvon.symbol:foot-1.0.0"}')",
                                  "x''",
                                  "x'00FF'",
                                  "CAST(x'00' AS TEXT)",
                                  "CAST(x'C328FF' AS TEXT)",
                                  "'a' || char(0)",
                                  "replace(hex(zeroblob(9999)), '00', '9 m + ')",
                                  "zeroblob(99999)",
                                  "CAST(randomblob(50) AS TEXT)",
                                  "printf('%99999s', '(')"};
  const struct {
    const char* name;
    unsigned least, most;
  } functions[] = {
      {"convert", 3, 3},      {"can_convert", 2, 2},  {"evaluate", 1, 6}, {"format", 2, 4},
      {"explain", 1, 2},      {"show", 2, 2},         {"read", 2, 2},     {"format_fraction", 2, 3},
      {"explain_text", 1, 2}, {"explain_tree", 1, 2}, {"load", 1, 1},     {"symbols", 1, 1},
      {"quantities", 1, 1},   {"convertible", 1, 1},  {"names", 1, 1}};
  for (int round = 0; round < 4000; ++round) {
    const auto& function = functions[random.below(std::size(functions))];
    std::string call = std::string("units_") + function.name + "(";
    const auto count = function.least + random.below(function.most - function.least + 1);
    for (std::size_t index = 0; index < count; ++index)
      call += (index == 0 ? "" : ", ") + literals[random.below(std::size(literals))];
    const bool isTable = function.most == 1 && function.name != std::string("load");
    connection.run((isTable ? "SELECT * FROM " : "SELECT ") + call + ")");
    const int status = connection.lastStatus;
    check(status == SQLITE_OK || (status == SQLITE_ERROR && !connection.error().empty()), call,
          " gives ", status);
  }
}

void checkThreads() {
  std::vector<std::thread> threads;
  for (int index = 0; index < 4; ++index)
    threads.emplace_back([] {
      Connection connection;
      connection.load(TRELVON_EXTENSION);
      for (int round = 0; round < 20; ++round)
        if (connection.all("SELECT units_convert('1 yd', 'ft', 'in')") != "36.0") std::abort();
    });
  for (std::thread& thread : threads) thread.join();
}

/// Fails one allocation after the other, alone or with all that follow. The action says what is wrong.
template <class Action>
void failEach(const std::string& what, const Action& action) {
  for (const bool andAllThatFollow : {false, true}) {
    bool failed = true;
    for (long index = 0; failed; index += 1 + index / 50) {
      heap::fail(index, andAllThatFollow);
      const std::string wrong = action();
      failed = heap::hasFailed();
      heap::succeed();
      check(wrong.empty(), what, ", allocation ", index, ": ", wrong);
    }
  }
}

void checkAllocations() {
  const FolderTree folder;
  const std::string extension = folder.path("mod_trelvonunits.so").string();
  std::filesystem::copy_file(TRELVON_EXTENSION, extension);
  folder.write("catalog.bundle", bundleOf(sampleSchemas()));
  folder.write("catalog.codes.json", R"({"version": 1, "codes": {}})");
  Connection warm;
  warm.load(extension.c_str());
  failEach("loading", [&] {
    heap::pause(true);
    Connection connection;
    heap::pause(false);
    const bool isLoaded = connection.load(extension.c_str());
    heap::succeed();
    const std::string got = connection.all("SELECT units_convert(1, 'foot', 'inch')");
    return !isLoaded || got == "12.0" ? "" : got;
  });
  for (const Said& row : std::vector<Said>{
           {"SELECT units_convert(column1, 'ft', 'inch') FROM (VALUES (1), ('2 ft'))", "12.0 24.0"},
           {"SELECT units_evaluate('2 ft + w', 'inch', 'w', '3 in')", "27.0"},
           {"SELECT units_format(1.5, 'feetAndInches', 1)", "1' 6.0\""},
           {"SELECT units_show(column1, '{\"symbol\":\"ft\"}') FROM (VALUES (1), ('2 ft'))",
            "1 ft 2 ft"},
           {"SELECT units_explain('2 ft') ->> '$.value', units_can_convert('ft', 'in')", "24.0|1"},
           {"SELECT count(*), group_concat(parents) FROM units_units",
            R"(6|{"foot":2},{"kelvin":1},{"inch":1},{"inch":-1})"},
           {"SELECT name FROM units_quantities('foot')", "n"},
           {"SELECT type_id FROM units_convertible('ft')", "foot inch perInch"},
           {"SELECT units_convert(1, 'fot', 'm')",
            "error: Could not find unit with typeid fot. Did you mean \"foot\"?"}})
    failEach(row.sql, [&] {
      heap::pause(true);
      Connection connection;  // makes names and caches anew
      connection.load(extension.c_str());
      std::string got;
      heap::pause(false);
      const int status = connection.run(row.sql, {}, [&got](sqlite3_stmt* statement) {
        heap::pause(true);
        Connection::append(got, statement);
        heap::pause(false);
      });
      heap::succeed();
      if (status == SQLITE_ERROR) got = "error: " + connection.error();
      const bool isLost = got == "error: SQL logic error";  // SQLite had no room for the message
      if (status != SQLITE_NOMEM && !isLost && got != row.expected) return got;
      const std::string again = connection.all(row.sql);
      return again == row.expected ? "" : "then " + again;
    });
}

}  // namespace

int main() {
  Connection connection;
  check(connection.load(TRELVON_EXTENSION), "It cannot be loaded.");
  checkParameters(connection);
  Random random(1);
  checkAnyValues(connection, random);
  checkQueries(connection);
  checkAll(connection, {{"SELECT units_evaluate(CAST(x'C328FF' AS TEXT), 'm')",
                         "error: Unrecognized identifier: \\xC3."}});
  Connection wide;
  wide.run("PRAGMA encoding = 'UTF-16'");
  wide.load(TRELVON_EXTENSION);
  checkQueries(wide);
  checkLoading();
  checkThreads();
  checkAllocations();
  return verdict();
}
