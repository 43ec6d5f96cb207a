#pragma once

#include "json/ExceptionFactory.h"

#include <rapidjson/fwd.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct ThrowingAllocator;
using RapidPool = rapidjson::MemoryPoolAllocator<ThrowingAllocator>;
using RapidValue = rapidjson::GenericValue<rapidjson::UTF8<char>, RapidPool>;

/// A JSON value, read from text or built to be written as text.
///
/// Reading: `parse` gives the root of a document; `getMember` and `getArray` give views into it,
/// which are a few pointers and copy nothing. The JSON that owns the document must outlive every
/// view. Test the type before you call a getter: a getter for another type is undefined behavior.
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
class JSON {
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

  /// Whether this is an object with a member of exactly this name, compared byte by byte, NUL
  /// included.
  bool hasMember(std::string_view key) const;

  /// The first member of that name; a null value when there is none.
  JSON getMember(std::string_view key) const;

  bool isObject() const;
  bool isArray() const;
  bool isString() const;
  bool isNumber() const;
  bool isBool() const;

  /// The characters of a string up to the first NUL.
  std::string getString() const;

  /// The same in place, valid as long as the document.
  std::string_view getStringView() const;

  /// A number of any kind as a double. "-0" is the integer 0.
  double getNumber() const;

  /// Whether this is the literal `true`; false for every value of another type.
  bool getBool() const;

  /// A view of each element of an array.
  std::vector<JSON> getArray() const;

  /// The members of an object by their whole names; for duplicate names, the last wins. Empty if
  /// this is not an object.
  ///
  /// @param reading  if not null, set to the number of each member before it is read.
  /// @throws  what the document's factory makes of the message for a value of another type. A
  ///          number with a fraction or an exponent, or beyond 32 bits, is not an integer.
  std::map<std::string, int> getStringIntMap(std::size_t* reading = nullptr) const;
  std::map<std::string, std::string> getStringStringMap(std::size_t* reading = nullptr) const;

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
  JSON(RapidValue& viewed, ExceptionFactory* errors) noexcept;

  std::unique_ptr<Document> document_;  // of a root
  std::unique_ptr<RapidValue> own_;     // of a value without a parent
  RapidValue* value_;                   // the value that this JSON is or views
  ExceptionFactory* errors_ = nullptr;  // null unless parsed
};
