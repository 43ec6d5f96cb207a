#include "bindings/sqlite/Call.h"

#include "bindings/sqlite/Fault.h"

#include <new>

namespace Sql {

namespace {

const char* typeOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return "an integer";
    case SQLITE_FLOAT:
      return "a real number";
    case SQLITE_TEXT:
      return "a text";
    case SQLITE_BLOB:
      return "a blob";
    default:
      return "NULL";
  }
}

[[noreturn]] void refuseType(const char* what, const char* asked, sqlite3_value* value) {
  throw Fault{std::string(what) + " must be " + asked + ", not " + typeOf(value) + '.'};
}

}  // namespace

std::string_view textOf(sqlite3_value* value, const char* what, std::size_t most) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) refuseType(what, "a text", value);
  const unsigned char* const bytes = sqlite3_value_text(value);
  if (bytes == nullptr) throw std::bad_alloc();
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  if (size > most)
    throw Fault{std::string(what) + " must have at most " + std::to_string(most) +
                " bytes, but has " + std::to_string(size) + '.'};
  return {reinterpret_cast<const char*>(bytes), size};
}

unsigned countOf(sqlite3_value* value, const char* what, unsigned most) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) refuseType(what, "an integer", value);
  const sqlite3_int64 count = sqlite3_value_int64(value);
  if (count < 0) throw Fault{std::string(what) + " must not be negative."};
  return count > most ? most : static_cast<unsigned>(count);
}

std::string Call::unit(int index) {
  if (const auto* const known = kept<std::string>(index)) return *known;
  auto found = std::make_unique<std::string>(
      engine().unitCalled(textOf(value(index), "The name of a unit")));
  std::string typeId = *found;
  keep(index, std::move(found));
  return typeId;
}

double Call::number(int index, const std::string* unit) const {
  const int type = sqlite3_value_type(value(index));
  if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) return sqlite3_value_double(value(index));
  if (type != SQLITE_TEXT) refuseType("A value", "a number or a text", value(index));
  const trelvon_text formula = textOf(textOf(value(index), "A value", mostOfFormula));
  double number = 0;
  if (unit != nullptr)
    Sql::call(trelvon_evaluate, engine().get(), textOf(*unit), formula, nullptr, nullptr, &number);
  else
    Sql::call(trelvon_evaluate_unitless, engine().get(), formula, nullptr, nullptr, &number);
  return number;
}

void Call::give(const std::string& text) {
  sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Call::giveJson(const std::string& text) {
  constexpr unsigned json = 'J';  // as SQLite's functions for JSON mark it
  give(text);
  sqlite3_result_subtype(context_, json);
}

}  // namespace Sql
