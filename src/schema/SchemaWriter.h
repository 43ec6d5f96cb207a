#pragma once

#include "json/JSON.h"
#include "model/RecordContents.h"

#include <string>
#include <vector>

/// The pieces that schema documents are written with. All pieces of a document are made with it as
/// `owner`, and live no longer than it does.
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
JSON makeValueProperty(JSON&, const std::string&, const char*) = delete;  // it would be a bool

/// {"id": id, "value": {parent: exponent, ...}}, parents in type id order.
JSON makePowersProperty(JSON& owner, const std::string& id, const ParentList& powers);

/// {"typeid": typeId}
JSON makeTypedValue(JSON& owner, const std::string& typeId);

/// {"id": id, "typedValue": {"typeid": typeId}}
JSON makeTypedValueProperty(JSON& owner, const std::string& id, const std::string& typeId);

/// Appends the member "constants", the properties in the order given.
void setConstants(JSON& document, std::vector<JSON>&& properties);

/// Refuses a definition with a number that is infinite or none: JSON has no word for it.
/// @throws ValidationException  naming the definition.
void checkWritable(double number, const std::string& typeId);

}  // namespace Units
