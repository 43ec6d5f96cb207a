#include "schema/SchemaHeader.h"

#include <utility>
#include <vector>

namespace Units {

namespace {

/// The elements of an array of non-empty strings.
std::vector<std::string> readNonEmptyStringArray(const JSON& value, ExceptionFactory& factory) {
  if (!value.isArray()) raiseError(factory, "Expected an array.");
  std::vector<std::string> texts;
  for (const JSON& element : value.getArray()) {
    if (!element.isString()) raiseError(factory, "Expected an array of strings.");
    texts.push_back(element.getString());
    if (texts.back().empty()) raiseError(factory, "Expected an array of non-empty strings.");
  }
  return texts;
}

/// A view of the id of a property object, which may be empty.
std::string_view readPropertyId(const JSON& property, ExceptionFactory& factory) {
  if (!property.isObject()) raiseError(factory, "Expected an object describing a property.");
  if (!property.hasMember("id"))
    raiseError(factory, "A property definition must have an id attribute.");
  const JSON id = property.getMember("id");
  if (!id.isString()) raiseError(factory, "A property's id attribute must be a string.");
  return id.getStringView();
}

/// The property objects, by id, in the array that is the document's member `name`. Empty if there
/// is no such member.
Properties readPropertyArray(const JSON& document, ExceptionFactory& factory,
                             const std::string& name) {
  Properties properties;
  if (!document.hasMember(name)) return properties;
  const JSON array = document.getMember(name);
  if (!array.isArray()) raiseError(factory, "Expected schema " + name + " to be an array.");
  for (JSON& property : array.getArray()) {
    const std::string_view id = readPropertyId(property, factory);
    if (!properties.try_emplace(id, std::move(property)).second)
      raiseError(factory,
                 "Item " + std::string(id) + " in " + name + " array must be defined only once.");
  }
  return properties;
}

/// The "value" of a property object (null counts), else its "typedValue", unchecked.
JSON resolvePropertyValue(const JSON& property, ExceptionFactory& factory) {
  if (property.hasMember("value")) return property.getMember("value");
  if (!property.hasMember("typedValue"))
    raiseError(factory, "A property definition must contain either a value or a typedValue.");
  return property.getMember("typedValue");
}

std::string readTypeId(const JSON& document, ExceptionFactory& factory) {
  const JSON typeId = document.getMember("typeid");
  if (!typeId.isString()) raiseError(factory, "Schema must specify a typeid string.");
  std::string text = typeId.getString();
  if (text.empty()) raiseError(factory, "The typeid string may not be empty.");
  return text;
}

std::string readBaseTypeId(const JSON& document, ExceptionFactory& factory) {
  if (!document.hasMember("inherits"))
    raiseError(factory, "Schema must specify an inheritance array.");
  std::vector<std::string> bases = readNonEmptyStringArray(document.getMember("inherits"), factory);
  if (bases.size() != 1)
    raiseError(factory, "Inheritance clause must specify exactly one base schema.");
  return std::move(bases.front());
}

}  // namespace

SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text) {
  JSON document = JSON::parse(factory, text);
  std::string typeId = readTypeId(document, *factory);
  std::string baseTypeId = readBaseTypeId(document, *factory);
  // All errors in the constants come before any error in the properties.
  Properties constants = readPropertyArray(document, *factory, "constants");
  for (auto& [id, constant] : constants) constant = resolvePropertyValue(constant, *factory);
  Properties properties = readPropertyArray(document, *factory, "properties");
  return {std::move(typeId), std::move(baseTypeId), std::move(constants), std::move(properties),
          std::move(document)};
}

bool isOfKind(const SchemaHeader& header, std::string_view kindWord) {
  constexpr std::string_view version = "-1.";
  const std::string_view base = header.baseTypeId;
  for (auto word = base.find(kindWord); word != base.npos; word = base.find(kindWord, word + 1))
    if (word > 0 && base[word - 1] == ':' &&
        base.substr(word + kindWord.size(), version.size()) == version)
      return true;
  return false;
}

}  // namespace Units
