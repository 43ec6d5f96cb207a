#include "json/JSON.h"

#include "json/ParseInPlace.h"
#include "json/RapidJson.h"

#include <rapidjson/error/en.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace {

// So that a usual schema takes one allocation, of a size that allocators have at hand, for the
// document and its pool.
constexpr std::size_t firstPoolBytes = 768;    // tuning
constexpr std::size_t firstStackBytes = 1024;  // tuning

}  // namespace

/// A root, and the memory of everything below it.
struct JSON::Document {
  std::shared_ptr<ExceptionFactory> exceptionFactory;  // null in a document that is being built
  std::string text;                                    // the strings of the document point into it
  alignas(std::max_align_t) std::array<char, firstPoolBytes> firstOfPool;
  RapidPool pool{firstOfPool.data(), firstOfPool.size()};
  RapidDocument root{&pool, firstStackBytes};
};

namespace {

std::string_view textOf(const RapidValue& string) {
  return {string.GetString(), string.GetStringLength()};
}

/// The first member that `key` names, or null; null too if the value is not an object, such as the
/// root of a text that is an array.
RapidValue* findMember(RapidValue& value, std::string_view key) {
  if (!value.IsObject()) return nullptr;
  for (auto& member : value.GetObject())
    if (textOf(member.name) == key) return &member.value;
  return nullptr;
}

/// A string in the owner's memory.
RapidValue copyText(const std::string& text, RapidPool& owner) {
  if (text.size() > JSON::longestText) throw std::length_error("A text is too long for JSON.");
  const auto length = static_cast<rapidjson::SizeType>(text.size());
  return RapidValue(text.data(), length, owner);
}

}  // namespace

void raiseError(ExceptionFactory& factory, const std::string& message) {
  std::rethrow_exception(factory.createException(message));
}

JSON::JSON(std::unique_ptr<Document> document) noexcept
    : document_(std::move(document)),
      value_(&document_->root),
      errors_(document_->exceptionFactory.get()) {}

JSON::JSON(std::unique_ptr<RapidValue> value) noexcept
    : own_(std::move(value)), value_(own_.get()) {}

JSON::JSON(RapidValue& viewed, ExceptionFactory* errors) noexcept
    : value_(&viewed), errors_(errors) {}

JSON::JSON(bool value) : JSON(std::make_unique<RapidValue>(value)) {}
JSON::JSON(double value) : JSON(std::make_unique<RapidValue>(value)) {}
JSON::JSON(int value) : JSON(std::make_unique<RapidValue>(value)) {}

JSON::JSON(JSON&& other) noexcept = default;
JSON& JSON::operator=(JSON&& other) noexcept = default;
JSON::~JSON() = default;

JSON JSON::parse(std::shared_ptr<ExceptionFactory> factory, const std::string& text) {
  auto document = std::make_unique<Document>();
  document->exceptionFactory = std::move(factory);
  ExceptionFactory& errors = *document->exceptionFactory;
  const auto refuse = [&errors](std::size_t offset, const char* reason) {
    raiseError(errors, "JSON parsing error at offset " + std::to_string(offset) + ": " + reason);
  };

  const std::string_view read(text.c_str());
  if (read.size() > longestText) refuse(longestText, "The text is too long.");
  document->text = read;
  const rapidjson::ParseResult result = parseInPlace(document->root, document->text);
  if (result.IsError()) refuse(result.Offset(), rapidjson::GetParseError_En(result.Code()));
  return JSON(std::move(document));
}

JSON JSON::makeDocument() {
  auto document = std::make_unique<Document>();
  document->root.SetObject();
  return JSON(std::move(document));
}

JSON JSON::makeObject() { return JSON(std::make_unique<RapidValue>(rapidjson::kObjectType)); }

JSON JSON::makeString(JSON& owner, const std::string& text) {
  return JSON(std::make_unique<RapidValue>(copyText(text, owner.document_->pool)));
}

JSON JSON::makeArray(JSON& owner, std::vector<JSON>&& items) {
  auto array = std::make_unique<RapidValue>(rapidjson::kArrayType);
  RapidPool& pool = owner.document_->pool;
  array->Reserve(static_cast<rapidjson::SizeType>(items.size()), pool);
  for (JSON& item : items) array->PushBack(*item.value_, pool);
  return JSON(std::move(array));
}

bool JSON::hasMember(std::string_view key) const { return findMember(*value_, key) != nullptr; }

JSON JSON::getMember(std::string_view key) const {
  static RapidValue none;  // nothing is written through a view
  RapidValue* const member = findMember(*value_, key);
  return JSON(member ? *member : none, errors_);
}

bool JSON::isObject() const { return value_->IsObject(); }
bool JSON::isArray() const { return value_->IsArray(); }
bool JSON::isString() const { return value_->IsString(); }
bool JSON::isNumber() const { return value_->IsNumber(); }
bool JSON::isBool() const { return value_->IsBool(); }

std::string JSON::getString() const { return std::string(getStringView()); }

std::string_view JSON::getStringView() const { return value_->GetString(); }

double JSON::getNumber() const { return value_->GetDouble(); }

bool JSON::getBool() const { return value_->IsTrue(); }

std::vector<JSON> JSON::getArray() const {
  const auto elements = value_->GetArray();
  std::vector<JSON> views;
  views.reserve(elements.Size());
  for (RapidValue& element : elements) views.push_back(JSON(element, errors_));
  return views;
}

std::map<std::string, int> JSON::getStringIntMap(std::size_t* reading) const {
  std::map<std::string, int> map;
  if (!isObject()) return map;
  std::size_t number = 0;
  for (const auto& member : value_->GetObject()) {
    if (reading) *reading = number++;
    if (!member.name.IsString())
      raiseError(*errors_,
                 "Expected a map with string keys and integer values, but key was not a string.");
    if (!member.value.IsInt())
      raiseError(*errors_,
                 "Expected a map with string keys and integer values, but value was not an "
                 "integer.");
    map.insert_or_assign(std::string(textOf(member.name)), member.value.GetInt());
  }
  return map;
}

std::map<std::string, std::string> JSON::getStringStringMap(std::size_t* reading) const {
  std::map<std::string, std::string> map;
  if (!isObject()) return map;
  std::size_t number = 0;
  for (const auto& member : value_->GetObject()) {
    if (reading) *reading = number++;
    if (!member.name.IsString())
      raiseError(*errors_, "Expected a map with string keys and values, but key was not a string.");
    if (!member.value.IsString())
      raiseError(*errors_,
                 "Expected a map with string keys and values, but value was not a string.");
    map.insert_or_assign(std::string(textOf(member.name)), member.value.GetString());
  }
  return map;
}

void JSON::setMember(JSON& owner, const std::string& key, JSON&& value) {
  RapidPool& pool = owner.document_->pool;
  RapidValue name = copyText(key, pool);
  try {
    value_->AddMember(name, *value.value_, pool);
  } catch (...) {
    // RapidJSON raises the object's capacity before it allocates: the next member would be written
    // past the end.
    value_->SetObject();
    throw;
  }
}

std::string JSON::toString() const {
  RapidBuffer buffer;
  RapidWriter writer(buffer);
  if (!value_->Accept(writer))
    throw std::logic_error("A number that is not finite has no JSON text.");
  return std::string(buffer.GetString(), buffer.GetSize());
}
