#pragma once

#include "tools/trelvon/Definitions.h"

#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>

#include <string>

namespace tool {

/// The text of a symbol; empty for a composite one.
std::string textOf(const Units::Symbol& symbol);

/// The unit that a text names. Exact matches come before loose ones; if several are equally good,
/// it does not guess.
/// @throws Failure  no unit or several units have this name; the message lists those that may be
///                  meant.
Units::Unit unitNamed(const std::string& text, Definitions& definitions);

/// The symbol with this type id, else with this local id, else with this text.
/// @throws Failure  there is none, or several.
Units::Symbol symbolNamed(const std::string& text, Definitions& definitions);

/// The type id of a definition of any kind. Units come first, then quantities, symbols, factors and
/// dimensions, each by type id, local id or name.
/// @throws Failure  there is none, or several of the same kind.
std::string definitionNamed(const std::string& text, Definitions& definitions);

/// The factor with a type id or a local id.
std::string factorNamed(const std::string& text, Definitions& definitions);

/// The dimension with a type id or a local id.
std::string dimensionNamed(const std::string& text, Definitions& definitions);

}  // namespace tool
