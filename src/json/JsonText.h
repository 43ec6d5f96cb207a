#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// Writes a JSON text from beginning to end, without a tree of values, which suits large texts.
/// Call the members in the order of the text.
///
///   JsonText json;
///   json.beginObject();
///   json.key("typeid").text("x");
///   json.endObject();
///   json.str();  // {"typeid":"x"}
///
/// Every member may throw std::bad_alloc.
class JsonText {
 public:
  JsonText();
  ~JsonText();

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();

  /// Begins a member of an object. The value follows.
  JsonText& key(const char* name);

  /// @throws std::length_error  the text is longer than `JSON::longestText`.
  void text(std::string_view utf8);
  void number(double finite);
  void whole(std::size_t number);
  void boolean(bool value);

  std::string str() const;

 private:
  struct Writer;
  const std::unique_ptr<Writer> writer_;
};
