#pragma once

#include "formula/UnitMath.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

/// An operator or parenthesis in a text.
struct OperatorPosition {
  std::size_t position;
  std::size_t length;
};

/// Finds operators and parentheses ahead in the unread text of a formula, each of them once.
///
/// Where a literal ends is tried at several of the operators ahead. Remembering them from token to
/// token, by their distance from the end, keeps reading linear.
class OperatorSearch {
 public:
  /// How many operators ahead may be asked for.
  static constexpr std::size_t reach = 5;

  /// The tables of `unitMath` must not change from here on.
  explicit OperatorSearch(const Units::UnitMath& unitMath);

  /// The first operator, at `index` 0, or one of those that follow it. `rest` must be what is left
  /// of the text of the call before, unless `restart` was called.
  std::optional<OperatorPosition> find(std::size_t index, std::string_view rest);

  /// Another text follows.
  void restart();

 private:
  struct Found {
    std::size_t fromEnd;  // distance from the end of the text
    std::size_t length;
  };

  void dropPassed(std::string_view rest);
  bool findNext(std::string_view rest);
  std::optional<OperatorPosition> findFirstOperator(std::string_view text, std::size_t from) const;
  std::size_t lengthAt(std::string_view text, std::size_t position) const;

  const Units::UnitMath& unitMath_;
  std::array<std::size_t, 256> longest_ = {};  // by first byte, the length of the longest spelling
  std::array<Found, reach> found_ = {};
  std::size_t count_ = 0;
  bool foundAll_ = false;
};
