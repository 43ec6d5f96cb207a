#pragma once

#include "text/CompositeSymbolTable.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Units {

/// What a value is rounded to, and the parts in which it is shown.
struct NumberForm {
  enum class Kind { Places, Fraction, Significant };

  Kind kind = Kind::Significant;
  int digits = 15;  // decimal places, the denominator, or significant digits
  bool trims = true;
  const CompositeLayout* layout = nullptr;  // null for a single number
  std::uint32_t lastUnits = 1;  // the number of units of the last part in one of the first

  /// Whether all numbers have no decimal places, so that a single mark can only group digits.
  bool isWhole() const { return kind == Kind::Fraction || (kind == Kind::Places && digits == 0); }
  /// Whether some have decimal places and others not.
  bool varies() const { return kind == Kind::Significant || (trims && !isWhole()); }
};

/// The characters that numbers are written with. All texts are UTF-8.
struct NumberStyle {
  std::string decimalMark;
  std::string groupMark;
  std::string minus;
  std::string zero;
  std::string space;
  int secondaryGroup = 3;
  int minimumGrouping = 1;
  bool groups = false;

  bool groupsByPointOrComma() const { return groupMark == "." || groupMark == ","; }
};

/// The last group of digits.
inline constexpr int primaryGroup = 3;

}  // namespace Units
