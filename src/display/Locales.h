#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// How numbers are written somewhere. All texts are UTF-8.
struct DisplayLocale {
  std::string_view name;         // of BCP 47
  std::string_view region;       // the default for the name; empty if the name has one
  std::string_view decimalMark;  // a code point, like the next one
  std::string_view groupMark;
  std::string_view minus;  // with a mark of direction where CLDR has one
  std::string_view zero;   // the digits follow it, and differ in the last byte alone
  int secondaryGroup;      // digits of all groups except the last, which has three
  int minimumGrouping;     // at least this many digits before the last group, or nothing is grouped
};

/// Null if there is none with this name.
const DisplayLocale* findDisplayLocale(std::string_view name);

std::vector<std::string> displayLocaleNames();

}  // namespace Units
