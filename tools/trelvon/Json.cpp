#include "tools/trelvon/Json.h"

#include "tools/trelvon/NumberText.h"
#include "tools/trelvon/ShownText.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cmath>

namespace tool {

struct JsonWriter::Writing {
  Writing() : writer(buffer) {}

  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer;
};

namespace {

rapidjson::SizeType sizeOf(std::string_view text) {
  return static_cast<rapidjson::SizeType>(text.size());
}

std::string_view viewOf(const rapidjson::Value& value) {
  return {value.GetString(), value.GetStringLength()};
}

/// DEL and the control characters beyond ASCII, which RapidJSON writes as they are.
void escapeLateControls(std::string& text) {
  constexpr char digits[] = "0123456789abcdef";
  for (std::size_t place = 0; place < text.size(); ++place) {
    const auto byte = static_cast<unsigned char>(text[place]);
    const auto next = static_cast<unsigned char>(place + 1 < text.size() ? text[place + 1] : '\0');
    const bool isLate = byte == 0xC2 && next >= 0x80 && next < 0xA0;
    if (byte != 0x7F && !isLate) continue;
    const unsigned char code = isLate ? next : byte;
    text.replace(place, isLate ? 2 : 1,
                 {'\\', 'u', '0', '0', digits[code >> 4], digits[code & 15]});
  }
}

}  // namespace

JsonWriter::JsonWriter() : writing_(new Writing) {}
JsonWriter::~JsonWriter() = default;

void JsonWriter::beginObject() { writing_->writer.StartObject(); }
void JsonWriter::endObject() { writing_->writer.EndObject(); }
void JsonWriter::beginArray() { writing_->writer.StartArray(); }
void JsonWriter::endArray() { writing_->writer.EndArray(); }
void JsonWriter::key(std::string_view name) { writing_->writer.Key(name.data(), sizeOf(name)); }

void JsonWriter::value(std::string_view text) {
  const std::string valid = validUtf8(text);
  writing_->writer.String(valid.data(), sizeOf(valid));
}

void JsonWriter::value(double number) {
  const std::string digits = shortestText(number);
  if (std::isfinite(number))
    writing_->writer.RawValue(digits.data(), digits.size(), rapidjson::kNumberType);
  else
    value(digits);
}

void JsonWriter::value(int number) { writing_->writer.Int(number); }
void JsonWriter::value(std::size_t number) { writing_->writer.Uint64(number); }
void JsonWriter::value(bool truth) { writing_->writer.Bool(truth); }

void JsonWriter::value(const std::vector<std::string>& texts) {
  beginArray();
  for (const std::string& text : texts) value(text);
  endArray();
}

std::string JsonWriter::text() const {
  std::string text(writing_->buffer.GetString(), writing_->buffer.GetSize());
  escapeLateControls(text);
  return text;
}

namespace {

using Value = rapidjson::Value;

const Value* memberOf(const Value& object, const char* name) {
  if (!object.IsObject()) return nullptr;
  const auto found = object.FindMember(name);
  return found == object.MemberEnd() ? nullptr : &found->value;
}

std::string stringOf(const Value* value) {
  return value != nullptr && value->IsString() ? std::string(viewOf(*value)) : std::string();
}

/// Compact JSON. The members of a constant's objects are written in byte order: their order in a
/// file says nothing. Deeper ones stay as they are.
std::string compactText(const Value& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  if (!value.IsObject()) {
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
  }
  std::vector<const Value::Member*> members;
  for (const auto& member : value.GetObject()) members.push_back(&member);
  std::sort(members.begin(), members.end(), [](const auto* left, const auto* right) {
    return viewOf(left->name) < viewOf(right->name);
  });
  writer.StartObject();
  for (const auto* const member : members) {
    member->name.Accept(writer);
    member->value.Accept(writer);
  }
  writer.EndObject();
  return {buffer.GetString(), buffer.GetSize()};
}

/// RapidJSON recurses to write a value. No definition comes close to this depth.
constexpr int greatestDepth = 200;

/// The greatest depth of brackets outside of strings.
int depthOf(std::string_view text) {
  int depth = 0, greatest = 0;
  bool isInString = false;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const char c = text[place];
    if (c == '"') isInString = !isInString;
    if (isInString && c == '\\') ++place;
    if (isInString) continue;
    if (c == '[' || c == '{') greatest = std::max(greatest, ++depth);
    if (c == ']' || c == '}') --depth;
  }
  return greatest;
}

std::string sourceText(const Value& source) {
  std::string text;
  const Value* const documents = memberOf(source, "document");
  if (documents != nullptr && documents->IsArray())
    for (const Value& document : documents->GetArray())
      text += (text.empty() ? "" : ", ") + stringOf(&document);
  const std::string note = stringOf(memberOf(source, "note"));
  return note.empty() ? text : text + (text.empty() ? "" : "; ") + note;
}

void readConstants(const Value& constants, std::map<std::string, std::string>& out) {
  for (const Value& constant : constants.GetArray()) {
    const Value* value = memberOf(constant, "value");
    if (value == nullptr) value = memberOf(constant, "typedValue");
    if (value != nullptr) out.emplace(stringOf(memberOf(constant, "id")), compactText(*value));
  }
}

}  // namespace

std::optional<SchemaNotes> readSchemaNotes(std::string_view text) {
  if (depthOf(text) > greatestDepth) return std::nullopt;
  constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag;
  rapidjson::Document document;
  document.Parse<flags>(text.data(), text.size());
  if (document.HasParseError()) return std::nullopt;
  SchemaNotes notes;
  notes.typeId = stringOf(memberOf(document, "typeid"));
  if (notes.typeId.empty()) return std::nullopt;
  if (const Value* const source = memberOf(document, "source")) {
    notes.source = source->IsString() ? stringOf(source) : sourceText(*source);
    if (const Value* const exact = memberOf(*source, "exact")) notes.exact = stringOf(exact);
    const Value* const power = memberOf(*source, "piPower");
    if (power != nullptr && power->IsInt()) notes.piPower = power->GetInt();
  }
  if (const Value* const bases = memberOf(document, "inherits"))
    if (bases->IsArray())
      for (const Value& base : bases->GetArray())
        notes.bases += (notes.bases.empty() ? "" : ",") + stringOf(&base);
  const Value* const constants = memberOf(document, "constants");
  if (constants != nullptr && constants->IsArray()) readConstants(*constants, notes.constants);
  return notes;
}

}  // namespace tool
