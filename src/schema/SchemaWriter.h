#pragma once

#include "json/JSON.h"
#include "model/RecordContents.h"

#include <string>
#include <vector>

/// The parts of schema documents. The `owner` of each part is its document, which must outlive it.
namespace Units {

/// {"typeid": typeId, "inherits": ["vellamor.unit:" + kindWord + "-1.0.0"]}
JSON makeSchemaDocument(const std::string& typeId, const std::string& kindWord);

/// {"id": id}
JSON makeIdProperty(JSON& owner, const std::string& id);

/// {"id": id, "value": value}
JSON makeValueProperty(JSON& owner, const std::string& id, JSON&& value);
JSON makeValueProperty(JSON& owner, const std::string& id, bool value);
JSON makeValueProperty(JSON& owner, const std::string& id, double value);
JSON makeValueProperty(JSON& owner, const std::string& id, const std::string& value);
JSON makeValueProperty(JSON&, const std::string&, const char*) = delete;  // would convert to bool

/// {"id": id, "value": {parent: exponent, ...}}, parents in type id order.
JSON makePowersProperty(JSON& owner, const std::string& id, const ParentList& powers);

/// {"typeid": typeId}
JSON makeTypedValue(JSON& owner, const std::string& typeId);

/// {"id": id, "typedValue": {"typeid": typeId}}
JSON makeTypedValueProperty(JSON& owner, const std::string& id, const std::string& typeId);

/// Appends the member "constants" with the properties in the given order.
void setConstants(JSON& document, std::vector<JSON>&& properties);

/// Rejects an infinite number or NaN, which JSON cannot represent.
/// @throws ValidationException  with the type id in the message.
void checkWritable(double number, const std::string& typeId);

}  // namespace Units
