/// A JSON text without what a reading may change.
#pragma once

#include <string>
#include <string_view>

/// The text without the characters of its numbers: RapidJSON does not round the last digit of every
/// number to the nearest double, so that a number which was written may read as its neighbour.
inline std::string jsonShape(std::string_view text) {
  std::string shape;
  bool isInString = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char character = text[at];
    if (character == '"') isInString = !isInString;
    if (isInString || std::string_view("0123456789+-.eE").find(character) == std::string_view::npos)
      shape += character;
    if (isInString && character == '\\' && at + 1 < text.size()) shape += text[++at];
  }
  return shape;
}
