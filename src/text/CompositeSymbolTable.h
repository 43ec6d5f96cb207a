#pragma once

#include "model/CompositeForms.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Units {

struct CompositeComponent {
  std::int32_t ratio;     // how many of the next component make one of this one
  std::string_view mark;  // written after its count, without a space
};

/// How a value is laid out under a composite symbol: from the component that the value is counted
/// in down to the one that shows the remainder.
struct CompositeLayout {
  static constexpr std::size_t maximumComponents = 3;  // tuning

  std::size_t count;
  std::array<CompositeComponent, maximumComponents> components;  // the first `count`
};

/// The layouts by form, and thus in the order of their keys.
inline constexpr std::array<CompositeLayout, specialSymbolKeys.size()> compositeSymbolTable = {{
    {3, {{{60, "\xC2\xB0"}, {60, "'"}, {1, "\""}}}},  // CompositeForm::DegreesMinutesSeconds
    {2, {{{12, "'"}, {1, "\""}}}},                    // CompositeForm::FeetAndInches
    {2, {{{12, "' -"}, {1, "\""}}}},                  // CompositeForm::FeetHyphenInches
    {2, {{{100, "m"}, {1, "cm"}}}},                   // CompositeForm::MetersAndCentimeters
}};

/// The layout of the first key, in byte order, that a type id contains; null if none.
const CompositeLayout* findCompositeLayout(std::string_view typeId);

}  // namespace Units
