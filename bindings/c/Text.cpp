#include "bindings/c/Text.h"

#include "bindings/c/Guard.h"

#include <cstdint>
#include <cstring>

namespace C {

trelvon_text textOf(std::string_view text) noexcept { return {text.data(), text.size()}; }

std::string_view viewOf(trelvon_text text) {
  if (text.size > PTRDIFF_MAX) refuseArgument("A text is too large.");
  if (text.data == nullptr && text.size != 0) refuseArgument("A text is null.");
  return text.data == nullptr ? std::string_view() : std::string_view(text.data, text.size);
}

std::string stringOf(trelvon_text text) { return std::string(viewOf(text)); }

std::string pathOf(trelvon_text text) {
  if (viewOf(text).find('\0') != std::string_view::npos) refuseArgument("A path contains a NUL.");
  return stringOf(text);
}

std::vector<std::string> stringsOf(const trelvon_text* texts, std::size_t count) {
  if (count != 0) require(texts);
  std::vector<std::string> strings;
  for (std::size_t index = 0; index < count; ++index) strings.push_back(stringOf(texts[index]));
  return strings;
}

void write(std::string_view text, Buffer buffer) {
  require(buffer.size);
  const std::size_t capacity = *buffer.size;
  *buffer.size = text.size();
  if (buffer.bytes == nullptr) return;
  if (text.size() > capacity) refuseArgument("The buffer is too small.");
  std::memcpy(buffer.bytes, text.data(), text.size());
}

}  // namespace C

trelvon_text trelvon_string(const char* text) {
  return text == nullptr ? trelvon_text{} : C::textOf(text);
}
