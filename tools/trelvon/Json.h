#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Writes one JSON text. Hides RapidJSON.
///
/// Numbers have the digits that the commands print; those that JSON does not have are texts. Bytes
/// that are not UTF-8 are shown as \xNN, and all control characters are escaped.
class JsonWriter {
 public:
  JsonWriter();
  ~JsonWriter();
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();
  void key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(double number);
  void value(int number);
  void value(std::size_t number);
  void value(bool truth);
  void value(const std::vector<std::string>& texts);

  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name);
    value(content);
  }

  std::string text() const;

 private:
  struct Writing;
  const std::unique_ptr<Writing> writing_;
};

/// What a schema text says in addition to what an engine keeps of it.
struct SchemaNotes {
  std::string typeId;
  std::optional<std::string> exact;  ///< The exact value in base units, as the source has it.
  int piPower = 0;                   ///< The power of pi that the exact value is multiplied by.
  std::string source;                ///< Documents and note, for people. Empty if there is none.
  std::string bases;                 ///< The base ids, separated by commas.

  /// Each constant by its id, as compact JSON with sorted members.
  std::map<std::string, std::string> constants;
};

/// Reads a schema text. Empty if it is not a JSON object with a type id, or is nested too deeply.
std::optional<SchemaNotes> readSchemaNotes(std::string_view text);

}  // namespace tool
