#include "schema/SchemaHeader.h"

#include <string>
#include <utility>

namespace Units {

namespace {

using Step = ReadingStep;

/// The first element of the array of non-empty strings that is `value`, and how many there are.
std::pair<std::string_view, std::size_t> readNonEmptyStrings(JsonView value,
                                                             ExceptionFactory& factory,
                                                             std::string_view name,
                                                             ReadingTrace* trace) {
  if (!value.isArray()) raiseError(factory, "Expected an array.");
  std::string_view first;
  for (std::size_t number = 0; number < value.elementCount(); ++number) {
    note(trace, Step::member(name), Step::element(number));
    const JsonView element = value.element(number);
    if (!element.isString()) raiseError(factory, "Expected an array of strings.");
    const std::string_view text = element.getStringView();
    if (text.empty()) raiseError(factory, "Expected an array of non-empty strings.");
    if (number == 0) first = text;
  }
  return {first, value.elementCount()};
}

/// A view of the id of a property object, which may be empty.
std::string_view readPropertyId(JsonView property, ExceptionFactory& factory, ReadingTrace* trace) {
  if (!property.isObject()) raiseError(factory, "Expected an object describing a property.");
  const JsonView id = property.findMember("id");
  if (!id) raiseError(factory, "A property definition must have an id attribute.");
  if (trace) trace->note(trace->depth(), {Step::member("id")});
  if (!id.isString()) raiseError(factory, "A property's id attribute must be a string.");
  return id.getStringView();
}

/// The property objects, by id, in the array that is the document's member `name`. Empty if there
/// is no such member.
Properties readPropertyArray(JsonView document, ExceptionFactory& factory, std::string_view name,
                             ReadingTrace* trace) {
  Properties properties;
  const JsonView array = document.findMember(name);
  if (!array) return properties;
  note(trace, Step::member(name));
  if (!array.isArray())
    raiseError(factory, "Expected schema " + std::string(name) + " to be an array.");
  for (std::size_t number = 0; number < array.elementCount(); ++number) {
    note(trace, Step::member(name), Step::element(number));
    const JsonView property = array.element(number);
    const std::string_view id = readPropertyId(property, factory, trace);
    if (!properties.add(id, property))
      raiseError(factory, "Item " + std::string(id) + " in " + std::string(name) +
                              " array must be defined only once.");
  }
  return properties;
}

/// Replaces each property object by its "value" (null counts), else its "typedValue", unchecked.
void resolveValues(Properties& constants, ExceptionFactory& factory, ReadingTrace* trace) {
  const Properties::Property* unresolved = nullptr;  // the first by id
  for (Properties::Property& constant : constants) {
    JsonView value = constant.value.findMember("value");
    if (!value) value = constant.value.findMember("typedValue");
    if (!value && (!unresolved || constant.id < unresolved->id)) unresolved = &constant;
    constant.value = value;
  }
  if (!unresolved) return;
  note(trace, Step::member("constants"), Step::property(unresolved->id));
  raiseError(factory, "A property definition must contain either a value or a typedValue.");
}

std::string_view readTypeId(JsonView document, ExceptionFactory& factory, ReadingTrace* trace) {
  note(trace, Step::member("typeid"));
  const JsonView typeId = document.findMember("typeid");
  if (!typeId.isString()) raiseError(factory, "Schema must specify a typeid string.");
  if (typeId.getStringView().empty()) raiseError(factory, "The typeid string may not be empty.");
  return typeId.getStringView();
}

std::string_view readBaseTypeId(JsonView document, ExceptionFactory& factory, ReadingTrace* trace) {
  note(trace, Step::member("inherits"));
  const JsonView bases = document.findMember("inherits");
  if (!bases) raiseError(factory, "Schema must specify an inheritance array.");
  const auto [first, count] = readNonEmptyStrings(bases, factory, "inherits", trace);
  note(trace, Step::member("inherits"));
  if (count != 1) raiseError(factory, "Inheritance clause must specify exactly one base schema.");
  return first;
}

KindWords kindWordsOf(std::string_view baseTypeId) {
  constexpr std::string_view version = "-1.";
  KindWords words;
  for (auto colon = baseTypeId.find(':'); colon != baseTypeId.npos; colon = baseTypeId.find(':')) {
    baseTypeId.remove_prefix(colon + 1);
    // Up to the next colon at most, so that no part of the text is searched twice.
    const std::string_view word = baseTypeId.substr(0, baseTypeId.find_first_of("-:"));
    if (baseTypeId.substr(word.size(), version.size()) == version) words.push_back(word);
  }
  return words;
}

}  // namespace

SchemaHeader readSchemaHeader(std::shared_ptr<ExceptionFactory> shared, const std::string& text,
                              ReadingTrace* trace) {
  ExceptionFactory& factory = *shared;
  JSON document = JSON::parse(std::move(shared), text);
  const std::string_view typeId = readTypeId(document, factory, trace);
  const std::string_view baseTypeId = readBaseTypeId(document, factory, trace);
  // All errors in the constants come before any error in the properties.
  Properties constants = readPropertyArray(document, factory, "constants", trace);
  resolveValues(constants, factory, trace);
  readPropertyArray(document, factory, "properties", trace);  // only checked
  return {std::move(document), typeId, kindWordsOf(baseTypeId), std::move(constants), trace};
}

}  // namespace Units
