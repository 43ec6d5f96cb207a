#pragma once

#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Read the constants of a kind from a schema header. All errors are ValidationExceptions.
namespace Units {

/// Reads a constant with a handler. Constants that are never read are ignored.
///
/// @param fallback  the default; empty if the schema must define the constant.
/// @param handler   checks and converts the JSON value; one of the functions below.
template <class T>
T readConstant(const SchemaHeader& header, std::string_view id, std::optional<T> fallback,
               T (*handler)(const JSON&)) {
  const auto constant = header.constants.find(id);
  if (constant != header.constants.end()) return handler(constant->second);
  if (!fallback)
    throw ValidationException("Schema " + header.typeId + " has an undefined " + std::string(id) +
                              " constant.");
  return *std::move(fallback);
}

double readNumber(const JSON& value);
bool readBoolean(const JSON& value);
std::string readString(const JSON& value);  ///< May be empty.
std::string readNonEmptyString(const JSON& value);
std::map<std::string, int> readIntegerMap(const JSON& value);

/// The type id in an object {"typeid": "..."} that has no other member.
std::string readTypedValue(const JSON& value);

/// The type ids in an array of such objects, in order, with duplicates.
std::vector<std::string> readTypedValueArray(const JSON& value);

}  // namespace Units
