#include "schema/ConstantReaders.h"

#include "registry/RecordChecks.h"

namespace Units {

namespace {

std::size_t* memberOf(ReadingTrace* trace) { return trace ? &trace->member : nullptr; }

void endMembers(ReadingTrace* trace) {
  if (trace) trace->member = ReadingTrace::noMember;
}

}  // namespace

double readNumber(JsonView value, ReadingTrace*) {
  if (!value.isNumber()) throw ValidationException("Expected a number.");
  return value.getNumber();
}

bool readBoolean(JsonView value, ReadingTrace*) {
  if (!value.isBool()) throw ValidationException("Expected a Boolean value.");
  return value.getBool();
}

std::string_view readString(JsonView value, ReadingTrace*) {
  if (!value.isString()) throw ValidationException("Expected a string.");
  return value.getStringView();
}

std::string_view readNonEmptyString(JsonView value, ReadingTrace*) {
  const std::string_view text = readString(value);
  if (text.empty()) throw ValidationException("Expected a non-empty string.");
  return text;
}

ParentViews readIntegerMap(JsonView value, ReadingTrace* trace) {
  if (!value.isObject())
    throw ValidationException("Expected a map with string keys and integer values.");
  auto map = value.getIntegers(memberOf(trace));
  endMembers(trace);
  return map;
}

std::string_view readTypedValue(JsonView value, ReadingTrace* trace) {
  if (!value.isObject()) throw ValidationException("A typedValue must be an object.");
  const auto only = value.getOnlyString(memberOf(trace));
  endMembers(trace);
  if (!only)
    throw ValidationException(
        "A typedValue object may not be empty and must contain a typeid attribute only.");
  const auto& [name, typeId] = *only;
  if (name != "typeid")
    throw ValidationException("A typedValue did not contain a typeid attribute.");
  if (typeId.empty())
    throw ValidationException("A typeid attribute in a typedValue object may not be empty.");
  return typeId;
}

std::vector<std::string_view> readTypedValueArray(JsonView value, ReadingTrace* trace) {
  if (!value.isArray()) throw ValidationException("Expected an array of typedValue objects.");
  std::vector<std::string_view> typeIds;
  typeIds.reserve(value.elementCount());
  const std::size_t depth = trace ? trace->depth() : 0;
  for (std::size_t number = 0; number < value.elementCount(); ++number) {
    if (trace) trace->note(depth, {ReadingStep::element(number)});
    typeIds.push_back(readTypedValue(value.element(number), trace));
  }
  return typeIds;
}

void checkParents(const SchemaHeader& header, std::string_view id, const ParentViews& parents) {
  if (header.trace) {
    std::string_view parent;
    for (auto next = parents.begin(); next != parents.end() && parent.empty(); ++next)
      if (next->second == 0) parent = next->first;
    note(header.trace, ReadingStep::member("constants"), ReadingStep::property(id),
         ReadingStep::value(), ReadingStep::lastMember(parent));
  }
  checkExponents(parents);
}

}  // namespace Units
