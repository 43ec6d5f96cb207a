#pragma once

#include <string>
#include <string_view>

namespace Units {

/// A text of any bytes as UTF-8 that may be sent to a terminal: bytes that are no UTF-8 and control
/// characters are shown as `\xNN`, byte by byte. Of a text that is longer than people read, only the
/// beginning, with "..." behind it.
std::string shownText(std::string_view text);

/// The same, but with the control characters of ASCII, for formats that escape them, such as JSON.
std::string validText(std::string_view text);

/// The same for whole texts, however long.
std::string wholeText(std::string_view text);

}  // namespace Units
