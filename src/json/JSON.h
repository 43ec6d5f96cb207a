#pragma once

#include "json/ExceptionFactory.h"

#include <rapidjson/fwd.h>

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct ThrowingAllocator;
using RapidPool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
using RapidValue = rapidjson::GenericValue<rapidjson::UTF8<char>, RapidPool>;

/// A view of a value in a document, which must outlive it: two pointers, copied freely. Test the
/// type before you call a getter: a getter for another type is undefined behavior.
class JsonView {
 public:
  /// There is no value; it has no type.
  JsonView() = default;

  /// Whether there is a value, if only null.
  explicit operator bool() const { return value_ != nullptr; }

  bool isObject() const;
  bool isArray() const;
  bool isString() const;
  bool isNumber() const;
  bool isBool() const;

  /// The characters of a string up to the first NUL, in place.
  std::string_view getStringView() const;

  /// A number of any kind as a double. "-0" is the integer 0.
  double getNumber() const;

  /// Whether this is the literal `true`; false for every value of another type.
  bool getBool() const;

  /// The first member whose name is exactly this, compared byte by byte, NUL included. There is none
  /// if this is not an object.
  JsonView findMember(std::string_view key) const;

  /// The elements of an array.
  std::size_t elementCount() const;
  JsonView element(std::size_t number) const;

  using Integers = std::vector<std::pair<std::string_view, int>>;
  using NamedString = std::pair<std::string_view, std::string_view>;

  /// The members of an object in a parsed document, in byte order of their whole names. For
  /// duplicate names, the last wins.
  ///
  /// @param reading  if not null, set to the number of each member before it is read.
  /// @throws  what the document's factory makes of the message for a value of another type. A
  ///          number with a fraction or an exponent, or beyond 32 bits, is not an integer.
  Integers getIntegers(std::size_t* reading = nullptr) const;

  /// The string of an object whose members are strings of one name, and that name. For duplicates,
  /// the last wins. Nothing if the object is empty or has several names.
  std::optional<NamedString> getOnlyString(std::size_t* reading = nullptr) const;

 protected:
  explicit JsonView(RapidValue* viewed, ExceptionFactory* errors = nullptr) noexcept
      : value_(viewed), errors_(errors) {}

  RapidValue* value_ = nullptr;
  ExceptionFactory* errors_ = nullptr;  // null unless parsed
};

/// A JSON value, read from text or built to be written as text.
///
/// Reading: `parse` gives the root of a document; `getMember` and `getArray` give views into it,
/// which copy nothing. The JSON that owns the document must outlive every view.
///
/// Building: `makeDocument` gives a root. Pass that root as `owner` of everything below it, since
/// children live in its memory. Move each child into its parent, once.
///
///   JSON root = JSON::makeDocument();
///   root.setMember(root, "typeid", JSON::makeString(root, "x"));
///   root.toString();  // {"typeid":"x"}
///
/// Use a document and its views on one thread at a time. Every operation that makes a JSON, or that
/// copies or writes text, may throw std::bad_alloc.
class JSON : public JsonView {
 public:
  /// Bytes of the longest text that `parse` reads, and of the longest string or name that is
  /// written. RapidJSON counts in 32 bits, in places up to six times a length.
  static constexpr std::size_t longestText = std::size_t{1} << 29;

  /// Reads a text up to its first NUL, as strict JSON. UTF-8 is not validated, long numbers are not
  /// always rounded to the nearest double, and members with duplicate names are all kept.
  ///
  /// @param factory  makes the exceptions of this document and of all its views.
  /// @throws  what `factory` makes of "JSON parsing error at offset " + bytes + ": " + reason.
  static JSON parse(std::shared_ptr<ExceptionFactory> factory, const std::string& text);

  /// The root of a new document: an empty object.
  static JSON makeDocument();

  /// Values without a parent, until they are moved into one.
  static JSON makeObject();
  explicit JSON(bool value);
  explicit JSON(double value);
  explicit JSON(int value);
  JSON(const char*) = delete;  // would be a bool

  /// @throws std::length_error  the text is longer than `longestText`.
  static JSON makeString(JSON& owner, const std::string& text);

  /// An array of the items in order. Their values are moved in and left null.
  static JSON makeArray(JSON& owner, std::vector<JSON>&& items);

  /// A moved-from JSON may only be assigned to or destroyed.
  JSON(JSON&& other) noexcept;
  JSON& operator=(JSON&& other) noexcept;
  ~JSON();

  bool hasMember(std::string_view key) const { return static_cast<bool>(findMember(key)); }

  /// The first member of that name; a null value when there is none.
  JSON getMember(std::string_view key) const;

  std::string getString() const { return std::string(getStringView()); }

  /// A view of each element of an array.
  std::vector<JSON> getArray() const;

  /// The members of an object by their whole names; for duplicate names, the last wins. Empty if
  /// this is not an object.
  ///
  /// @throws  as `getIntegers`.
  std::map<std::string, int> getStringIntMap() const;
  std::map<std::string, std::string> getStringStringMap() const;

  /// Appends a member to this object, even if one of that name exists. The value is moved in and
  /// left null.
  ///
  /// @throws std::length_error  the key is longer than `longestText`.
  /// @throws std::bad_alloc     leaves this object empty.
  void setMember(JSON& owner, const std::string& key, JSON&& value);

  /// Compact text: no spaces, members in order, doubles in a short form that only they have.
  /// Recurses over the depth of the value, so use it only for documents that we built.
  ///
  /// @throws std::logic_error  a number is infinite or NaN, which JSON cannot hold.
  std::string toString() const;

 private:
  struct Document;

  explicit JSON(std::unique_ptr<Document> document) noexcept;
  explicit JSON(std::unique_ptr<RapidValue> value) noexcept;
  explicit JSON(JsonView view) noexcept;

  std::unique_ptr<Document> document_;  // of a root
  std::unique_ptr<RapidValue> own_;     // of a value without a parent
};
