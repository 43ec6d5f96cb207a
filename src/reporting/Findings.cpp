#include "reporting/Findings.h"

#include <iterator>
#include <stdexcept>
#include <utility>

namespace Schemas {

namespace {

constexpr Severity error = Severity::Error;
constexpr Severity warning = Severity::Warning;

constexpr FindingKind kinds[] = {
    {"json", error, "JSON parsing error at offset ", "", "The text is not JSON."},
    {"typeid-missing", error, "Schema must specify a typeid string.",
     "Add the member \"typeid\" with a string.", "There is no type id."},
    {"typeid-empty", error, "The typeid string may not be empty.", "Fill it in.",
     "The type id is empty."},
    {"typeid-taken", error, "Schema with typeid ", "Give one of the two another type id.",
     "Another definition has the type id."},
    {"inherits-missing", error, "Schema must specify an inheritance array.",
     "Add the member \"inherits\" with the base id of a kind.", "There is no base id."},
    {"inherits-not-array", error, "Expected an array.", "Put the base id in brackets.",
     "\"inherits\" is not an array."},
    {"inherits-not-string", error, "Expected an array of strings.", "Write the base id in quotes.",
     "The base id is not a string."},
    {"inherits-empty", error, "Expected an array of non-empty strings.", "Fill it in.",
     "The base id is empty."},
    {"inherits-count", error, "Inheritance clause must specify exactly one base schema.",
     "Keep one base id.", "There is not exactly one base id."},
    {"base-unknown", error, "Inheritance from an unrecognized base schema.",
     "Write the base id of a kind, such as \"vellamor.unit:unit.derived-1.0.0\".",
     "The base id is that of no kind."},
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
     "The type id of a composite symbol names no layout."},
    {"missing-reference", error, "", "", "A reference names what nothing defines."},
    {"wrong-kind", error, "", "", "A reference names a definition of another kind."},
    {"scale-as-parent", error, "", "Name the relative unit that the scale is based on.",
     "A parent unit is absolute."},
    {"circle", error, "", "Break the circle at one of its references.",
     "Definitions are their own ancestors."},
    {"cannot-open", error, "", "Check the permissions of the file.", "A file cannot be opened."},
    {"cannot-read", error, "", "Check the disk.", "A file cannot be read to its end."},
    {"ends-early", error, "", "Load again when nothing writes the file any more.",
     "A file became shorter while it was read."},
    {"cannot-list", error, "", "Check the permissions of the folder.",
     "A folder cannot be listed."},
    {"no-status", error, "", "Remove the entry, or correct the link.",
     "The system tells no status of an entry."},
    {"engine-refuses", error, "", "", "The engine refuses what is sound by itself."},
    {"top-folder", warning, "", "Move it to a folder below.",
     "A file lies directly in the folder, where loaders do not look."},
    {"file-name", warning, "", "End the name in \".json\".",
     "A file is not read because of its name."},
    {"link", warning, "", "Replace the link by what it leads to.", "An entry is a link."},
    {"text-after-nul", warning, "", "Remove the NUL and what is behind it.",
     "Text behind a NUL is not read."},
    {"duplicate-member", warning, "", "Keep one of them.",
     "An object has two members of one name."},
    {"unread-constant", warning, "", "", "A constant is read by nothing."},
    {"unread-member", warning, "", "", "A member is read by nothing."},
    {"lenient-word", warning, "", "", "A word stands for another one."},
    {"inexact-number", warning, "", "", "A number is read as a neighbor of its double."},
    {"infinite-number", warning, "", "Write a smaller number.", "A number is read as infinite."},
    {"zero-factor", warning, "", "Write the factor.", "A factor is 0."},
    {"unusable-factor", warning, "", "Check the factors and powers of the parents.",
     "A factor is 0, infinite or not a number, with its parents."},
    {"canceling-powers", warning, "", "Choose parents whose powers do not cancel.",
     "Powers of a primitive unit cancel."},
    {"power-overflow", warning, "", "Lower the powers of the parents.",
     "A power does not fit into 32 bits."},
    {"symbol-unread", warning, "", "Choose another text.",
     "The text of a symbol is not recognized in a formula."},
    {"symbol-start", warning, "", "Begin the text with a letter or a sign of its own.",
     "The text of a symbol begins as a number or an operator."},
    {"symbol-space", warning, "", "Remove the space; \"space\" separates text and number.",
     "The text of a symbol begins or ends in a space."},
    {"symbol-hides-function", warning, "", "Choose another text.",
     "The text of a symbol is the name of a function."},
    {"symbol-hides-symbol", warning, "", "Give one of them another text.",
     "Symbols of two units have the same text."},
    {"symbol-hides-variable", warning, "", "Choose another text, or allow it.",
     "The text of a symbol is a usual name of a variable."},
    {"layout-unit", warning, "", "", "A composite symbol is for another unit than its layout."},
    {"quantity-powers", warning, "", "Leave out the units that measure something else.",
     "The units of a quantity do not share their powers."},
    {"unlisted-unit", warning, "", "Add it to the quantity that it measures.",
     "No quantity lists a unit."},
    {"untypable-unit", warning, "", "Add a symbol of ASCII letters.",
     "No symbol of a unit can be typed on any keyboard."},
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
