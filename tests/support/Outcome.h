/// Results and exceptions as texts, to compare them.
#pragma once

#include "tests/support/Bits.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>

inline std::string written(const std::string& text) { return text; }
inline std::string written(bool answer) { return answer ? "yes" : "no"; }
std::string written(const char*) = delete;  // it would be a bool

inline std::string hexadecimal(std::uint64_t bits) {
  std::string text(16, '0');
  for (std::size_t place = text.size(); place-- > 0; bits >>= 4)
    text[place] = "0123456789abcdef"[bits & 15];
  return text;
}

/// The bits, or "nan" for any NaN.
inline std::string written(double value) {
  return value != value ? "nan" : hexadecimal(bitsOf(value));
}
inline std::string written(const std::set<std::string>& typeIds) {
  std::string all;
  for (const std::string& typeId : typeIds) all += typeId + ";";
  return all;
}
template <class Record>
std::string written(const std::map<std::string, Record>& records) {
  std::string all;
  for (const auto& [typeId, record] : records) all += typeId + ";";
  return all;
}

/// What an action returns, or the class and message of what it throws. Lets std::bad_alloc and a
/// host's own exceptions pass.
template <class Action>
std::string outcome(const Action& action) {
  try {
    if constexpr (std::is_void_v<decltype(action())>)
      return action(), std::string();
    else
      return written(action());
  } catch (const Units::ValidationException& error) {
    return std::string("ValidationException: ") + error.what();
  } catch (const Units::ParseException& error) {
    return std::string("ParseException: ") + error.what();
  } catch (const std::logic_error& error) {
    return std::string("logic_error: ") + error.what();
  }
}

inline bool isRefusal(const std::string& outcome) {
  return outcome.find("Exception: ") != std::string::npos || outcome.find("logic_error: ") == 0;
}
