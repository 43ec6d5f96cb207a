#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

/// The text of a formula that has not been read yet.
///
/// Reading moves the start of a view; nothing is copied until the first text is put in front. From
/// then on the text lies at the end of a buffer whose free space, in front, grows by doubling: what
/// is put in costs its own length, however often that happens.
class FormulaText {
 public:
  explicit FormulaText(std::string_view formula) : rest_(formula) {}

  /// Valid until something is put in front.
  std::string_view rest() const { return rest_; }

  void skip(std::size_t length) { rest_.remove_prefix(length); }
  void putInFront(std::string_view text);

 private:
  std::size_t freeSpace() const;
  void makeRoom(std::size_t length);

  std::string_view rest_;
  std::unique_ptr<char[]> buffer_;  // null as long as `rest_` is in the caller's text
};
