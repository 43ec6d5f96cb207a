#pragma once

#include "json/ExceptionFactory.h"
#include "json/JSON.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

/// What all schema documents have in common, whatever kind of definition they hold:
///
///   {"typeid": "f1", "inherits": ["vellamor.unit:factor-1.0.0"],
///    "constants": [{"id": "factor", "value": 0.5}]}
///
namespace Units {

/// Property objects, or their values, by the objects' ids: views into a document.
using Properties = std::map<std::string_view, JSON>;

/// A schema document, with everything read and checked that does not depend on its kind. Movable,
/// not copyable.
struct SchemaHeader {
  std::string typeId;
  std::string baseTypeId;  // the one entry of "inherits"; selects the kind
  Properties constants;    // the value, or the typed value if there is none
  Properties properties;   // the whole property object
  JSON document;           // what the views in both look into
};

/// Reads a schema text up to its first NUL.
/// @throws  what `factory` makes of the message for the first fault.
SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text);

/// Whether a schema instantiates the base of a kind: its base id contains ":" + kindWord + "-1.",
/// whatever stands before, and whatever minor version follows.
bool isOfKind(const SchemaHeader& header, std::string_view kindWord);

}  // namespace Units
