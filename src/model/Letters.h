#pragma once

namespace Units {

/// Whether a byte is a letter of the classic locale, whatever the process's locale is.
inline bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace Units
