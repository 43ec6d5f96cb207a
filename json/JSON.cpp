#include "json/JSON.h"

#include <rapidjson/error/en.h>

#include <cstring>
#include <stdexcept>
#include <utility>

#include "json/ParseText.h"
#include "json/RapidJson.h"

struct JSON::Implementation {
  std::shared_ptr<ExceptionFactory> exceptionFactory;  // none in values that are being built
  std::unique_ptr<RapidDocument> document;  // none in views and in values that stand alone
  RapidValue ownValue;                      // null in documents and views
  RapidValue* current = &ownValue;          // what this JSON stands for
};

namespace {

std::string_view textOf(const RapidValue& string) {
  return {string.GetString(), string.GetStringLength()};
}

/// The member that `key` names, or null: also of a value that is no object, such as the root of a
/// text that is an array.
RapidValue* findMember(RapidValue& value, std::string_view key) {
  if (!value.IsObject()) return nullptr;
  for (auto& member : value.GetObject())
    if (textOf(member.name) == key) return &member.value;
  return nullptr;
}

/// A string of the owner's.
RapidValue copyText(const std::string& text, RapidDocument& owner) {
  if (text.size() > JSON::kLongestText) throw std::length_error("A text is too long for JSON.");
  const auto length = static_cast<rapidjson::SizeType>(text.size());
  return RapidValue(text.data(), length, owner.GetAllocator());
}

}  // namespace

void raiseError(ExceptionFactory& factory, const std::string& message) {
  std::rethrow_exception(factory.createException(message));
}

JSON::JSON(std::unique_ptr<Implementation> implementation) noexcept
    : implementation_(std::move(implementation)) {}

JSON::JSON(bool value) : JSON(std::make_unique<Implementation>()) {
  implementation_->ownValue.SetBool(value);
}

JSON::JSON(double value) : JSON(std::make_unique<Implementation>()) {
  implementation_->ownValue.SetDouble(value);
}

JSON::JSON(int value) : JSON(std::make_unique<Implementation>()) {
  implementation_->ownValue.SetInt(value);
}

JSON::JSON(JSON&& other) noexcept = default;
JSON& JSON::operator=(JSON&& other) noexcept = default;
JSON::~JSON() = default;

JSON JSON::parse(std::shared_ptr<ExceptionFactory> factory, const std::string& text) {
  auto implementation = std::make_unique<Implementation>();
  implementation->exceptionFactory = std::move(factory);
  ExceptionFactory& errors = *implementation->exceptionFactory;
  const auto refuse = [&errors](std::size_t offset, const char* reason) {
    raiseError(errors, "JSON parsing error at offset " + std::to_string(offset) + ": " + reason);
  };

  const std::string_view read(text.c_str());
  if (read.size() > kLongestText) refuse(kLongestText, "The text is too long.");
  implementation->document = std::make_unique<RapidDocument>();
  const rapidjson::ParseResult result = parseText(*implementation->document, read);
  if (result.IsError()) refuse(result.Offset(), rapidjson::GetParseError_En(result.Code()));

  implementation->current = implementation->document.get();
  return JSON(std::move(implementation));
}

JSON JSON::makeDocument() {
  auto implementation = std::make_unique<Implementation>();
  implementation->document = std::make_unique<RapidDocument>(rapidjson::kObjectType);
  implementation->current = implementation->document.get();
  return JSON(std::move(implementation));
}

JSON JSON::makeObject() {
  auto implementation = std::make_unique<Implementation>();
  implementation->ownValue.SetObject();
  return JSON(std::move(implementation));
}

JSON JSON::makeString(JSON& owner, const std::string& text) {
  auto implementation = std::make_unique<Implementation>();
  implementation->ownValue = copyText(text, *owner.implementation_->document);
  return JSON(std::move(implementation));
}

