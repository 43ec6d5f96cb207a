#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// A step from a value in a schema text to one below it.
struct ReadingStep {
  enum class Kind {
    Member,      // the first member of a name
    LastMember,  // the last one, which counts in maps and references
    Element,     // a member or element by its number
    Property,    // the property object with an id
    Value,       // the value of a property object, else its typed value
  };

  Kind kind;
  std::string_view name;
  std::size_t number = 0;

  static ReadingStep member(std::string_view name) { return {Kind::Member, name}; }
  static ReadingStep lastMember(std::string_view name) { return {Kind::LastMember, name}; }
  static ReadingStep element(std::size_t number) { return {Kind::Element, {}, number}; }
  static ReadingStep property(std::string_view id) { return {Kind::Property, id}; }
  static ReadingStep value() { return {Kind::Value, {}}; }
};

/// Records what a reader of schemas reads, for callers that want to know what caused a refusal.
/// Readers take a pointer to it, which may be null, and note each value before they check it.
class ReadingTrace {
 public:
  /// A step that owns its name: readers drop the text when they refuse it.
  struct Step {
    ReadingStep::Kind kind;
    std::string name;
    std::size_t number;
  };
  using Path = std::vector<Step>;

  static constexpr std::size_t noMember = static_cast<std::size_t>(-1);

  /// The path from the root to the value that was noted last, or to the member of it that was being
  /// read.
  Path last() const;

  /// The root's members and the constants that were read, in the order of reading.
  const std::vector<std::string>& members() const { return members_; }
  const std::vector<std::string>& constants() const { return constants_; }

  /// How many steps the last path has.
  std::size_t depth() const { return last_.size(); }

  /// Notes a value by a path that shares some steps with the last one.
  void note(std::size_t sharedSteps, std::initializer_list<ReadingStep> steps);

  std::size_t member = noMember;  // of the value that was noted last, while its members are read

 private:
  Path last_;
  std::vector<std::string> members_;
  std::vector<std::string> constants_;
};

/// Notes a value by its path from the root.
template <class... Steps>
void note(ReadingTrace* trace, const Steps&... steps) {
  if (trace) trace->note(0, {steps...});
}

}  // namespace Units
