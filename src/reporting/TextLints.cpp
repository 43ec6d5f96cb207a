#include "reporting/TextLints.h"

#include "reporting/NumberSpelling.h"
#include "reporting/TextPlace.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Schemas {

namespace {

using ValueKind = TextPlaces::Kind;
constexpr std::size_t none = TextPlaces::none;

/// Members of a text that engines deliberately do not read.
constexpr std::string_view notesForPeople[] = {"$schema", "allow", "comment", "note", "source"};

/// A text that one lint looks at.
struct Look {
  std::size_t file;
  std::string_view text;
  const Definition& definition;
  const Units::ReadingTrace& trace;
  const TextPlaces& places;
  Findings& findings;

  void add(std::string_view id, const Extent& extent, std::string sentence,
           std::string advice = {}) const {
    findings.add(id, placeIn(file, extent), std::move(sentence), std::move(advice));
  }

  bool isRead(std::string_view constant) const {
    const auto& read = trace.constants();
    return std::find(read.begin(), read.end(), constant) != read.end();
  }

  std::size_t constant(const char* id) const {
    using Step = Units::ReadingStep::Kind;
    return valueAt(places,
                   {{Step::Member, "constants", 0}, {Step::Property, id, 0}, {Step::Value, "", 0}});
  }

  /// Calls `visit` with each property object in an array of the root.
  template <class Visit>
  void eachProperty(std::string_view array, const Visit& visit) const {
    for (std::size_t property = places.element(places.member(0, array), 0); property != none;
         property = places.value(property).next)
      visit(property);
  }
};

/// Whether the last of several members with one name counts in an object. That is so in maps and
/// references, which are in the value of a constant.
bool lastCounts(const TextPlaces& places, std::size_t constants, std::size_t object) {
  if (constants == none || object < constants) return false;
  if (places.value(object).begin > places.value(constants).end) return false;
  const std::size_t above = places.value(object).parent;
  return above != constants && places.value(above).parent != none;
}

void lintDuplicates(const Look& look) {
  const std::size_t constants = look.places.member(0, "constants");
  std::set<std::string_view> names;
  for (std::size_t object = 0; object < look.places.size(); ++object) {
    if (look.places.value(object).kind != ValueKind::Object) continue;
    names.clear();
    for (std::size_t member = look.places.element(object, 0); member != none;
         member = look.places.value(member).next)
      if (!names.insert(look.places.value(member).name).second)
        look.add("duplicate-member", nameOf(look.places, member),
                 "A second member " + quoted(look.places.value(member).name) +
                     (lastCounts(look.places, constants, object) ? ": the last one counts."
                                                                 : ": the first one counts."));
  }
}

void lintMembers(const Look& look) {
  const auto& read = look.trace.members();
  for (std::size_t member = look.places.element(0, 0); member != none;
       member = look.places.value(member).next) {
    const std::string_view name = look.places.value(member).name;
    if (std::find(read.begin(), read.end(), name) == read.end() &&
        std::find(std::begin(notesForPeople), std::end(notesForPeople), name) ==
            std::end(notesForPeople))
      look.add("unread-member", nameOf(look.places, member),
               "Nothing reads the member " + quoted(name) + ".",
               "Check its name; \"comment\", \"note\" and \"source\" are for people.");
  }
}

/// Constants of an id that the kind does not read, and members of those that it reads.
void lintConstants(const Look& look) {
  look.eachProperty("constants", [&](std::size_t property) {
    const std::size_t id = look.places.member(property, "id");
    std::string_view text = look.places.value(id).text;
    text = text.substr(0, text.find('\0'));
    if (!look.isRead(text))
      return look.add("unread-constant", extentOf(look.places, id),
                      "Nothing reads the constant " + quoted(text) + ".",
                      "Check its id; a kind reads only its own constants.");
    const bool hasValue = look.places.member(property, "value") != none;
    for (std::size_t member = look.places.element(property, 0); member != none;
         member = look.places.value(member).next) {
      const std::string_view name = look.places.value(member).name;
      if (name != "id" && name != (hasValue ? "value" : "typedValue"))
        look.add(
            "unread-member", nameOf(look.places, member),
            "Nothing reads the member " + quoted(name) + " of the constant " + quoted(text) + ".",
            name == "typedValue" ? "Keep \"value\" or \"typedValue\"."
                                 : "Put it into a constant of its own, or remove it.");
    }
  });
  look.eachProperty("properties", [&](std::size_t property) {
    const std::size_t id = look.places.member(property, "id");
    look.add("unread-constant", extentOf(look.places, id),
             "Nothing reads the entries of \"properties\".", "Move it to \"constants\".");
  });
}

void lintWord(const Look& look, const char* constant, std::string_view first,
              std::string_view second) {
  const std::size_t value = look.constant(constant);
  if (!look.isRead(constant) || value == none) return;
  const std::string_view word = look.places.value(value).text;
  if (word != first && word != second)
    look.add("lenient-word", extentOf(look.places, value),
             quoted(word) + " is read as " + quoted(second) + ".",
             "Write " + quoted(first) + " or " + quoted(second) + ".");
}

void lintWords(const Look& look) {
  lintWord(look, "unitSystem", "Metric", "Imperial");
  lintWord(look, "placement", "Prefix", "Suffix");
}

void lintNumbers(const Look& look) {
  for (const char* const constant : {"factor", "offset"}) {
    const std::size_t value = look.constant(constant);
    if (!look.isRead(constant) || value == none) continue;
    const Extent extent = extentOf(look.places, value);
    const std::string written(look.text.substr(extent.begin, extent.end - extent.begin));
    const double read = numberAsRead(written);
    if (!std::isfinite(read))
      look.add("infinite-number", extent, written + " is read as infinite.");
    else if (read != nearestDouble(written))
      look.add(
          "inexact-number", extent,
          written + " is read as " + shortestSpelling(read) + ", which is not the nearest double.",
          spellingAdvice(written));
    else if (read == 0.0 && std::string_view(constant) == "factor")
      look.add("zero-factor", extent, "The factor is 0.");
  }
}

struct TextLint {
  const char* id;  // of its findings, or the first one
  void (*find)(const Look&);
};

constexpr TextLint textLints[] = {
    {"duplicate-member", lintDuplicates}, {"unread-member", lintMembers},
    {"unread-constant", lintConstants},   {"lenient-word", lintWords},
    {"inexact-number", lintNumbers},
};

void readAllowances(const Look& look, std::vector<Allowance>& allowances) {
  const std::size_t list = look.places.member(0, "allow");
  if (list == none) return;
  if (look.places.value(list).kind != ValueKind::Array)
    look.add("unused-allowance", extentOf(look.places, list), "\"allow\" is not an array.",
             "Write [\"...\"] with the ids of lints.");
  for (std::size_t item = look.places.element(list, 0); item != none;
       item = look.places.value(item).next) {
    const Extent extent = extentOf(look.places, item);
    allowances.push_back({std::string(look.places.value(item).text), extent.begin, extent.end});
  }
}

}  // namespace

void lintText(std::size_t file, const Definition& definition, const Units::ReadingTrace& trace,
              Findings& findings) {
  const std::string& text = findings.files[file].text;
  const TextPlaces places(text);
  const Look look{file, text, definition, trace, places, findings};
  for (const TextLint& lint : textLints) lint.find(look);
  readAllowances(look, findings.files[file].allowances);
}

}  // namespace Schemas
