/// Records as C reads them.
#pragma once

#include "bindings/c/List.h"

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>

namespace C {

trelvon_dimension itemOf(trelvon_list& list, const Units::Dimension& dimension);
trelvon_factor itemOf(trelvon_list& list, const Units::Factor& factor);
trelvon_unit itemOf(trelvon_list& list, const Units::Unit& unit);
trelvon_symbol itemOf(trelvon_list& list, const Units::Symbol& symbol);
trelvon_quantity itemOf(trelvon_list& list, const Units::Quantity& quantity);

}  // namespace C
