#pragma once

#include "tools/trelvon/Context.h"
#include "tools/trelvon/Failure.h"

namespace tool {

/// Reads lines and does what they say: at a prompt if a terminal is on both sides, otherwise plain
/// lines from standard input.
/// @return  for plain lines the highest status of one of them.
Status runPrompt(Context& context);

}  // namespace tool
