#pragma once

#include "formula/UnitMath.h"
#include "text/ValueText.h"

#include <array>
#include <cstddef>
#include <string_view>

/// Finds operators and parentheses ahead in the unread text of a formula, each of them once. All
/// are spelled with one byte.
///
/// Where a literal ends is tried at several of the operators ahead. Remembering them from token to
/// token, by their distance from the end, keeps reading linear.
class OperatorSearch {
 public:
  explicit OperatorSearch(const Units::UnitMath& unitMath);

  /// Whether a text begins with an operator. `rest` must be what is left of the text of the call
  /// before, unless `restart` was called; so for the next function.
  bool isAtStart(std::string_view rest);

  /// Where a literal at the front may end: at the first operators, or else at the end of the text.
  Units::LiteralEnds findEnds(std::string_view rest);

  /// Another text follows.
  void restart();

 private:
  static constexpr std::size_t maxEnds = Units::LiteralEnds::most;

  void dropPassed(std::string_view rest);
  void findNext(std::string_view rest);

  std::array<bool, 256> isOperator_ = {};        // by byte
  std::array<std::size_t, maxEnds> found_ = {};  // distances from the end of the text
  std::size_t count_ = 0;
  bool foundAll_ = false;
};
