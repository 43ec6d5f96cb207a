#include "reporting/Findings.h"

#include <iterator>
#include <stdexcept>
#include <utility>

namespace Schemas {

namespace {

constexpr Severity error = Severity::Error;
constexpr Severity warning = Severity::Warning;

constexpr FindingKind kinds[] = {
    {"json", error, "JSON parsing error at offset ", "", "The text is not valid JSON."},
    {"typeid-missing", error, "Schema must specify a typeid string.",
     "Add the member \"typeid\" with a string.", "There is no type id."},
    {"typeid-empty", error, "The typeid string may not be empty.", "Fill it in.",
     "The type id is empty."},
    {"typeid-taken", error, "Schema with typeid ", "Give one of the two a different type id.",
     "Another definition already has this type id."},
    {"inherits-missing", error, "Schema must specify an inheritance array.",
     "Add the member \"inherits\" with the base id of a kind.", "There is no base id."},
    {"inherits-not-array", error, "Expected an array.", "Put the base id in brackets.",
     "\"inherits\" is not an array."},
    {"inherits-not-string", error, "Expected an array of strings.", "Write the base id in quotes.",
     "The base id is not a string."},
    {"inherits-empty", error, "Expected an array of non-empty strings.", "Fill it in.",
     "The base id is empty."},
    {"inherits-count", error, "Inheritance clause must specify exactly one base schema.",
     "Keep one base id.", "There are no base ids, or more than one."},
    {"base-unknown", error, "Inheritance from an unrecognized base schema.",
     "Write the base id of a kind, such as \"vellamor.unit:unit.derived-1.0.0\".",
     "The base id does not name a kind of definition."},
    {"array-expected", error, "Expected schema ", "Write it in brackets.",
     "\"constants\" or \"properties\" is not an array."},
    {"property-not-object", error, "Expected an object describing a property.",
     "Write {\"id\": \"...\", \"value\": ...}.", "A property is not an object."},
    {"property-without-id", error, "A property definition must have an id attribute.",
     "Add the member \"id\".", "A property has no id."},
    {"property-id-not-string", error, "A property's id attribute must be a string.",
     "Write the id in quotes.", "The id of a property is not a string."},
    {"property-twice", error, "Item ", "Keep one of them.", "Two properties have the same id."},
    {"property-without-value", error,
     "A property definition must contain either a value or a typedValue.",
     "Add the member \"value\", or \"typedValue\" for a reference.", "A constant has no value."},
    {"constant-missing", error, "Schema ", "Add it; check the spelling of its \"id\".",
     "A constant that the kind requires is missing."},
    {"number-expected", error, "Expected a number.", "Write a number, without quotes.",
     "A factor or offset is not a number."},
    {"boolean-expected", error, "Expected a Boolean value.", "Write true or false, without quotes.",
     "\"space\" is neither true nor false."},
    {"string-expected", error, "Expected a string.", "Write it in quotes.",
     "A name, text, system or placement is not a string."},
    {"string-empty", error, "Expected a non-empty string.", "Fill it in.",
     "A name, system or placement is empty."},
    {"map-expected", error, "Expected a map with string keys and integer values.",
     "Write {\"type id\": power}.", "A map of parents is not an object."},
    {"integer-expected", error,
     "Expected a map with string keys and integer values, but value was not an integer.",
     "Write an integer, without a point and without an exponent.", "A power is not an integer."},
    {"zero-exponent", error, "A parent may not be raised to a zero exponent.",
     "Leave the parent out.", "A power is 0."},
    {"no-parent-units", error, "Derived unit ", "Name at least one unit, with its power.",
     "A derived unit has no parent units."},
    {"reference-not-object", error, "A typedValue must be an object.",
     "Write {\"typeid\": \"...\"}.", "A reference is not an object."},
    {"reference-not-string", error,
     "Expected a map with string keys and values, but value was not a string.",
     "Write the type id in quotes.", "A member of a reference is not a string."},
    {"reference-members", error, "A typedValue object may not be empty",
     "Keep the member \"typeid\" only.", "A reference has no members, or more than one."},
    {"reference-without-typeid", error, "A typedValue did not contain a typeid attribute.",
     "Name the member \"typeid\".", "The member of a reference has another name."},
    {"reference-empty", error, "A typeid attribute in a typedValue object may not be empty.",
     "Fill it in.", "The type id of a reference is empty."},
    {"references-expected", error, "Expected an array of typedValue objects.",
     "Write [{\"typeid\": \"...\"}, ...].", "\"units\" is not an array."},
    {"layout-unknown", error, "Symbol ",
     "Put the key of a layout into the type id, such as \":feetAndInches-1\", or give the symbol a "
     "text.",
     "The type id of a composite symbol does not name a layout."},
    {"missing-reference", error, "", "", "A reference names something that is not defined."},
    {"wrong-kind", error, "", "", "A reference names a definition of the wrong kind."},
    {"scale-as-parent", error, "", "Use the relative unit that the scale is based on.",
     "A parent unit is absolute."},
    {"circle", error, "", "Break the circle at one of its references.",
     "Definitions refer to each other in a circle."},
    {"cannot-open", error, "", "Check the permissions of the file.", "A file cannot be opened."},
    {"cannot-read", error, "", "Check the disk.", "A file cannot be read to the end."},
    {"ends-early", error, "", "Load again when no program is writing to the file.",
     "A file became shorter while it was being read."},
    {"cannot-list", error, "", "Check the permissions of the folder.",
     "A folder cannot be listed."},
    {"no-status", error, "", "Remove the entry, or correct the link.",
     "The status of an entry cannot be read."},
    {"engine-refuses", error, "", "",
     "The engine refuses definitions that are valid on their own."},
    {"top-folder", warning, "", "Move it to a subfolder.",
     "A file is directly in the folder, where loaders do not look."},
    {"file-name", warning, "", "End the name in \".json\".",
     "A file is not read because of its name."},
    {"link", warning, "", "Replace the link with its target.", "An entry is a link."},
    {"text-after-nul", warning, "", "Remove the NUL and the text after it.",
     "Text after a NUL is not read."},
    {"duplicate-member", warning, "", "Keep one of them.",
     "An object has two members with the same name."},
    {"unread-constant", warning, "", "", "A constant is never read."},
    {"unread-member", warning, "", "", "A member is never read."},
    {"lenient-word", warning, "", "", "A word is read as another one."},
    {"inexact-number", warning, "", "", "A number is not read as the double nearest to it."},
    {"infinite-number", warning, "", "Write a smaller number.", "A number is read as infinite."},
    {"zero-factor", warning, "", "Write the factor.", "A factor is 0."},
    {"unusable-factor", warning, "", "Check the factors and powers of the parents.",
     "Combined with its parents, a factor is 0, infinite or not a number."},
    {"canceling-powers", warning, "", "Choose parents whose powers do not cancel.",
     "Powers of a primitive unit cancel."},
    {"power-overflow", warning, "", "Lower the powers of the parents.",
     "A power does not fit in 32 bits."},
    {"symbol-unread", warning, "", "Choose another text.",
     "The text of a symbol is not recognized in a formula."},
    {"symbol-start", warning, "",
     "Begin the text with a letter, or with a sign that has no other meaning.",
     "The text of a symbol begins like a number or an operator."},
    {"symbol-space", warning, "", "Remove the space; \"space\" separates text and number.",
     "The text of a symbol begins or ends with a space."},
    {"symbol-hides-function", warning, "", "Choose another text.",
     "The text of a symbol is the name of a function."},
    {"symbol-hides-symbol", warning, "", "Give one of them a different text.",
     "Symbols of two units have the same text."},
    {"symbol-hides-variable", warning, "", "Choose another text, or allow it.",
     "The text of a symbol is a common variable name."},
    {"layout-unit", warning, "", "", "A composite symbol has a different unit than its layout."},
    {"quantity-powers", warning, "", "Leave out the units that measure something else.",
     "The units of a quantity do not all have the same powers."},
    {"unlisted-unit", warning, "", "Add it to the quantity that it measures.",
     "No quantity lists a unit."},
    {"untypable-unit", warning, "", "Add a symbol of ASCII letters.",
     "A unit has no symbol that every keyboard can type."},
    {"unused-allowance", warning, "", "Remove it.", "An allowance silences nothing."},
};

}  // namespace

FindingKinds findingKinds() { return {std::begin(kinds), std::end(kinds)}; }

const FindingKind& kindOfId(std::string_view id) {
  for (const FindingKind& kind : findingKinds())
    if (kind.id == id) return kind;
  throw std::out_of_range("a finding without a kind");
}

const FindingKind& kindOfMessage(std::string_view message) {
  const FindingKind* longest = &kindOfId("engine-refuses");  // one message may begin as another
  for (const FindingKind& kind : findingKinds())
    if (kind.message.size() > longest->message.size() &&
        message.substr(0, kind.message.size()) == kind.message)
      longest = &kind;
  return *longest;
}

FoundFault& Findings::add(std::string_view id, Place place, std::string sentence,
                          std::string advice) {
  const FindingKind& kind = kindOfId(id);
  if (advice.empty()) advice = kind.advice;
  faults.push_back({&kind, place, std::move(sentence), std::move(advice), {}});
  hasErrors = hasErrors || kind.severity == error;
  return faults.back();
}

}  // namespace Schemas
