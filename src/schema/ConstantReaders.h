#pragma once

#include "schema/SchemaData.h"
#include "schema/SchemaHeader.h"

#include <TrelvonUnits/Exceptions.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Read the constants of a kind from a schema header. All errors are ValidationExceptions.
namespace Units {

/// Notes that the value of a constant is read.
inline void noteConstant(const SchemaHeader& header, std::string_view id) {
  note(header.trace, ReadingStep::member("constants"), ReadingStep::property(id),
       ReadingStep::value());
}

/// Reads a constant with a handler. Constants that are never read are ignored.
///
/// @param fallback  the default; empty if the schema must define the constant.
/// @param handler   checks and converts the JSON value; one of the functions below.
template <class T>
T readConstant(const SchemaHeader& header, std::string_view id, std::optional<T> fallback,
               T (*handler)(JsonView, ReadingTrace*)) {
  if (const Properties::Property* const constant = header.constants.find(id)) {
    noteConstant(header, id);
    return handler(constant->value, header.trace);
  }
  note(header.trace, ReadingStep::member("constants"));
  if (!fallback)
    throw ValidationException("Schema " + std::string(header.typeId) + " has an undefined " +
                              std::string(id) + " constant.");
  return *std::move(fallback);
}

/// The handlers. `trace` may be null; otherwise, the value to read is the one noted last.
double readNumber(JsonView value, ReadingTrace* trace = nullptr);
bool readBoolean(JsonView value, ReadingTrace* trace = nullptr);
std::string_view readString(JsonView value, ReadingTrace* trace = nullptr);  ///< May be empty.
std::string_view readNonEmptyString(JsonView value, ReadingTrace* trace = nullptr);

ParentViews readIntegerMap(JsonView value, ReadingTrace* trace = nullptr);

/// The type id in an object {"typeid": "..."} that has no other member.
std::string_view readTypedValue(JsonView value, ReadingTrace* trace = nullptr);

/// The type ids in an array of such objects, in order, with duplicates.
std::vector<std::string_view> readTypedValueArray(JsonView value, ReadingTrace* trace = nullptr);

/// Checks the exponents of a list of parents that has been read from a constant: none is 0.
void checkParents(const SchemaHeader& header, std::string_view id, const ParentViews& parents);

}  // namespace Units
