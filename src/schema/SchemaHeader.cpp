#include "schema/SchemaHeader.h"

#include <utility>
#include <vector>

namespace Units {

namespace {

using Step = ReadingStep;

/// The elements of the array of non-empty strings that is the document's member `name`.
std::vector<std::string> readNonEmptyStringArray(const JSON& document, ExceptionFactory& factory,
                                                 const std::string& name, ReadingTrace* trace) {
  const JSON value = document.getMember(name);
  if (!value.isArray()) raiseError(factory, "Expected an array.");
  std::vector<std::string> texts;
  for (const JSON& element : value.getArray()) {
    note(trace, Step::member(name), Step::element(texts.size()));
    if (!element.isString()) raiseError(factory, "Expected an array of strings.");
    texts.push_back(element.getString());
    if (texts.back().empty()) raiseError(factory, "Expected an array of non-empty strings.");
  }
  return texts;
}

/// A view of the id of a property object, which may be empty.
std::string_view readPropertyId(const JSON& property, ExceptionFactory& factory,
                                ReadingTrace* trace) {
  if (!property.isObject()) raiseError(factory, "Expected an object describing a property.");
  if (!property.hasMember("id"))
    raiseError(factory, "A property definition must have an id attribute.");
  if (trace) trace->note(trace->depth(), {Step::member("id")});
  const JSON id = property.getMember("id");
  if (!id.isString()) raiseError(factory, "A property's id attribute must be a string.");
  return id.getStringView();
}

/// The property objects, by id, in the array that is the document's member `name`. Empty if there
/// is no such member.
Properties readPropertyArray(const JSON& document, ExceptionFactory& factory,
                             const std::string& name, ReadingTrace* trace) {
  Properties properties;
  if (!document.hasMember(name)) return properties;
  note(trace, Step::member(name));
  const JSON array = document.getMember(name);
  if (!array.isArray()) raiseError(factory, "Expected schema " + name + " to be an array.");
  std::size_t number = 0;
  for (JSON& property : array.getArray()) {
    note(trace, Step::member(name), Step::element(number++));
    const std::string_view id = readPropertyId(property, factory, trace);
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

std::string readTypeId(const JSON& document, ExceptionFactory& factory, ReadingTrace* trace) {
  note(trace, Step::member("typeid"));
  const JSON typeId = document.getMember("typeid");
  if (!typeId.isString()) raiseError(factory, "Schema must specify a typeid string.");
  std::string text = typeId.getString();
  if (text.empty()) raiseError(factory, "The typeid string may not be empty.");
  return text;
}

std::string readBaseTypeId(const JSON& document, ExceptionFactory& factory, ReadingTrace* trace) {
  note(trace, Step::member("inherits"));
  if (!document.hasMember("inherits"))
    raiseError(factory, "Schema must specify an inheritance array.");
  std::vector<std::string> bases = readNonEmptyStringArray(document, factory, "inherits", trace);
  note(trace, Step::member("inherits"));
  if (bases.size() != 1)
    raiseError(factory, "Inheritance clause must specify exactly one base schema.");
  return std::move(bases.front());
}

}  // namespace

SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> factory, const std::string& text,
                              ReadingTrace* trace) {
  JSON document = JSON::parse(factory, text);
  std::string typeId = readTypeId(document, *factory, trace);
  std::string baseTypeId = readBaseTypeId(document, *factory, trace);
  // All errors in the constants come before any error in the properties.
  Properties constants = readPropertyArray(document, *factory, "constants", trace);
  for (auto& [id, constant] : constants) {
    note(trace, Step::member("constants"), Step::property(id));
    constant = resolvePropertyValue(constant, *factory);
  }
  Properties properties = readPropertyArray(document, *factory, "properties", trace);
  return {std::move(typeId),     std::move(baseTypeId), std::move(constants),
          std::move(properties), std::move(document),   trace};
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
