#pragma once

#include "json/ExceptionFactory.h"
#include "json/JSON.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What all schema documents have in common, whatever kind of definition they hold:
///
///   {"typeid": "f1", "inherits": ["vellamor.unit:factor-1.0.0"],
///    "constants": [{"id": "factor", "value": 0.5}]}
///
/// The readers report through the factory that they are given.
namespace Units {

/// Property objects, or their values, by the objects' ids: views into a document.
using Properties = std::map<std::string_view, JSON>;

/// A schema document, read and checked as far as its kind does not matter. Movable, not copyable.
struct SchemaHeader {
  std::string typeId;
  std::string baseTypeId;  // the one entry of "inherits"; selects the kind
  Properties constants;    // the value, or the typed value if there is none
  Properties properties;   // the whole property object
  JSON document;           // what the views in both look into
};

/// Reads a schema text up to its first NUL.
SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text);

/// The strings of an array, none of them empty.
std::vector<std::string> readNonEmptyStringArray(const JSON& value, ExceptionFactory& factory);

/// The property objects of the array that is the document's member `name`, by id; empty when there
/// is no such member.
Properties readPropertyArray(const JSON& document, ExceptionFactory& factory,
                             const std::string& name);

/// The id of a property object, in place; it may be empty.
std::string_view readPropertyId(const JSON& property, ExceptionFactory& factory);

/// What a property object holds: its "value" (null counts), else its "typedValue", not looked into.
JSON resolvePropertyValue(const JSON& property, ExceptionFactory& factory);

/// Whether a schema instantiates the base of a kind: its base id contains ":" + kindWord + "-1.",
/// whatever stands before, and whatever minor version follows.
bool isOfKind(const SchemaHeader& header, std::string_view kindWord);

}  // namespace Units
