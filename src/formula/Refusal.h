#pragma once

#include <TrelvonUnits/FormulaReason.h>

/// The message of a reason that has its own; null for those that share one message.
const char* ownMessageOf(Units::FormulaReason reason);

/// The message that an exception for a reason has.
const char* messageOf(Units::FormulaReason reason);

/// Throws what a formula that is refused throws.
///
/// @throws Units::ParseException  with the message of the reason.
/// @throws std::logic_error       for PowerOfNoUnits.
[[noreturn]] void throwRefusal(Units::FormulaReason reason);
