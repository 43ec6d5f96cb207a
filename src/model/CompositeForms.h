#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Units {

/// The composite forms of symbols without prefix or suffix, in the order of their keys.
enum class CompositeForm : std::size_t {
  DegreesMinutesSeconds,
  FeetAndInches,
  FeetHyphenInches,
  MetersAndCentimeters,
};

/// What a composite symbol's type id contains, by form. Byte order, in which layouts are looked
/// for, is the same as the order of the forms.
inline constexpr std::array<std::string_view, 4> specialSymbolKeys = {
    ":degreesMinutesSeconds-1", ":feetAndInches-1", ":feetHyphenInches-1",
    ":metersAndCentimeters-1"};

}  // namespace Units
