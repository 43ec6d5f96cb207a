#pragma once

#include "formula/UnitMath.h"
#include "text/ValueText.h"

#include <array>
#include <cstddef>
#include <string_view>

/// Finds operators and parentheses ahead in the unread text of a formula, each of them once.
///
/// Where a literal ends is tried at several of the operators ahead. Remembering them from token to
/// token, by their distance from the end, keeps reading linear.
class OperatorSearch {
 public:
  /// The tables of `unitMath` must not change from here on.
  explicit OperatorSearch(const Units::UnitMath& unitMath);

  /// The length of the operator that a text begins with; 0 if it does not. `rest` must be what is
  /// left of the text of the call before, unless `restart` was called; so for the next function.
  std::size_t lengthAtStart(std::string_view rest);

  /// Where a literal at the front may end: at the first operators, or else at the end of the text.
  Units::LiteralEnds findEnds(std::string_view rest);

  /// Another text follows.
  void restart();

 private:
  /// By first byte: whether there are spellings, and whether any is longer than that byte.
  enum class Begins : unsigned char { None, Byte, Longer };

  struct Found {
    std::size_t fromEnd;  // distance from the end of the text
    std::size_t length;
  };

  static constexpr std::size_t reach = Units::LiteralEnds::most;

  void dropPassed(std::string_view rest);
  void findNext(std::string_view rest);
  std::size_t lengthAt(std::string_view text, std::size_t position) const;

  const Units::UnitMath& unitMath_;
  std::array<Begins, 256> begins_ = {};
  std::array<Found, reach> found_ = {};
  std::size_t count_ = 0;
  bool foundAll_ = false;
};
