#include "text/ShortNumber.h"

#include "text/CharConversion.h"

#include <charconv>
#include <iterator>

// Not by a stream: one brings all facets of a locale along where the library is linked statically.
std::string Units::shortNumber(double value) {
#if defined(__cpp_lib_to_chars)
  char text[32];
  const auto written =
      std::to_chars(std::begin(text), std::end(text), value, std::chars_format::general, 15);
  return std::string(text, written.ptr);
#else
  return byCLibrary::shortNumber(value);
#endif
}
