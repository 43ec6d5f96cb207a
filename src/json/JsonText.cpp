#include "json/JsonText.h"

#include "json/JSON.h"
#include "json/RapidJson.h"

#include <stdexcept>

struct JsonText::Writer {
  RapidBuffer buffer;
  RapidWriter json{buffer};
};

JsonText::JsonText() : writer_(std::make_unique<Writer>()) {}
JsonText::~JsonText() = default;

void JsonText::beginObject() { writer_->json.StartObject(); }
void JsonText::endObject() { writer_->json.EndObject(); }
void JsonText::beginArray() { writer_->json.StartArray(); }
void JsonText::endArray() { writer_->json.EndArray(); }

JsonText& JsonText::key(const char* name) {
  text(name);
  return *this;
}

void JsonText::text(std::string_view utf8) {
  if (utf8.size() > JSON::longestText) throw std::length_error("A text is too long for JSON.");
  writer_->json.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

void JsonText::number(double finite) { writer_->json.Double(finite); }
void JsonText::whole(std::size_t number) { writer_->json.Uint64(number); }
void JsonText::boolean(bool value) { writer_->json.Bool(value); }

std::string JsonText::str() const {
  return std::string(writer_->buffer.GetString(), writer_->buffer.GetSize());
}
