#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where the values of a JSON text are. Reads the text as `JSON::parse` does, and knows all values
/// up to the first fault. Keeps all members that share a name.
///
///   const TextPlaces places("{\"a\": [1, 2]}");
///   places.value(places.element(places.member(0, "a"), 1)).begin  // 10
class TextPlaces {
 public:
  enum class Kind : unsigned char { Object, Array, String, Number, Boolean, Null };

  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  /// A value. Values are numbered in the order in which they begin; the root is 0. Numbers of other
  /// values are `none` where there is no such value.
  struct Value {
    Kind kind;
    std::size_t begin;  // offset in bytes
    std::size_t
        end;  // after its last byte; of an unfinished object or array, where the parse ended
    std::size_t nameBegin;  // of a member: its name, with quotes; otherwise both are `begin`
    std::size_t nameEnd;
    std::string_view text;  // of a string, decoded
    std::string_view name;  // of a member, decoded
    std::size_t parent;
    std::size_t next;   // of the same parent
    std::size_t first;  // of an object or array: its first member or element
  };

  struct Fault {
    std::size_t offset;
    const char* reason;
  };

  /// @param text  read up to its first NUL, and copied.
  explicit TextPlaces(std::string_view text);
  TextPlaces(const TextPlaces&) = delete;

  /// The fault that `JSON::parse` reports; none if the text is JSON.
  const std::optional<Fault>& fault() const { return fault_; }

  /// How many values there are.
  std::size_t size() const { return values_.size(); }
  const Value& value(std::size_t number) const { return values_[number]; }

  /// The number of a member or element of a value; `none` if there is none or the value is `none`.
  std::size_t member(std::size_t object, std::string_view name) const;
  std::size_t lastMember(std::size_t object, std::string_view name) const;
  std::size_t element(std::size_t parent, std::size_t index) const;

 private:
  struct Walk;

  std::string text_;  // decoded in place; values point into it
  std::vector<Value> values_;
  std::optional<Fault> fault_;
};
