#include "tools/trelvon/NumberText.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace tool {

namespace {

constexpr int tidyDigits = 15;

template <class... Format>
void append(std::string& out, double value, Format... format) {
  char digits[32];  // the longest is -2.2250738585072014e-308
  const auto written = std::to_chars(std::begin(digits), std::end(digits), value, format...);
  out.append(digits, written.ptr);
}

}  // namespace

void appendShortest(std::string& out, double value) {
  if (std::isnan(value))
    out += "nan";  // whatever its sign
  else
    append(out, value);
}

std::string shortestText(double value) {
  std::string text;
  appendShortest(text, value);
  return text;
}

std::string numberText(const Units::UnitsEngine& engine, double value, const NumberFormat& format) {
  if (format.display) return format.display->show(value);
  const std::string* const symbol = format.symbol ? &*format.symbol : nullptr;
  if (format.fraction)
    return engine.formatFractional(value, static_cast<unsigned char>(*format.fraction), symbol);
  if (format.places)
    return engine.formatFixedPoint(value, static_cast<unsigned char>(*format.places), symbol,
                                   false);
  if (symbol != nullptr)
    return engine.formatFixedPoint(value, static_cast<unsigned char>(format.mostPlaces), symbol,
                                   true);
  if (!format.isTidy || std::isnan(value)) return shortestText(value);
  std::string text;
  append(text, value, std::chars_format::general, tidyDigits);
  return text;
}

}  // namespace tool
