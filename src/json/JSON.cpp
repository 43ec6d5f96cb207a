#include "json/JSON.h"

#include "json/ParseInPlace.h"
#include "json/RapidJson.h"

#include <rapidjson/error/en.h>

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>
#include <utility>

namespace {

// A usual schema takes one allocation for the document and its pool, of a size that allocators have
// at hand.
constexpr std::size_t firstPoolBytes = 832;    // tuning
constexpr std::size_t firstStackBytes = 1024;  // tuning

}  // namespace

/// A root, and the memory of everything below it.
struct JSON::Document {
  std::shared_ptr<ExceptionFactory> exceptionFactory;  // null in a document that is being built
  std::string text;                                    // the strings of the document point into it
  alignas(std::max_align_t) std::array<char, firstPoolBytes> firstOfPool;
  RapidPool pool{firstOfPool.data(), firstOfPool.size()};
  ThrowingAllocator heap;  // of the parse's stacks
  RapidDocument root{&pool, firstStackBytes, &heap};
};

namespace {

std::string_view textOf(const RapidValue& string) {
  return {string.GetString(), string.GetStringLength()};
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
    : JsonView(&document->root, document->exceptionFactory.get()), document_(std::move(document)) {}

JSON::JSON(std::unique_ptr<RapidValue> value) noexcept
    : JsonView(value.get()), own_(std::move(value)) {}

JSON::JSON(JsonView view) noexcept : JsonView(view) {}

JSON::JSON(bool value) : JSON(std::make_unique<RapidValue>(value)) {}
JSON::JSON(double value) : JSON(std::make_unique<RapidValue>(value)) {}
JSON::JSON(int value) : JSON(std::make_unique<RapidValue>(value)) {}

JSON::JSON(JSON&& other) noexcept = default;
JSON& JSON::operator=(JSON&& other) noexcept = default;
JSON::~JSON() = default;

JSON JSON::parse(std::shared_ptr<ExceptionFactory> factory, const std::string& text) {
  std::unique_ptr<Document> document(new Document);  // does not clear what it has for the pool
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

bool JsonView::isObject() const { return value_ && value_->IsObject(); }
bool JsonView::isArray() const { return value_ && value_->IsArray(); }
bool JsonView::isString() const { return value_ && value_->IsString(); }
bool JsonView::isNumber() const { return value_ && value_->IsNumber(); }
bool JsonView::isBool() const { return value_ && value_->IsBool(); }

std::string_view JsonView::getStringView() const { return value_->GetString(); }

double JsonView::getNumber() const { return value_->GetDouble(); }

bool JsonView::getBool() const { return value_ && value_->IsTrue(); }

JsonView JsonView::findMember(std::string_view key) const {
  if (isObject())
    for (auto& member : value_->GetObject())
      if (textOf(member.name) == key) return JsonView(&member.value, errors_);
  return JsonView();
}

std::size_t JsonView::elementCount() const { return value_->Size(); }

JsonView JsonView::element(std::size_t number) const {
  return JsonView(value_->Begin() + number, errors_);
}

namespace {

/// Calls `take` with the name and value of each member of an object.
/// @throws  what `errors` makes of the message for a value that is not an integer.
template <class Take>
void forEachInteger(const RapidValue& object, ExceptionFactory* errors, std::size_t* reading,
                    const Take& take) {
  std::size_t number = 0;
  for (const auto& member : object.GetObject()) {
    if (reading) *reading = number++;
    if (!member.name.IsString())
      raiseError(*errors,
                 "Expected a map with string keys and integer values, but key was not a string.");
    if (!member.value.IsInt())
      raiseError(*errors,
                 "Expected a map with string keys and integer values, but value was not an "
                 "integer.");
    take(textOf(member.name), member.value.GetInt());
  }
}

/// The same for strings.
template <class Take>
void forEachString(const RapidValue& object, ExceptionFactory* errors, std::size_t* reading,
                   const Take& take) {
  std::size_t number = 0;
  for (const auto& member : object.GetObject()) {
    if (reading) *reading = number++;
    if (!member.name.IsString())
      raiseError(*errors, "Expected a map with string keys and values, but key was not a string.");
    if (!member.value.IsString())
      raiseError(*errors,
                 "Expected a map with string keys and values, but value was not a string.");
    take(textOf(member.name), std::string_view(member.value.GetString()));
  }
}

}  // namespace

JsonView::Integers JsonView::getIntegers(std::size_t* reading) const {
  Integers integers;
  integers.reserve(value_->MemberCount());
  forEachInteger(*value_, errors_, reading,
                 [&](std::string_view name, int integer) { integers.emplace_back(name, integer); });
  // Names lie in the text, in its order.
  std::sort(integers.begin(), integers.end(), [](const auto& a, const auto& b) {
    const int order = a.first.compare(b.first);
    return order != 0 ? order < 0 : std::less<>()(a.first.data(), b.first.data());
  });
  const auto haveOneName = [](const auto& a, const auto& b) { return a.first == b.first; };
  const auto kept = std::unique(integers.rbegin(), integers.rend(), haveOneName);
  integers.erase(integers.begin(), kept.base());
  return integers;
}

std::optional<JsonView::NamedString> JsonView::getOnlyString(std::size_t* reading) const {
  std::optional<NamedString> only;
  bool hasOthers = false;
  forEachString(*value_, errors_, reading, [&](std::string_view name, std::string_view string) {
    hasOthers = hasOthers || (only && only->first != name);
    only.emplace(name, string);
  });
  return hasOthers ? std::nullopt : only;
}

JSON JSON::getMember(std::string_view key) const {
  static RapidValue none;  // nothing is written through a view
  JSON member(findMember(key));
  if (!member.value_) member.value_ = &none;
  return member;
}

std::vector<JSON> JSON::getArray() const {
  std::vector<JSON> views;
  views.reserve(elementCount());
  for (std::size_t number = 0; number < elementCount(); ++number)
    views.push_back(JSON(element(number)));
  return views;
}

std::map<std::string, int> JSON::getStringIntMap() const {
  std::map<std::string, int> map;
  if (!isObject()) return map;
  forEachInteger(*value_, errors_, nullptr, [&](std::string_view name, int integer) {
    map.insert_or_assign(std::string(name), integer);
  });
  return map;
}

std::map<std::string, std::string> JSON::getStringStringMap() const {
  std::map<std::string, std::string> map;
  if (!isObject()) return map;
  forEachString(*value_, errors_, nullptr, [&](std::string_view name, std::string_view string) {
    map.insert_or_assign(std::string(name), string);
  });
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
