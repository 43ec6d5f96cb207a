#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// The text in a form that is safe for a terminal: valid UTF-8 without control characters. Other
/// bytes are shown as \xNN, so that no name or file can move the cursor or change colors.
std::string shown(std::string_view text);

/// The same with quotes around it, for messages.
std::string inQuotes(std::string_view text);

/// The text with bytes that are not UTF-8 shown as \xNN, and control characters as they are.
std::string validUtf8(std::string_view text);

/// The number of code points, which stands for the width in a terminal.
std::size_t widthOf(std::string_view validText);

}  // namespace tool
