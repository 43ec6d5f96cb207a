#pragma once

#include "tools/trelvon/Context.h"
#include "tools/trelvon/Failure.h"

#include <functional>
#include <string>

namespace tool {

/// Runs the command of a context's arguments, or prints help, the version, or a prompt.
Status runArguments(Context& context);

/// Runs something. If it throws, reports the failure and returns its status.
Status runAndTell(const std::function<Status()>& action,
                  const std::function<void(const Failure&)>& tell);

/// Reports a failure on standard error and, for programs that read JSON, as an object.
/// @param whose  the text before the message, such as "trelvon eval: ".
void tellFailure(const Failure& failure, const std::string& whose, bool asJson, Output& out,
                 Output& errors);

}  // namespace tool
