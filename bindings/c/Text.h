#pragma once

#include <TrelvonUnits/trelvon.h>

#include <string>
#include <string_view>
#include <vector>

namespace C {

/// A view of a text, which must live on.
trelvon_text textOf(std::string_view text) noexcept;

/// @throws Fault  the text has a size and no bytes, or is larger than memory can be.
std::string_view viewOf(trelvon_text text);
std::string stringOf(trelvon_text text);

/// @throws Fault  also if the path has a NUL: file systems read nothing after it.
std::string pathOf(trelvon_text text);

/// @throws Fault  also if `texts` is null and there are some.
std::vector<std::string> stringsOf(const trelvon_text* texts, std::size_t count);

/// Where C wants a text.
struct Buffer {
  char* bytes;
  std::size_t* size;
};

/// Writes a text, or only its size if the buffer is null.
///
/// @throws Fault  there is no place for the size, or the buffer is too small; the size is then set
///                to the text's.
void write(std::string_view text, Buffer buffer);

}  // namespace C
