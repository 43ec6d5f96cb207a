#pragma once

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>

#include <map>
#include <string>

namespace Units {

/// Records of one kind by type id. Records stay where they are once they are in: pointers to them
/// hold as long as the map's owner lives.
template <class Record>
using RecordMap = std::map<std::string, Record>;

/// What messages call a kind of record.
template <class Record>
inline constexpr const char* kindWord = nullptr;
template <>
inline constexpr const char* kindWord<Dimension> = "dimension";
template <>
inline constexpr const char* kindWord<Factor> = "factor";
template <>
inline constexpr const char* kindWord<Unit> = "unit";
template <>
inline constexpr const char* kindWord<Symbol> = "symbol";
template <>
inline constexpr const char* kindWord<Quantity> = "quantity";

/// The stored record named `typeId`, in place: valid as long as the map's owner lives.
/// @throws UnrecognizedIdentifierException  when no record of this kind has that id.
template <class Record>
const Record& lookUp(const RecordMap<Record>& records, const std::string& typeId) {
  const auto found = records.find(typeId);
  if (found == records.end())
    throw UnrecognizedIdentifierException(std::string("Could not find ") + kindWord<Record> +
                                          " with typeid " + typeId + ".");
  return found->second;
}

}  // namespace Units
