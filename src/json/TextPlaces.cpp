#include "json/TextPlaces.h"

#include "json/JSON.h"
#include "json/ParseInPlace.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <cstdint>

/// Takes the parse's events. An event tells only where its value ends. Between that value and the
/// previous event there are only separators.
struct TextPlaces::Walk {
  Walk(TextPlaces& out, std::string_view undecoded) : places(out), original(undecoded) {}

  TextPlaces& places;
  const std::string_view original;
  TextStream* source = nullptr;

  std::size_t behind = 0;  // what the last event was about
  std::size_t parent = none;
  std::vector<std::size_t> lastOf;  // of each open object and array: its last child
  std::string_view name;
  std::size_t nameBegin = none;
  std::size_t nameEnd = none;

  std::size_t nextBegin() const {
    return std::min(original.find_first_not_of(" ,:\t\r\n", behind), original.size());
  }

  /// A value that the parse has just passed, or whose opening bracket it is at.
  std::size_t add(Kind kind, std::string_view text = {}) {
    const std::size_t begin = nextBegin();
    const std::size_t number = places.values_.size();
    behind = source->Tell();
    if (nameBegin == none) nameBegin = nameEnd = begin;
    places.values_.push_back(
        {kind, begin, behind, nameBegin, nameEnd, text, name, parent, none, none});
    if (parent != none) {
      std::size_t& last = lastOf.back();
      (last == none ? places.values_[parent].first : places.values_[last].next) = number;
      last = number;
    }
    name = {};
    nameBegin = none;
    return number;
  }

  bool open(Kind kind) {
    parent = add(kind);
    ++behind;  // the bracket
    lastOf.push_back(none);
    return true;
  }

  bool close() {
    behind = source->Tell() + 1;
    places.values_[parent].end = behind;
    parent = places.values_[parent].parent;
    lastOf.pop_back();
    return true;
  }

  bool Null() { return add(Kind::Null), true; }
  bool Bool(bool) { return add(Kind::Boolean), true; }
  bool Int(int) { return add(Kind::Number), true; }
  bool Uint(unsigned) { return add(Kind::Number), true; }
  bool Int64(std::int64_t) { return add(Kind::Number), true; }
  bool Uint64(std::uint64_t) { return add(Kind::Number), true; }
  bool Double(double) { return add(Kind::Number), true; }
  bool RawNumber(const char*, rapidjson::SizeType, bool) { return add(Kind::Number), true; }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    return add(Kind::String, {text, length}), true;
  }
  bool StartObject() { return open(Kind::Object); }
  bool StartArray() { return open(Kind::Array); }
  bool EndObject(rapidjson::SizeType) { return close(); }
  bool EndArray(rapidjson::SizeType) { return close(); }
  bool Key(const char* text, rapidjson::SizeType length, bool) {
    nameBegin = nextBegin();
    name = {text, length};
    nameEnd = behind = source->Tell();
    return true;
  }
};

TextPlaces::TextPlaces(std::string_view text) {
  const std::string_view read = text.substr(0, text.find('\0'));
  if (read.size() > JSON::longestText) {
    fault_ = Fault{JSON::longestText, "The text is too long."};
    return;
  }
  text_ = read;
  Walk walk(*this, read);
  const rapidjson::ParseResult result = walkInPlace(text_, walk);
  for (std::size_t open = walk.parent; open != none; open = values_[open].parent)
    values_[open].end = result.Offset();
  if (result.IsError()) fault_ = Fault{result.Offset(), rapidjson::GetParseError_En(result.Code())};
}

std::size_t TextPlaces::member(std::size_t object, std::string_view name) const {
  if (object >= size() || values_[object].kind != Kind::Object) return none;
  std::size_t child = values_[object].first;
  while (child != none && values_[child].name != name) child = values_[child].next;
  return child;
}

std::size_t TextPlaces::lastMember(std::size_t object, std::string_view name) const {
  std::size_t found = none;
  if (object < size() && values_[object].kind == Kind::Object)
    for (std::size_t child = values_[object].first; child != none; child = values_[child].next)
      if (values_[child].name == name) found = child;
  return found;
}

std::size_t TextPlaces::element(std::size_t parent, std::size_t index) const {
  std::size_t child = parent < size() ? values_[parent].first : none;
  while (child != none && index-- > 0) child = values_[child].next;
  return child;
}
