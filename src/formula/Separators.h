#pragma once

/// Whether a byte stands between tokens.
inline bool isSeparator(char c) { return c == '\n' || c == ' ' || c == '\t'; }
