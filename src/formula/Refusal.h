#pragma once

#include <TrelvonUnits/FormulaReason.h>

/// The message of a reason that has its own; null for those that share one message.
const char* ownMessageOf(Units::FormulaReason reason);

/// The message of the exception for a reason.
const char* messageOf(Units::FormulaReason reason);

/// Throws the exception for a refused formula.
///
/// @throws Units::ParseException  with the message of the reason.
/// @throws std::logic_error       for PowerOfNoUnits.
[[noreturn]] void throwRefusal(Units::FormulaReason reason);
