#pragma once

#include "json/RapidJson.h"

#include <rapidjson/reader.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/// A text that RapidJSON decodes in place. It is never copied, so that events can ask it for the
/// offset. It knows its end, so that eight characters can be read at a time.
struct TextStream : rapidjson::InsituStringStream {
  explicit TextStream(std::string& text)
      : GenericInsituStringStream(text.data()), end(text.data() + text.size()) {}

  const char* const end;  // where the NUL is
};

/// How many characters at the start of eight can be in a string as they are: all except '"', '\\'
/// and control characters.
inline std::size_t countPlain(const char* eight) {
  constexpr std::uint64_t ones = 0x0101010101010101;
  std::uint64_t word;
  std::memcpy(&word, eight, sizeof word);
  // Subtracting borrows into the sign bit of a byte that is too small. A borrow from there can only
  // mark bytes that come later.
  const std::uint64_t quotes = (word ^ ones * '"') - ones;
  const std::uint64_t backslashes = (word ^ ones * '\\') - ones;
  const std::uint64_t controls = word - ones * ' ';
  const std::uint64_t marked = (quotes | backslashes | controls) & ~word & ones * 0x80;
  if (marked == 0) return sizeof word;
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  return static_cast<std::size_t>(__builtin_ctzll(marked)) / 8;
#else
  return 0;
#endif
}

/// RapidJSON calls this before it looks at the next character of a string. It copies the plain
/// characters before that one. RapidJSON's own functions of this kind treat some control characters
/// as plain ones, and read past the end of the text.
template <>
template <>
inline void rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>,
                                     ThrowingAllocator>::ScanCopyUnescapedString(TextStream& in,
                                                                                 TextStream& out) {
  char* from = in.src_;
  char* to = out.dst_;
  for (std::size_t plain = 8; plain == 8 && in.end - from >= 8; from += plain, to += plain) {
    plain = countPlain(from);
    if (to != from) std::memmove(to, from, plain);
  }
  in.src_ = from;
  out.dst_ = to;
}

/// RapidJSON calls this to skip white space.
inline void SkipWhitespace(TextStream& in) {
  char* next = in.src_;
  while (*next == ' ' || *next == '\n' || *next == '\r' || *next == '\t') ++next;
  in.src_ = next;
}
