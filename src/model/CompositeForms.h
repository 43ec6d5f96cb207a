#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Units {

/// The composite forms that a symbol without prefix or suffix can have, in the order of their keys.
enum class CompositeForm : std::size_t {
  DegreesMinutesSeconds,
  FeetAndInches,
  FeetHyphenInches,
  MetersAndCentimeters,
};

/// The key that a composite symbol's type id contains, by form. The forms are in byte order of
/// their keys, which is the order in which they are tried.
inline constexpr std::array<std::string_view, 4> specialSymbolKeys = {
    ":degreesMinutesSeconds-1", ":feetAndInches-1", ":feetHyphenInches-1",
    ":metersAndCentimeters-1"};

}  // namespace Units
