/// What the table of cases cannot say of the extension: how SQL types, schemas, statements, tables,
/// connections and failing allocations meet it. Runs against the whole catalog.
#include "tests/bindings/sqlite/Connection.h"
#include "tests/support/Check.h"
#include "tests/support/FolderTree.h"
#include "tests/support/Heap.h"
#include "tests/support/Random.h"
#include "tests/support/Sample.h"

#include <thread>
#include <vector>

namespace {

struct Said {
  const char* sql;
  const char* expected;
};

void checkAll(Connection& connection, const std::vector<Said>& rows) {
  for (const Said& row : rows) checkEqual(connection.all(row.sql), row.expected, row.sql);
}

const std::vector<Said> values = {
    {"SELECT units_convert(5, 'ft', 'in'), units_convert(5.5, 'feet', 'in')", "60.0|66.0"},
    {"SELECT units_convert('5', 'ft', 'in'), units_convert('5'' 6\"', 'm', 'in')", "60.0|66.0"},
    {"SELECT units_convert(9e999, 'ft', 'in'), units_convert(9223372036854775807, 'm', 'm')",
     "Inf|9.22337203685478e+18"},
    {"SELECT units_convert(NULL, 'fot', x''), units_format(1, NULL, 2), units_explain(NULL)",
     "NULL|NULL|NULL"},
    {"SELECT units_convert(x'35', 'ft', 'in')",
     "error: A value must be a number or a text, and is a blob."},
    {"SELECT units_convert(5, 1, 'in')",
     "error: The name of a unit must be a text, and is an integer."},
    {"SELECT units_convert(5, 'ft', 1.5)",
     "error: The name of a unit must be a text, and is a real number."},
    {"SELECT units_evaluate(5, 'm')", "error: A formula must be a text, and is an integer."},
    {"SELECT units_evaluate('n * x', 'm', 'n', 2, 'x', '3 ft'), units_evaluate('x', 'm', 'x', 0.1)",
     "1.8288|0.1"},
    {"SELECT units_evaluate('x', 'm', 'n', 2)", "error: The variable \"x\" has no value."},
    {"SELECT units_evaluate('x', 'm', 'x', x'')",
     "error: The value of a variable must be a text, and is a blob."},
    {"SELECT units_evaluate('x', 'm', 'x')",
     "error: wrong number of arguments to function units_evaluate()"},
    {"SELECT units_format('1 m', 'feetAndInches', 1), units_format(2, 'ft', 2, 1)",
     "3' 3.4\"|2 ft"},
    {"SELECT units_format(1, 'ft', -1)", "error: Places must not be negative."},
    {"SELECT units_format(1, 'ft', '2')", "error: Places must be an integer, and is a text."},
    {"SELECT units_convert(1, 'K', 'm')",
     "error: \"K\" names more than one unit. Write one of: \"kelvin\", \"kelvinAbsolute\"."},
    {"SELECT units_convert(1, 'kilometre per huor', 'm')",
     "error: Could not find unit with typeid kilometre per huor. Did you mean "
     "\"kilometerPerHour\"?"},
    {"SELECT units_convert(1, 'rec20:FOT', 'ucum:[in_i]')", "12.0"},
    {"SELECT units_convert(1, 'ucum:[ft', 'm')",
     "error: Could not find unit with typeid ucum:[ft. No unit has the code `[ft` of ucum, and it "
     "is no "
     "expression: `[ft` is no code of a unit."},
    {"SELECT units_can_convert('x' || char(0) || CAST(x'C328' AS TEXT), 'm')",
     "error: Could not find unit with typeid x"},
    {"SELECT units_evaluate(CAST(x'C328FF' AS TEXT), 'm')",
     "error: Unrecognized identifier: \\xC3."},
    {"SELECT units_explain('2 ft + 3 kg', 'm') ->> '$.reason', units_explain('5 in') ->> '$.value'",
     "units-differ|0.127"},
    {"SELECT json_type(json_object('a', units_explain('1')), '$.a')", "object"},
    // Each row has its own units, or only one of them.
    {"SELECT units_convert(1, column1, column2) FROM (VALUES ('ft', 'in'), ('yd', 'in'), ('yd', "
     "'ft'))",
     "12.0 36.0 3.0"},
    {"SELECT units_convert(1, column1, 'in') FROM (VALUES ('ft'), ('yd'), ('in'))",
     "12.0 36.0 1.0"},
    {"SELECT units_convert(1, 'yd', column1) FROM (VALUES ('ft'), ('yd'), ('in'))",
     "3.0 1.0 36.0"}};

const std::vector<Said> tables = {
    {"SELECT local_id, parents FROM units_units WHERE local_id IN ('foot', 'degreeCelsius')",
     "degreeCelsius|{\"trelvon.unit:kelvin-1.0.0\":1} foot|{\"trelvon.unit:meter-1.0.0\":1}"},
    {"SELECT count(*) > 1000 FROM units_units WHERE kind <> 'absolute'", "1"},
    {"SELECT text FROM units_symbols('squareFoot') WHERE placement = 'suffix' LIMIT 1", "ft²"},
    {"SELECT local_id FROM units_quantities('bar')", "pressure"},
    {"SELECT count(*) = (SELECT count(*) FROM units_convertible('Pa')) FROM "
     "units_convertible('bar')",
     "1"},
    {"SELECT v.column1, count(*) > 1 FROM (VALUES ('bar'), ('m')) v, units_convertible(v.column1) "
     "GROUP "
     "BY 1",
     "bar|1 m|1"},
    {"SELECT count(DISTINCT argument) FROM units_symbols WHERE argument IN ('ft', 'm')", "2"},
    {"SELECT v.column1, kind FROM (VALUES ('K'), ('?')) v LEFT JOIN units_names(v.column1)",
     "K|symbol K|symbol ?|NULL"},
    {"SELECT count(*) FROM units_symbols s, units_units u WHERE s.argument = u.type_id AND "
     "u.local_id = "
     "'foot' AND s.text = 'ft'",
     "1"},
    {"SELECT count(*) FROM units_symbols('ft') WHERE argument = 'm'", "0"},
    {"SELECT count(*) FROM units_convertible(NULL)", "0"},
    {"SELECT count(*) FROM units_units WHERE rowid = 3", "1"},
    {"SELECT * FROM units_convertible",
     "error: units_convertible needs a unit, as in units_convertible('bar')."},
    {"SELECT * FROM units_convertible('bra')",
     "error: Could not find unit with typeid bra. Did you mean \"bar\" or \"bara\"?"},
    {"SELECT * FROM units_symbols(x'00')",
     "error: The argument of a table must be a text, and is a blob."},
    {"DELETE FROM units_units", "error: table units_units may not be modified"}};

/// A database that is trusted with nothing.
const std::vector<Said> schemas = {
    {"PRAGMA trusted_schema = OFF", ""},
    {"CREATE TABLE walls(width TEXT CHECK (units_evaluate(width, 'm') > 0),"
     " meters REAL AS (units_evaluate(width, 'm')) STORED,"
     " shown AS (units_format(width, 'feetAndInches', 0)))",
     ""},
    {"CREATE INDEX wide ON walls(units_convert(meters, 'm', 'mm'))", ""},
    {"INSERT INTO walls VALUES ('2 ft'), ('5'' 6\"'), (NULL)", ""},
    {"INSERT INTO walls VALUES ('0 m')",
     "error: CHECK constraint failed: units_evaluate(width, 'm') > 0"},
    {"INSERT INTO walls VALUES ('wide')", "error: Unrecognized identifier: wide."},
    {"SELECT shown, meters FROM walls WHERE units_convert(meters, 'm', 'mm') > 610",
     "5' 6\"|1.6764"},
    {"EXPLAIN QUERY PLAN SELECT * FROM walls WHERE units_convert(meters, 'm', 'mm') > 610",
     "3|0|0|SEARCH walls USING INDEX wide (<expr>>?)"},
    {"PRAGMA integrity_check", "ok"},
    {"CREATE VIEW known AS SELECT * FROM units_convertible('bar')", ""},
    {"SELECT count(*) > 10 FROM known", "1"},
    {"CREATE VIEW loading AS SELECT units_load('.')", ""},
    {"SELECT * FROM loading", "error: unsafe use of units_load()"}};

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
  checkAll(connection, {{"SELECT units_convert(1, 'smoot', 'in')",
                         "error: Could not find unit with typeid smoot. Did you mean \"foot\"?"}});
  checkEqual(connection.all(load), "0", "a folder");
  checkAll(connection, {{"SELECT units_convert(2, 'smoot', 'in')", "2.0"}});
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
  } functions[] = {{"convert", 3, 3},      {"can_convert", 2, 2},  {"evaluate", 1, 6},
                   {"format", 2, 4},       {"explain", 1, 2},      {"format_fraction", 2, 3},
                   {"explain_text", 1, 2}, {"explain_tree", 1, 2}, {"load", 1, 1},
                   {"symbols", 1, 1},      {"quantities", 1, 1},   {"convertible", 1, 1},
                   {"names", 1, 1}};
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
        if (connection.all(values[0].sql) != values[0].expected) std::abort();
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
  checkAll(connection, values);
  checkAll(connection, tables);
  checkParameters(connection);
  Random random(1);
  checkAnyValues(connection, random);
  checkAll(connection, values);
  checkAll(connection, schemas);
  checkLoading();
  checkThreads();
  checkAllocations();
  return verdict();
}
