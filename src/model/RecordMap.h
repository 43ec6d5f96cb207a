#pragma once

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>

#include <map>
#include <string>

namespace Units {

/// Records of one kind by type id, in byte order.
template <class Record>
using RecordMap = std::map<std::string, Record>;

/// The name of a kind of record in messages.
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

}  // namespace Units
