#pragma once

#include "tools/trelvon/Context.h"
#include "tools/trelvon/Failure.h"

namespace tool {

/// Reads lines and executes them: at a prompt if input and output are terminals, otherwise plain
/// lines from standard input.
/// @return  for plain lines the highest status of one of them.
Status runPrompt(Context& context);

}  // namespace tool
