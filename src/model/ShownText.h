#pragma once

#include <string>
#include <string_view>

namespace Units {

/// A text of any bytes as UTF-8 that is safe for a terminal: bytes that are not UTF-8 and control
/// characters are shown as `\xNN`, byte by byte. Of a very long text, only the beginning is shown,
/// followed by "...".
std::string shownText(std::string_view text);

/// The same, but with the control characters of ASCII, for formats that escape them, such as JSON.
std::string validText(std::string_view text);

/// The same for whole texts, however long.
std::string wholeText(std::string_view text);

}  // namespace Units
