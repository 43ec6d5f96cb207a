#pragma once

#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/ValueDisplay.h>

#include <memory>
#include <optional>
#include <string>

namespace tool {

/// How a command writes a number. By default, the shortest text that reads back to it.
struct NumberFormat {
  std::optional<int> places;    ///< Decimal places.
  std::optional<int> fraction;  ///< Steps of 1/2^fraction.
  int mostPlaces = 12;          ///< With a symbol and no other option, without trailing zeros.
  std::optional<std::string> symbol;  ///< Type id of the symbol to show.
  bool isTidy = false;                ///< 15 digits, to hide rounding errors in the last ones.
  std::shared_ptr<const Units::ValueDisplay> display = nullptr;  ///< If set, writes everything.
};

/// The shortest decimal that reads back to the same double: 0.3048, 1e+20, inf, nan.
std::string shortestText(double value);

/// Appends the same to a text.
void appendShortest(std::string& out, double value);

std::string numberText(const Units::UnitsEngine& engine, double value, const NumberFormat& format);

}  // namespace tool
