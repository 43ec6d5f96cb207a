#include "model/ShownText.h"

#include "model/CodePoints.h"

namespace Units {

namespace {

constexpr std::size_t mostShown = 5000;  // bytes; whole messages are shorter, unless ids are huge

/// Control characters beyond those of ASCII, and characters that hide text or change its direction.
bool isHidden(char32_t point) {
  return (point >= 0x7F && point < 0xA0) || (point >= 0x200B && point <= 0x200F) ||
         (point >= 0x2028 && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069) ||
         point == 0xFEFF;
}

bool isPlain(char32_t point) { return point < 0x110000 && !isHidden(point); }

template <class Shows>
std::string show(std::string_view text, const Shows& shows) {
  std::string out;
  while (!text.empty()) {
    const CodePoint first = firstCodePoint(text);
    if (shows(first.number)) {
      out += text.substr(0, first.bytes);
    } else {
      for (const char c : text.substr(0, first.bytes)) {
        const auto byte = static_cast<unsigned char>(c);
        out += {'\\', 'x', "0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 15]};
      }
    }
    text.remove_prefix(first.bytes);
  }
  return out;
}

/// The beginning of a text, no longer than what is shown, cut between code points.
std::string_view beginning(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size()) {
    const std::size_t next = length + firstCodePoint(text.substr(length)).bytes;
    if (next > mostShown) break;
    length = next;
  }
  return text.substr(0, length);
}

}  // namespace

std::string shownText(std::string_view text) {
  const std::string_view begun = beginning(text);
  std::string out = show(begun, [](char32_t point) { return isPlain(point) && point >= 0x20; });
  return begun.size() < text.size() ? out + "..." : out;
}

std::string validText(std::string_view text) {
  const std::string_view begun = beginning(text);
  std::string out = show(begun, isPlain);
  return begun.size() < text.size() ? out + "..." : out;
}

std::string wholeText(std::string_view text) { return show(text, isPlain); }

}  // namespace Units
