#include "display/ShowValue.h"

#include "display/DisplayContents.h"
#include "display/NumberWriter.h"
#include "text/ClassicNumber.h"

#include <cmath>

namespace Units {

std::string showAmount(double amount, const DisplayScale& scale, const NumberForm& form,
                       const NumberStyle& style) {
  std::string text;
  NumberWriter writer(form, style, text);
  const bool isFinite = std::isfinite(amount);
  const RoundedNumber number = isFinite ? roundNumber(amount, form) : RoundedNumber();
  if (isFinite ? number.isNegative : amount < 0.0) text += style.minus;
  const bool isDecorated = !scale.text.empty() && (isFinite || !form.layout);
  if (isDecorated && scale.isPrefix) {
    writer.writeMark(scale.text);
    if (scale.hasSpace) text += style.space;
  }
  if (isFinite)
    writer.write(number);
  else
    appendFixed(text, amount, 0);  // the engine's words
  if (isDecorated && !scale.isPrefix) {
    if (scale.hasSpace) text += style.space;
    writer.writeMark(scale.text);
  }
  return text;
}

double shownAmount(double amount, const NumberForm& form) {
  const RoundedNumber number = roundNumber(amount, form);
  std::string text = number.whole;
  if (number.places > 0) {
    std::string digits;
    appendWhole(digits, number.fraction);
    text +=
        '.' + std::string(static_cast<std::size_t>(number.places) - digits.size(), '0') + digits;
  }
  const double whole = readClassicDouble(text).value;
  return number.denominator == 0
             ? whole
             : whole + static_cast<double>(number.fraction) / number.denominator;
}

}  // namespace Units
