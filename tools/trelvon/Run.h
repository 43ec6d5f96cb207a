#pragma once

#include "tools/trelvon/Failure.h"

namespace tool {

class Context;

/// The commands. Each prints to `Context::out` and throws `Failure`.
Status runConvert(Context& context);
Status runEval(Context& context);
Status runExplain(Context& context);
Status runFormat(Context& context);
Status runList(Context& context);
Status runShow(Context& context);
Status runLint(Context& context);
Status runNew(Context& context);
Status runNames(Context& context);
Status runBundle(Context& context);
Status runDiff(Context& context);
Status runCompletion(Context& context);
Status runManual(Context& context);

/// `convert` with `--column`.
Status convertColumns(Context& context);

}  // namespace tool
