#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

/// The unread text of a formula.
///
/// Reading advances a view. Nothing is copied until text is first put in front. From then on, the
/// text is at the end of a buffer whose free space, in front, grows by doubling, so putting text in
/// front takes amortized time linear in its length.
class FormulaText {
 public:
  explicit FormulaText(std::string_view formula) : rest_(formula) {}

  /// Valid until text is put in front.
  std::string_view rest() const { return rest_; }

  void skip(std::size_t length) { rest_.remove_prefix(length); }
  void putInFront(std::string_view text);

 private:
  std::size_t freeSpace() const;
  void makeRoom(std::size_t length);

  std::string_view rest_;
  std::unique_ptr<char[]> buffer_;  // null while `rest_` is a view of the caller's text
};
