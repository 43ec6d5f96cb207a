#pragma once

#include "text/CompositeSymbolTable.h"

#include <TrelvonUnits/ValueDisplay.h>

#include <string>
#include <string_view>

namespace Units {

/// Checks what can be checked of options alone, apart from the locale.
/// @throws ValidationException, PrecisionException  options are out of range or exclude each other.
void checkOptions(const DisplayOptions& options);

/// Checks what a composite symbol cannot show.
void checkLayout(const DisplayOptions& options, const CompositeLayout* layout);

/// Checks that there are units to choose from, and that the symbol is not composite.
void checkBest(const DisplayOptions& options, const CompositeLayout* layout);

[[noreturn]] void refuseLocale(const std::string& name);

/// Whether a reader takes two marks for the same: all spaces are one.
bool isSameMark(std::string_view left, std::string_view right);

}  // namespace Units
