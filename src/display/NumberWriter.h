#pragma once

#include "display/NumberForm.h"
#include "display/Rounding.h"

#include <string>
#include <string_view>

namespace Units {

/// Appends texts of rounded numbers, without their signs.
class NumberWriter {
 public:
  NumberWriter(const NumberForm& form, const NumberStyle& style, std::string& out)
      : form_(form), style_(style), out_(out) {}

  /// All parts of a number. Those of a composite have their marks.
  void write(const RoundedNumber& number);

  /// ASCII digits as those of the locale.
  void writeDigits(std::string_view digits);

  /// A mark of a composite or the text of a unit, with the spaces of the style.
  void writeMark(std::string_view mark);

 private:
  void writeWhole(std::string_view digits, bool isAlone);
  void writeGrouped(std::string_view digits, std::size_t secondary);
  void writeNumber(std::string_view whole, const RoundedNumber& number, bool isPart);
  void writeFraction(std::string_view whole, const RoundedNumber& number);

  const NumberForm& form_;
  const NumberStyle& style_;
  std::string& out_;
};

}  // namespace Units
