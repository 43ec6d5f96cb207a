#pragma once

#include "bindings/sqlite/Engine.h"
#include "bindings/sqlite/Sqlite.h"

#include <memory>
#include <string>
#include <string_view>

namespace Sql {

/// The engine of a connection, which each of its functions and tables shares, as SQLite keeps it.
using SharedEngine = std::shared_ptr<Engine>;

/// What one call reads, in bytes. A text of SQLite may have a gigabyte, and an explanation several
/// hundred times the size of its formula.
constexpr std::size_t mostOfName = 10000, mostOfFormula = 1 << 20, mostOfExplained = 1 << 16;

/// Reads a value that must be a text of at most this size.
/// @throws Fault  it is something else; `what` says what is asked for.
std::string_view textOf(sqlite3_value* value, const char* what, std::size_t most = mostOfName);

/// Reads a whole number that must not be negative; one that is huge becomes `most`.
unsigned countOf(sqlite3_value* value, const char* what, unsigned most);

/// One call of a function by a statement. No argument is NULL.
class Call {
 public:
  Call(sqlite3_context* context, int count, sqlite3_value** values)
      : context_(context), count_(count), values_(values) {}

  Engine& engine() const { return **static_cast<SharedEngine*>(sqlite3_user_data(context_)); }
  sqlite3* connection() const { return sqlite3_context_db_handle(context_); }
  int count() const { return count_; }
  sqlite3_value* value(int index) const { return values_[index]; }

  /// The type id of the unit that an argument names. That of a constant is looked up once.
  std::string unit(int index);

  /// Reads a number. A text is a formula, whose plain numbers count in a unit; without a unit it must
  /// have none.
  double number(int index, const std::string& unit) const { return number(index, &unit); }
  double number(int index) const { return number(index, nullptr); }
  bool isReal(int index) const { return sqlite3_value_type(value(index)) == SQLITE_FLOAT; }

  void give(double number) { sqlite3_result_double(context_, number); }
  void give(bool truth) { sqlite3_result_int(context_, truth ? 1 : 0); }
  void give(const std::string& text);
  void giveJson(const std::string& text);

  /// What was kept for an argument; null if nothing was, or if the argument is not a constant.
  template <class Kept>
  const Kept* kept(int index) const {
    return static_cast<const Kept*>(sqlite3_get_auxdata(context_, index));
  }

  /// Keeps something for later rows, as long as an argument is constant.
  template <class Kept>
  void keep(int index, std::unique_ptr<Kept> kept) {
    const auto destroy = [](void* pointer) { delete static_cast<Kept*>(pointer); };
    sqlite3_set_auxdata(context_, index, kept.release(), destroy);
  }

 private:
  double number(int index, const std::string* unit) const;

  sqlite3_context* context_;
  int count_;
  sqlite3_value** values_;
};

/// The bodies of the functions; Functions.cpp says what SQL calls them.
void convert(Call& call);
bool convertByKept(Call& call);  // the quick way for constant units; false if it is not open
void canConvert(Call& call);
void evaluate(Call& call);
void format(Call& call);
void formatFraction(Call& call);
void show(Call& call);
void read(Call& call);
void explain(Call& call);
void explainText(Call& call);
void explainTree(Call& call);
void load(Call& call);
void version(Call& call);

}  // namespace Sql
