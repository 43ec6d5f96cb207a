#include "schema/ConstantReaders.h"

namespace Units {

double readNumber(const JSON& value) {
  if (!value.isNumber()) throw ValidationException("Expected a number.");
  return value.getNumber();
}

bool readBoolean(const JSON& value) {
  if (!value.isBool()) throw ValidationException("Expected a Boolean value.");
  return value.getBool();
}

std::string readString(const JSON& value) {
  if (!value.isString()) throw ValidationException("Expected a string.");
  return value.getString();
}

std::string readNonEmptyString(const JSON& value) {
  std::string text = readString(value);
  if (text.empty()) throw ValidationException("Expected a non-empty string.");
  return text;
}

std::map<std::string, int> readIntegerMap(const JSON& value) {
  if (!value.isObject())
    throw ValidationException("Expected a map with string keys and integer values.");
  return value.getStringIntMap();
}

std::string readTypedValue(const JSON& value) {
  if (!value.isObject()) throw ValidationException("A typedValue must be an object.");
  const std::map<std::string, std::string> members = value.getStringStringMap();
  if (members.size() != 1)
    throw ValidationException(
        "A typedValue object may not be empty and must contain a typeid attribute only.");
  const auto& [name, typeId] = *members.begin();
  if (name != "typeid")
    throw ValidationException("A typedValue did not contain a typeid attribute.");
  if (typeId.empty())
    throw ValidationException("A typeid attribute in a typedValue object may not be empty.");
  return typeId;
}

std::vector<std::string> readTypedValueArray(const JSON& value) {
  if (!value.isArray()) throw ValidationException("Expected an array of typedValue objects.");
  std::vector<std::string> typeIds;
  for (const JSON& element : value.getArray()) typeIds.push_back(readTypedValue(element));
  return typeIds;
}

}  // namespace Units
