#pragma once

#include "json/ExceptionFactory.h"
#include "json/JSON.h"
#include "schema/ReadingTrace.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

/// The structure that schema documents of all kinds share:
///
///   {"typeid": "f1", "inherits": ["vellamor.unit:factor-1.0.0"],
///    "constants": [{"id": "factor", "value": 0.5}]}
///
namespace Units {

/// Property objects, or their values, by id. Both are views into a document.
using Properties = std::map<std::string_view, JSON>;

/// A schema document. Everything that does not depend on its kind is read and checked. Movable, not
/// copyable.
struct SchemaHeader {
  std::string typeId;
  std::string baseTypeId;  // the only element of "inherits"; selects the kind
  Properties constants;    // the value, or else the typed value
  Properties properties;   // the whole property object
  JSON document;           // owns the text and values of both
  ReadingTrace* trace;     // may be null; the readers of the kinds note in it, too
};

/// Reads a schema text up to its first NUL.
/// @throws  the exception that `factory` creates for the first error.
SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text,
                              ReadingTrace* trace = nullptr);

/// Whether a schema's base is that of a kind: its type id contains ":" + kindWord + "-1.". What
/// precedes this and which minor version follows does not matter.
bool isOfKind(const SchemaHeader& header, std::string_view kindWord);

}  // namespace Units
