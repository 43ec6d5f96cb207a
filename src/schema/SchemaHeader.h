#pragma once

#include "json/ExceptionFactory.h"
#include "json/JSON.h"
#include "model/ShortList.h"
#include "schema/Properties.h"
#include "schema/ReadingTrace.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

/// The structure that schema documents of all kinds share:
///
///   {"typeid": "f1", "inherits": ["vellamor.unit:factor-1.0.0"],
///    "constants": [{"id": "factor", "value": 0.5}]}
///
namespace Units {

/// What a base schema's type id has between a colon and "-1.". What precedes this and which minor
/// version follows does not matter.
using KindWords = ShortList<std::string_view, 2>;

/// A schema document. Everything that does not depend on its kind has been read and checked.
/// Movable, not copyable.
struct SchemaHeader {
  JSON document;  // owns all texts and values that are viewed
  std::string_view typeId;
  KindWords kindWords;   // in the only element of "inherits"
  Properties constants;  // the value, or else the typed value
  ReadingTrace* trace;   // may be null; the readers of the kinds also write to it
};

/// Reads a schema text up to its first NUL.
/// @throws  the exception that `factory` creates for the first error.
SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text,
                              ReadingTrace* trace = nullptr);

/// Whether a schema's base is that of a kind.
/// @param kindWord  without colons and hyphens.
inline bool isOfKind(const SchemaHeader& header, std::string_view kindWord) {
  const KindWords& words = header.kindWords;
  return std::find(words.begin(), words.end(), kindWord) != words.end();
}

}  // namespace Units
