#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
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

/// What a reader of schemas has read, for a caller that wants to know where a refusal has its cause.
/// Readers take a pointer to it, null if nobody asks, and note each value before they check it.
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

  /// The paths from the root to all values that were noted, in the order of reading.
  const std::vector<Path>& paths() const { return paths_; }

  /// The path to the value that was noted last, or to the member of it that was being read.
  Path last() const {
    Path path = paths_.empty() ? Path() : paths_.back();
    if (member != noMember) path.push_back({ReadingStep::Kind::Element, {}, member});
    return path;
  }

  /// @param depth  how many steps of the last path to keep.
  void note(std::size_t depth, std::initializer_list<ReadingStep> steps) {
    Path path;
    if (depth > 0) path.assign(paths_.back().begin(), paths_.back().begin() + std::ptrdiff_t(depth));
    for (const ReadingStep& step : steps)
      path.push_back({step.kind, std::string(step.name), step.number});
    paths_.push_back(std::move(path));
    member = noMember;
  }

  std::size_t depth() const { return paths_.empty() ? 0 : paths_.back().size(); }

  std::size_t member = noMember;  // of the value that was noted last, while its members are read

 private:
  std::vector<Path> paths_;
};

/// Notes a value by its path from the root.
template <class... Steps>
void note(ReadingTrace* trace, const Steps&... steps) {
  if (trace) trace->note(0, {steps...});
}

}  // namespace Units
