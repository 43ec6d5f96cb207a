#pragma once

#include "formula/UnitMath.h"
#include "text/ValueText.h"

#include <array>
#include <cstddef>
#include <string_view>

/// Finds the next operators and parentheses in the unread text of a formula. Each is one byte.
///
/// A literal may end at any of several operators ahead. Their positions are stored from token to
/// token, as distances from the end of the text, so each is searched for once and reading is
/// linear.
class OperatorSearch {
 public:
  explicit OperatorSearch(const Units::UnitMath& unitMath);

  /// Whether a text begins with an operator. Here and in `findEnds`, `rest` must be a suffix of the
  /// text of the previous call, unless `restart` was called.
  bool isAtStart(std::string_view rest);

  /// Where a literal at the front may end: at the next few operators and, if these are all, at the
  /// end of the text.
  Units::LiteralEnds findEnds(std::string_view rest);

  /// The next call may pass any text.
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
