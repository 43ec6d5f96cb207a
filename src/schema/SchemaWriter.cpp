#include "schema/SchemaWriter.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <utility>

namespace Units {

JSON makeSchemaDocument(const std::string& typeId, const std::string& kindWord) {
  JSON document = JSON::makeDocument();
  document.setMember(document, "typeid", JSON::makeString(document, typeId));
  std::vector<JSON> bases;
  bases.push_back(JSON::makeString(document, "vellamor.unit:" + kindWord + "-1.0.0"));
  document.setMember(document, "inherits", JSON::makeArray(document, std::move(bases)));
  return document;
}

JSON makeIdProperty(JSON& owner, const std::string& id) {
  JSON property = JSON::makeObject();
  property.setMember(owner, "id", JSON::makeString(owner, id));
  return property;
}

JSON makeValueProperty(JSON& owner, const std::string& id, JSON&& value) {
  JSON property = makeIdProperty(owner, id);
  property.setMember(owner, "value", std::move(value));
  return property;
}

JSON makeValueProperty(JSON& owner, const std::string& id, bool value) {
  return makeValueProperty(owner, id, JSON(value));
}

JSON makeValueProperty(JSON& owner, const std::string& id, double value) {
  return makeValueProperty(owner, id, JSON(value));
}

JSON makeValueProperty(JSON& owner, const std::string& id, const std::string& value) {
  return makeValueProperty(owner, id, JSON::makeString(owner, value));
}

JSON makePowersProperty(JSON& owner, const std::string& id, const ParentList& powers) {
  JSON object = JSON::makeObject();
  for (const auto& [parent, exponent] : powers) object.setMember(owner, parent, JSON(exponent));
  return makeValueProperty(owner, id, std::move(object));
}

JSON makeTypedValue(JSON& owner, const std::string& typeId) {
  JSON typedValue = JSON::makeObject();
  typedValue.setMember(owner, "typeid", JSON::makeString(owner, typeId));
  return typedValue;
}

JSON makeTypedValueProperty(JSON& owner, const std::string& id, const std::string& typeId) {
  JSON property = makeIdProperty(owner, id);
  property.setMember(owner, "typedValue", makeTypedValue(owner, typeId));
  return property;
}

void setConstants(JSON& document, std::vector<JSON>&& properties) {
  document.setMember(document, "constants", JSON::makeArray(document, std::move(properties)));
}

void checkWritable(double number, const std::string& typeId) {
  if (!std::isfinite(number))
    throw ValidationException("Definition " + typeId + " has a number that JSON cannot hold.");
}

}  // namespace Units
