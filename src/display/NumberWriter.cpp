#include "display/NumberWriter.h"

#include "text/ClassicNumber.h"

namespace Units {

void NumberWriter::writeDigits(std::string_view digits) {
  if (style_.zero == "0") {
    out_ += digits;
    return;
  }
  for (const char digit : digits) {
    out_ += style_.zero;
    out_.back() = static_cast<char>(out_.back() + (digit - '0'));
  }
}

void NumberWriter::writeGrouped(std::string_view digits, std::size_t secondary) {
  std::size_t rest = digits.size() - primaryGroup;
  std::size_t first = rest % secondary == 0 ? secondary : rest % secondary;
  while (rest > 0) {
    writeDigits(digits.substr(0, first));
    out_ += style_.groupMark;
    digits.remove_prefix(first);
    rest -= first;
    first = secondary;
  }
  writeDigits(digits);
}

/// @param isAlone  whether nothing follows, so that a single mark might be taken to be a decimal one.
void NumberWriter::writeWhole(std::string_view digits, bool isAlone) {
  const auto count = static_cast<int>(digits.size());
  const bool isDoubtful = isAlone && form_.varies() && style_.groupsByPointOrComma() &&
                          count <= primaryGroup + style_.secondaryGroup;
  if (style_.groups && count >= primaryGroup + style_.minimumGrouping && !isDoubtful)
    writeGrouped(digits, static_cast<std::size_t>(style_.secondaryGroup));
  else
    writeDigits(digits);
}

void NumberWriter::writeFraction(std::string_view whole, const RoundedNumber& number) {
  if (whole != "0" || number.fraction == 0) writeWhole(whole, false);
  if (number.fraction == 0) return;
  if (whole != "0") out_ += style_.space;
  std::string digits;
  appendWhole(digits, number.fraction);
  writeDigits(digits);
  out_ += '/';
  digits.clear();
  appendWhole(digits, number.denominator);
  writeDigits(digits);
}

/// @param isPart  whether marks of a composite are around it.
void NumberWriter::writeNumber(std::string_view whole, const RoundedNumber& number, bool isPart) {
  if (number.denominator != 0) return writeFraction(whole, number);
  writeWhole(whole, !isPart && number.places == 0);
  if (number.places == 0) return;
  out_ += style_.decimalMark;
  std::string digits;
  appendWhole(digits, number.fraction);
  const auto places = static_cast<std::size_t>(number.places);
  for (std::size_t zeros = places; zeros > digits.size(); --zeros) writeDigits("0");
  writeDigits(digits);
}

void NumberWriter::writeMark(std::string_view mark) {
  for (const char c : mark) {
    if (c == ' ')
      out_ += style_.space;
    else
      out_ += c;
  }
}

void NumberWriter::write(const RoundedNumber& number) {
  if (!form_.layout) return writeNumber(number.whole, number, false);
  writeWhole(number.whole, false);
  const CompositeLayout& layout = *form_.layout;
  std::string digits;
  for (std::size_t part = 1; part < layout.count; ++part) {
    writeMark(layout.components[part - 1].mark);
    out_ += style_.space;
    digits.clear();
    appendWhole(digits, number.parts[part - 1]);
    if (part + 1 < layout.count)
      writeDigits(digits);
    else
      writeNumber(digits, number, true);
  }
  writeMark(layout.components[layout.count - 1].mark);
}

}  // namespace Units
