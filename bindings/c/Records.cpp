#include "bindings/c/Engine.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Items.h"
#include "bindings/c/Text.h"

#include <optional>

using namespace C;

namespace {

template <class Record>
List listOfRecords(const std::map<std::string, Record>& records) {
  return listOf(records,
                [](trelvon_list& list, const auto& entry) { return itemOf(list, entry.second); });
}

template <class Record>
List listOfOne(const Record& record) {
  return listOf(std::initializer_list<Record>{record},
                [](trelvon_list& list, const Record& only) { return itemOf(list, only); });
}

List recordOf(const Units::UnitsEngine& engine, trelvon_kind kind, const std::string& typeId) {
  switch (kind) {
    case TRELVON_DIMENSION:
      return listOfOne(engine.getDimension(typeId));
    case TRELVON_FACTOR:
      return listOfOne(engine.getFactor(typeId));
    case TRELVON_UNIT:
      return listOfOne(engine.getUnit(typeId));
    case TRELVON_SYMBOL:
      return listOfOne(engine.getSymbol(typeId));
    case TRELVON_QUANTITY:
      return listOfOne(engine.getQuantity(typeId));
  }
  refuseArgument("There is no such kind of record.");
}

List recordsOf(const Units::UnitsEngine& engine, trelvon_kind kind) {
  switch (kind) {
    case TRELVON_DIMENSION:
      return listOfRecords(engine.getDimensions());
    case TRELVON_FACTOR:
      return listOfRecords(engine.getFactors());
    case TRELVON_UNIT:
      return listOfRecords(engine.getUnits());
    case TRELVON_SYMBOL:
      return listOfRecords(engine.getSymbols());
    case TRELVON_QUANTITY:
      return listOfRecords(engine.getQuantities());
  }
  refuseArgument("There is no such kind of record.");
}

/// Makes a list of what an action on the engine returns.
template <class Action>
trelvon_status query(const trelvon_engine* engine, trelvon_list** result, trelvon_error** error,
                     const Action& action) {
  return guard(error, [&] {
    require(engine, result);
    *result = action(*engine->units).release();
  });
}

}  // namespace

trelvon_status trelvon_record(const trelvon_engine* engine, trelvon_kind kind, trelvon_text type_id,
                              trelvon_list** records, trelvon_error** error) {
  return query(engine, records, error, [&](const Units::UnitsEngine& units) {
    return recordOf(units, kind, stringOf(type_id));
  });
}

trelvon_status trelvon_records(const trelvon_engine* engine, trelvon_kind kind,
                               trelvon_list** records, trelvon_error** error) {
  return query(engine, records, error,
               [&](const Units::UnitsEngine& units) { return recordsOf(units, kind); });
}

trelvon_status trelvon_primitive_units(const trelvon_engine* engine, trelvon_list** units,
                                       trelvon_error** error) {
  return query(engine, units, error, [](const Units::UnitsEngine& all) {
    return listOfRecords(all.getPrimitiveUnits());
  });
}

trelvon_status trelvon_primitive_units_of(const trelvon_engine* engine,
                                          const trelvon_text* dimension, trelvon_list** units,
                                          trelvon_error** error) {
  return query(engine, units, error, [&](const Units::UnitsEngine& all) {
    std::optional<Units::Dimension> measured;
    if (dimension != nullptr) measured.emplace(stringOf(*dimension));
    return listOfRecords(all.getPrimitiveUnitsOfDimension(measured));
  });
}

trelvon_status trelvon_convertible_units(const trelvon_engine* engine, trelvon_text unit,
                                         trelvon_list** units, trelvon_error** error) {
  return query(engine, units, error, [&](const Units::UnitsEngine& all) {
    return listOfRecords(all.getConvertibleUnits(stringOf(unit)));
  });
}

trelvon_status trelvon_units_with_powers(const trelvon_engine* engine, const trelvon_power* powers,
                                         size_t count, trelvon_list** units,
                                         trelvon_error** error) {
  return query(engine, units, error, [&](const Units::UnitsEngine& all) {
    if (count != 0) require(powers);
    Units::PrimitivePowers exponents;
    for (size_t i = 0; i < count; ++i) exponents[stringOf(powers[i].type_id)] = powers[i].exponent;
    return listOfRecords(all.getUnitsWithPrimitivePowers(exponents));
  });
}

trelvon_status trelvon_symbols_of(const trelvon_engine* engine, trelvon_text unit,
                                  trelvon_list** symbols, trelvon_error** error) {
  return query(engine, symbols, error, [&](const Units::UnitsEngine& units) {
    return listOfRecords(units.getSymbolsOfUnit(stringOf(unit)));
  });
}

trelvon_status trelvon_quantities_of(const trelvon_engine* engine, trelvon_text unit,
                                     trelvon_list** quantities, trelvon_error** error) {
  return query(engine, quantities, error, [&](const Units::UnitsEngine& units) {
    return listOfRecords(units.getQuantitiesOfUnit(stringOf(unit)));
  });
}
