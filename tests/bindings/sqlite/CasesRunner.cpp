/// Answers the calls of cases.py by SQL. The arguments are folders of definitions; the extension lies
/// beside an empty catalog. SQL has messages and no statuses, so all refusals are "REFUSED".
#include "tests/bindings/sqlite/Connection.h"
#include "tests/cases/Lines.h"
#include "tests/support/Outcome.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>

namespace {

// A word of the call is ?N as a text, @N as a real number, $N as an integer. The column `more` has
// words with tabs between.
#define MORE(json) \
  "(SELECT group_concat(key || char(9) || value, char(9)) FROM json_each(" json ")) AS more"
#define UNITS                                                                                 \
  "SELECT type_id, name, system = 'imperial', (kind = 'derived') + 2 * (kind = 'absolute'),"  \
  " ifnull(dimension, ''), ifnull((SELECT key FROM json_each(iif(kind = 'absolute', parents," \
  " NULL))), ''), ifnull(\"offset\", 0.0), ifnull(factor, 0.0), " MORE(                       \
      "iif(kind = 'derived', parents, NULL)") ", " MORE("factors")
#define SYMBOLS                                                                                \
  "SELECT type_id, unit, placement = 'composite', placement = 'prefix', ifnull(has_space, 0)," \
  " ifnull(text, '')"
#define QUANTITIES \
  "SELECT type_id, name, (SELECT group_concat(value, char(9)) FROM json_each(units)) AS more"

const std::map<std::string, const char*> statements = {
    {"convert", "SELECT units_convert(@1, ?2, ?3)"},
    {"prepared", "SELECT units_convert(column1, ?1, ?2) FROM (VALUES (0), (@3)) LIMIT 1 OFFSET 1"},
    {"convert_named", "SELECT units_convert(@1, ?2, ?3)"},
    {"can_convert", "SELECT units_can_convert(?1, ?2)"},
    {"format_fixed", "SELECT units_format(@1, ?3, $2, $4)"},
    {"format_fixed null", "SELECT units_format(@1, $2)"},
    {"format_fractional", "SELECT units_format_fraction(@1, ?3, $2)"},
    {"format_fractional null", "SELECT units_format_fraction(@1, $2)"},
    {"display_show",
     "WITH display AS (SELECT ?1 AS options) SELECT units_show(@2, options) FROM display"},
    {"display_read", "SELECT units_read(?2, ?1)"},
    {"evaluate_unitless", "SELECT units_evaluate(?1)"},
    {"explain", "SELECT units_explain_text(?2, ?1)"},
    {"explain null", "SELECT units_explain_text(?2)"},
    {"explain_hidden", "SELECT units_explain_text(?2, ?1)"},
    {"explain_tree", "SELECT units_explain_tree(?2, ?1)"},
    {"explain_tree null", "SELECT units_explain_tree(?2)"},
    {"explain_json", "SELECT units_explain(?2, ?1)"},
    {"explain_json null", "SELECT units_explain(?2)"},
    {"record unit", UNITS " FROM units_units WHERE type_id = ?2"},
    {"record symbol", SYMBOLS " FROM units_symbols WHERE type_id = ?2"},
    {"record quantity", QUANTITIES " FROM units_quantities WHERE type_id = ?2"},
    {"records unit", UNITS " FROM units_units"},
    {"records symbol", SYMBOLS " FROM units_symbols"},
    {"records quantity", QUANTITIES " FROM units_quantities"},
    {"primitive_units", UNITS " FROM units_units WHERE kind = 'primitive'"},
    {"primitive_units_of", UNITS " FROM units_units WHERE kind = 'primitive' AND dimension IS ?1"},
    {"convertible_units", UNITS " FROM units_convertible(?1)"},
    {"symbols_of", SYMBOLS " FROM units_symbols(?1)"},
    {"quantities_of", QUANTITIES " FROM units_quantities(?1)"},
    {"find",
     "SELECT text, unit, instr('type id   local id  name      symbol    code      "
     "expression', kind) / 10, is_exact FROM units_names(?1)"},
    {"local_id", "SELECT local_id FROM units_units WHERE type_id = ?1"},
    {"load_folder", "SELECT units_load(?1)"}};

/// With the words from the fourth on, NAME=VALUE, as variables.
std::string evaluation() {
  std::string sql = "SELECT units_evaluate(?2, ?1";
  for (std::size_t index = 3; index < word_count; ++index) {
    const std::string word = "?" + std::to_string(index);
    sql += ", substr(" + word + ", 1, instr(" + word + ", '=') - 1)";
    sql += ", substr(" + word + ", instr(" + word + ", '=') + 1)";
  }
  return sql + ")";
}

/// Of the words from the third on, as rows; NULL stays NULL, of which nothing is printed.
std::string conversions() {
  std::string sql = "SELECT units_convert(column1, ?1, ?2) FROM (VALUES (NULL)";
  for (std::size_t index = 3; index < word_count; ++index)
    sql += ", (@" + std::to_string(index) + ")";
  return sql + ")";
}

/// By the call, with what stands for a null or names a kind of records.
std::string statement() {
  const std::string call = words[0].data;
  if (call == "evaluate") return evaluation();
  if (call == "prepared_array") return conversions();
  for (std::size_t index = 1; index < word_count; ++index) {
    const auto found =
        statements.find(call + " " + (words[index].data == nullptr ? "null" : words[index].data));
    if (found != statements.end()) return found->second;
  }
  return statements.at(call);
}

void bind(sqlite3_stmt* statement) {
  for (int index = 1; index <= sqlite3_bind_parameter_count(statement); ++index) {
    const char* const name = sqlite3_bind_parameter_name(statement, index);
    if (name == nullptr) continue;  // a number that the statement does not mention
    const auto& word = words[std::atoi(name + 1)];
    if (name[0] == '@')
      sqlite3_bind_double(statement, index, std::strtod(word.data, nullptr));
    else if (name[0] == '$')
      sqlite3_bind_int64(statement, index, std::atoll(word.data));
    else
      sqlite3_bind_text(statement, index, word.data, static_cast<int>(word.size), SQLITE_STATIC);
  }
}

std::string textOf(sqlite3_stmt* row, int column) {
  if (sqlite3_column_type(row, column) == SQLITE_FLOAT)
    return written(sqlite3_column_double(row, column));
  const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

void answer(Connection& connection) {
  std::vector<std::string> results;
  const int status = connection.run(statement(), bind, [&](sqlite3_stmt* row) {
    for (int column = 0; column < sqlite3_column_count(row); ++column) {
      if (sqlite3_column_type(row, column) == SQLITE_NULL) continue;
      std::string text = textOf(row, column);
      const bool hasMany = sqlite3_column_name(row, column) == std::string("more");
      for (std::size_t tab; hasMany && (tab = text.find('\t')) != std::string::npos;) {
        results.push_back(text.substr(0, tab));
        text.erase(0, tab + 1);
      }
      results.push_back(text);
    }
  });
  std::string error = connection.error();
  error.erase(std::min(error.find(" Did you mean \""), error.size()));  // what SQL says beyond
  std::fputs(status == SQLITE_OK ? "OK" : "REFUSED", stdout);
  if (status != SQLITE_OK) print_word(error.data(), error.size());
  for (const std::string& result : results) print_word(result.data(), result.size());
  std::putchar('\n');
}

}  // namespace

int main(int argc, char** argv) {
  Connection connection;
  bool isReady = connection.load(TRELVON_EXTENSION);
  for (int i = 1; i < argc; ++i)
    isReady =
        isReady &&
        connection.all(std::string("SELECT units_load('") + argv[i] + "')").find("error") != 0;
  if (!isReady) return std::fprintf(stderr, "%s\n", connection.error().c_str()), 1;
  while (read_line()) answer(connection);
}
