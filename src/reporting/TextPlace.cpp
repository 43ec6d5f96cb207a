#include "reporting/TextPlace.h"

#include "model/CodePoints.h"

#include <algorithm>
#include <utility>

namespace Schemas {

namespace {

using Kind = Units::ReadingStep::Kind;

/// The property object with an id, in an array of them. Its id ends at a NUL, as readers read it.
std::size_t propertyOf(const TextPlaces& places, std::size_t array, std::string_view id) {
  std::size_t property = places.element(array, 0);
  for (; property != TextPlaces::none; property = places.value(property).next) {
    const std::size_t named = places.member(property, "id");
    if (named == TextPlaces::none) continue;
    const std::string_view text = places.value(named).text;
    if (text.substr(0, text.find('\0')) == id) break;
  }
  return property;
}

std::size_t follow(const TextPlaces& places, std::size_t value,
                   const Units::ReadingTrace::Step& step) {
  switch (step.kind) {
    case Kind::Member:
      return places.member(value, step.name);
    case Kind::LastMember:
      return places.lastMember(value, step.name);
    case Kind::Element:
      return places.element(value, step.number);
    case Kind::Property:
      return propertyOf(places, value, step.name);
    case Kind::Value:
      break;
  }
  const std::size_t plain = places.member(value, "value");
  return plain != TextPlaces::none ? plain : places.member(value, "typedValue");
}

/// The last value on a path that exists, and whether it is the end of the path.
std::pair<std::size_t, bool> walk(const TextPlaces& places, const Units::ReadingTrace::Path& path) {
  std::size_t value = places.size() == 0 ? TextPlaces::none : 0;
  for (const auto& step : path) {
    if (value == TextPlaces::none) break;
    const std::size_t next = follow(places, value, step);
    if (next == TextPlaces::none) return {value, false};
    value = next;
  }
  return {value, value != TextPlaces::none};
}

}  // namespace

std::size_t valueAt(const TextPlaces& places, const Units::ReadingTrace::Path& path) {
  const auto [value, isThere] = walk(places, path);
  return isThere ? value : TextPlaces::none;
}

Extent extentAt(const TextPlaces& places, const Units::ReadingTrace::Path& path) {
  return extentOf(places, walk(places, path).first);
}

Extent extentOf(const TextPlaces& places, std::size_t value) {
  if (value == TextPlaces::none) return {0, 0};
  const TextPlaces::Value& found = places.value(value);
  const bool isBracketed =
      found.kind == TextPlaces::Kind::Object || found.kind == TextPlaces::Kind::Array;
  return {found.begin, isBracketed ? found.begin + 1 : found.end};
}

Extent nameOf(const TextPlaces& places, std::size_t member) {
  const TextPlaces::Value& found = places.value(member);
  return {found.nameBegin, found.nameEnd};
}

Extent extentOfConstant(std::string_view text, const char* id) {
  return extentAt(TextPlaces(text),
                  {{Kind::Member, "constants", 0}, {Kind::Property, id, 0}, {Kind::Value, "", 0}});
}

Extent extentOfTypeId(std::string_view text) {
  return extentAt(TextPlaces(text), {{Kind::Member, "typeid", 0}});
}

Extent pointAt(std::string_view text, std::size_t offset) {
  if (offset >= text.size()) return {text.size(), text.size()};
  return {offset, offset + Units::firstCodePoint(text.substr(offset)).bytes};
}

TextPositions::TextPositions(std::string_view text, std::vector<std::size_t> offsets)
    : offsets_(std::move(offsets)) {
  std::sort(offsets_.begin(), offsets_.end());
  offsets_.erase(std::unique(offsets_.begin(), offsets_.end()), offsets_.end());
  positions_.reserve(offsets_.size());
  TextPosition here;
  for (const std::size_t offset : offsets_) {
    while (here.offset < std::min(offset, text.size())) {
      const std::size_t bytes = Units::firstCodePoint(text.substr(here.offset)).bytes;
      const bool endsLine = text[here.offset] == '\n';
      here = {here.offset + bytes, here.line + (endsLine ? 1 : 0),
              endsLine ? 1 : here.column + bytes, endsLine ? 1 : here.columnPoint + 1};
    }
    positions_.push_back(here);
  }
}

const TextPosition& TextPositions::at(std::size_t offset) const {
  const auto found = std::lower_bound(offsets_.begin(), offsets_.end(), offset);
  return positions_[static_cast<std::size_t>(found - offsets_.begin())];
}

}  // namespace Schemas