JSON JSON::makeArray(JSON& owner, std::vector<JSON>&& items) {
  auto implementation = std::make_unique<Implementation>();
  RapidPool& pool = owner.implementation_->document->GetAllocator();
  RapidValue& array = implementation->ownValue.SetArray();
  array.Reserve(static_cast<rapidjson::SizeType>(items.size()), pool);
  for (JSON& item : items) array.PushBack(*item.implementation_->current, pool);
  return JSON(std::move(implementation));
}

bool JSON::hasMember(const std::string& key) const {
  return findMember(*implementation_->current, key) != nullptr;
}

JSON JSON::getMember(const std::string& key) const {
  auto view = std::make_unique<Implementation>();
  view->exceptionFactory = implementation_->exceptionFactory;
  RapidValue* const member = findMember(*implementation_->current, key);
  if (member != nullptr) view->current = member;
  return JSON(std::move(view));
}

bool JSON::isObject() const { return implementation_->current->IsObject(); }
bool JSON::isArray() const { return implementation_->current->IsArray(); }
bool JSON::isString() const { return implementation_->current->IsString(); }
bool JSON::isNumber() const { return implementation_->current->IsNumber(); }
bool JSON::isBool() const { return implementation_->current->IsBool(); }

std::string JSON::getString() const { return std::string(getStringView()); }

std::string_view JSON::getStringView() const { return implementation_->current->GetString(); }

double JSON::getNumber() const { return implementation_->current->GetDouble(); }

bool JSON::getBool() const { return implementation_->current->IsTrue(); }

std::vector<JSON> JSON::getArray() const {
  const auto elements = implementation_->current->GetArray();
  std::vector<JSON> views;
  views.reserve(elements.Size());
  for (RapidValue& element : elements) {
    auto view = std::make_unique<Implementation>();
    view->exceptionFactory = implementation_->exceptionFactory;
    view->current = &element;
    views.push_back(JSON(std::move(view)));
  }
  return views;
}

void JSON::forEachElement(const std::function<void(const JSON&)>& visit) const {
  const JSON view(std::make_unique<Implementation>());
  view.implementation_->exceptionFactory = implementation_->exceptionFactory;
  for (RapidValue& element : implementation_->current->GetArray()) {
    view.implementation_->current = &element;
    visit(view);
  }
}

std::map<std::string, int> JSON::getStringIntMap() const {
  std::map<std::string, int> map;
  if (!isObject()) return map;
  for (const auto& member : implementation_->current->GetObject()) {
    if (!member.name.IsString())
      raiseError(*implementation_->exceptionFactory,
                 "Expected a map with string keys and integer values, but key was not a string.");
    if (!member.value.IsInt())
      raiseError(*implementation_->exceptionFactory,
                 "Expected a map with string keys and integer values, but value was not an "
                 "integer.");
    map.insert_or_assign(std::string(textOf(member.name)), member.value.GetInt());
  }
  return map;
}

std::map<std::string, std::string> JSON::getStringStringMap() const {
  std::map<std::string, std::string> map;
  if (!isObject()) return map;
  for (const auto& member : implementation_->current->GetObject()) {
    if (!member.name.IsString())
      raiseError(*implementation_->exceptionFactory,
                 "Expected a map with string keys and values, but key was not a string.");
    if (!member.value.IsString())
      raiseError(*implementation_->exceptionFactory,
                 "Expected a map with string keys and values, but value was not a string.");
    map.insert_or_assign(std::string(textOf(member.name)), member.value.GetString());
  }
  return map;
}

void JSON::setMember(JSON& owner, const std::string& key, JSON&& value) {
  RapidDocument& document = *owner.implementation_->document;
  RapidValue name = copyText(key, document);
  RapidValue& object = *implementation_->current;
  try {
    object.AddMember(name, *value.implementation_->current, document.GetAllocator());
  } catch (...) {
    // RapidJSON counts room for the member before it has it: the next one would be written there.
    object.SetObject();
    throw;
  }
}

std::string JSON::toString() const {
  RapidBuffer buffer;
  RapidWriter writer(buffer);
  if (!implementation_->current->Accept(writer))
    throw std::logic_error("A number that is not finite has no JSON text.");
  return std::string(buffer.GetString(), buffer.GetSize());
}
