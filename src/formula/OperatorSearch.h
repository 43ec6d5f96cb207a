#pragma once

#include "formula/SpellingTables.h"
#include "text/ValueText.h"

#include <array>
#include <cstddef>
#include <string_view>

/// The operators and parentheses, by byte.
inline constexpr std::array<bool, 256> operatorBytes = [] {
  std::array<bool, 256> marked = {};
  for (const std::string_view spellings : {binaryOperators, unaryOperators, std::string_view("()")})
    for (const char c : spellings) marked[static_cast<unsigned char>(c)] = true;
  return marked;
}();

/// Finds the next operators and parentheses in the unread text of a formula. Each is one byte.
///
/// A literal may end at any of several operators ahead. Their positions are stored from literal to
/// literal, so each is searched for once and reading is linear.
class OperatorSearch {
 public:
  /// Whether a byte is an operator or a parenthesis.
  static bool isOperator(char c) { return operatorBytes[static_cast<unsigned char>(c)]; }

  /// Where a literal at the front may end: at the next few operators and, if these are all, at the
  /// end of the text.
  ///
  /// @param rest  does not begin with an operator; must be a suffix of the text of the previous
  ///              call, unless `restart` was called.
  /// @return  valid until the next call.
  const Units::LiteralEnds& findEnds(std::string_view rest);

  /// The next call may pass any text.
  void restart() { ends_.count = 0; }

 private:
  Units::LiteralEnds ends_;
  std::size_t size_ = 0;  // of the text that they are for
};
