/// What the tables hold.
#include "bindings/sqlite/Fault.h"
#include "bindings/sqlite/Tables.h"

#include <iterator>

namespace Sql {

namespace {

using Context = sqlite3_context*;

void give(Context context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// An empty text is one that the record does not have; SQL reads NULL.
void give(Context context, trelvon_text text) {
  if (text.size != 0) give(context, viewOf(text));
}

void giveLocalId(Context context, trelvon_text typeId) {
  give(context, std::string_view(write(trelvon_local_id, typeId)));
}

void appendQuoted(std::string& json, trelvon_text text) {
  constexpr char digits[] = "0123456789abcdef";
  json += '"';
  for (const char c : viewOf(text)) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') json += '\\';
    if (byte < 0x20)
      json += {'\\', 'u', '0', '0', digits[byte >> 4], digits[byte & 15]};
    else
      json += c;
  }
  json += '"';
}

/// Exponents by type id, as a JSON object.
void givePowers(Context context, const trelvon_power* powers, std::size_t count) {
  if (count == 0) return;
  std::string json;
  for (std::size_t index = 0; index < count; ++index) {
    json += index == 0 ? '{' : ',';
    appendQuoted(json, powers[index].type_id);
    json += ':' + std::to_string(powers[index].exponent);
  }
  give(context, std::string_view(json + '}'));
}

void giveParents(Context context, const trelvon_unit& unit) {
  const trelvon_power parent = {unit.parent, 1};
  if (unit.kind == TRELVON_ABSOLUTE)
    givePowers(context, &parent, 1);
  else
    givePowers(context, unit.parents, unit.parent_count);
}

void giveUnits(Context context, const trelvon_quantity& quantity) {
  std::string json = "[";
  for (std::size_t index = 0; index < quantity.unit_count; ++index) {
    if (index != 0) json += ',';
    appendQuoted(json, quantity.units[index]);
  }
  give(context, std::string_view(json + ']'));
}

const char* kindOf(const trelvon_unit& unit) {
  return unit.kind == TRELVON_PRIMITIVE ? "primitive"
         : unit.kind == TRELVON_DERIVED ? "derived"
                                        : "absolute";
}

const char* placementOf(const trelvon_symbol& symbol) {
  return symbol.is_composite ? "composite" : symbol.is_prefix ? "prefix" : "suffix";
}

const char* kindOf(const trelvon_name& name) {
  constexpr const char* kinds[] = {"type id", "local id", "name", "symbol", "code", "expression"};
  return kinds[name.kind];
}

template <class Record>
struct Column {
  const char* declaration;
  void (*give)(Context context, const Record& record);
};

#define COLUMN(declaration, giving)                         \
  {                                                         \
    declaration, [](Context to, const auto& it) { giving; } \
  }

constexpr Column<trelvon_unit> unitColumns[] = {
    COLUMN("type_id TEXT", give(to, it.type_id)),
    COLUMN("local_id TEXT", giveLocalId(to, it.type_id)),
    COLUMN("name TEXT", give(to, it.name)),
    COLUMN("system TEXT",
           give(to, std::string_view(it.system == TRELVON_METRIC ? "metric" : "imperial"))),
    COLUMN("kind TEXT", give(to, std::string_view(kindOf(it)))),
    COLUMN("dimension TEXT", give(to, it.dimension)),
    COLUMN("factor REAL", if (it.kind == TRELVON_DERIVED) sqlite3_result_double(to, it.factor)),
    COLUMN("\"offset\" REAL",
           if (it.kind == TRELVON_ABSOLUTE) sqlite3_result_double(to, it.offset)),
    COLUMN("parents TEXT", giveParents(to, it)),
    COLUMN("factors TEXT", givePowers(to, it.parent_factors, it.parent_factor_count))};

constexpr Column<trelvon_symbol> symbolColumns[] = {
    COLUMN("type_id TEXT", give(to, it.type_id)),
    COLUMN("local_id TEXT", giveLocalId(to, it.type_id)),
    COLUMN("unit TEXT", give(to, it.unit)),
    COLUMN("text TEXT", if (!it.is_composite) give(to, viewOf(it.text))),
    COLUMN("placement TEXT", give(to, std::string_view(placementOf(it)))),
    COLUMN("has_space INTEGER", if (!it.is_composite) sqlite3_result_int(to, it.has_space))};

constexpr Column<trelvon_quantity> quantityColumns[] = {
    COLUMN("type_id TEXT", give(to, it.type_id)),
    COLUMN("local_id TEXT", giveLocalId(to, it.type_id)), COLUMN("name TEXT", give(to, it.name)),
    COLUMN("units TEXT", giveUnits(to, it))};

constexpr Column<trelvon_name> nameColumns[] = {
    COLUMN("text TEXT", give(to, viewOf(it.text))), COLUMN("unit TEXT", give(to, it.unit)),
    COLUMN("kind TEXT", give(to, std::string_view(kindOf(it)))),
    COLUMN("is_exact INTEGER", sqlite3_result_int(to, it.is_exact))};

template <const auto& columns>
std::string declare() {
  std::string declared;
  for (const auto& column : columns) declared += std::string(column.declaration) + ", ";
  return declared;
}

/// Reads a record of a list by a function of the C interface, and gives a column of it.
template <const auto& columns, auto read, class Record>
void giveColumn(Context context, const trelvon_list* rows, std::size_t row, int column) {
  Record record;
  call(read, rows, row, &record);
  columns[column].give(context, record);
}

template <trelvon_kind kind>
Owned<trelvon_list> all(Engine& engine, const std::string_view*) {
  return make<trelvon_list>(trelvon_records, engine.get(), kind);
}

/// All records of a kind or, with an argument, those of a unit.
template <trelvon_kind kind, auto ofUnit>
Owned<trelvon_list> allOrOf(Engine& engine, const std::string_view* unit) {
  if (unit == nullptr) return all<kind>(engine, nullptr);
  return make<trelvon_list>(ofUnit, engine.get(), textOf(engine.unitCalled(*unit)));
}

Owned<trelvon_list> convertible(Engine& engine, const std::string_view* unit) {
  return make<trelvon_list>(trelvon_convertible_units, engine.get(),
                            textOf(engine.unitCalled(*unit)));
}

Owned<trelvon_list> called(Engine& engine, const std::string_view* text) {
  return make<trelvon_list>(trelvon_names_find, static_cast<const trelvon_names*>(engine.names()),
                            textOf(*text));
}

constexpr int unitCount = std::size(unitColumns), symbolCount = std::size(symbolColumns),
              quantityCount = std::size(quantityColumns), nameCount = std::size(nameColumns);
constexpr auto giveUnit = giveColumn<unitColumns, trelvon_list_unit, trelvon_unit>;

}  // namespace

extern const Table tables[] = {
    {"units_units", declare<unitColumns>, -1, nullptr, all<TRELVON_UNIT>, giveUnit},
    {"units_convertible", declare<unitColumns>, unitCount,
     "units_convertible needs a unit, as in units_convertible('bar').", convertible, giveUnit},
    {"units_symbols", declare<symbolColumns>, symbolCount, nullptr,
     allOrOf<TRELVON_SYMBOL, trelvon_symbols_of>,
     giveColumn<symbolColumns, trelvon_list_symbol, trelvon_symbol>},
    {"units_quantities", declare<quantityColumns>, quantityCount, nullptr,
     allOrOf<TRELVON_QUANTITY, trelvon_quantities_of>,
     giveColumn<quantityColumns, trelvon_list_quantity, trelvon_quantity>},
    {"units_names", declare<nameColumns>, nameCount,
     "units_names needs a text, as in units_names('K').", called,
     giveColumn<nameColumns, trelvon_list_name, trelvon_name>}};

extern const int tableCount = std::size(tables);

}  // namespace Sql
