#pragma once

#include "reporting/Batch.h"
#include "reporting/Findings.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <vector>

namespace Schemas {

/// Names that people give to variables.
std::vector<std::string> usualVariableNames();

/// What was loaded, for lints that ask an engine.
struct LintedLoad {
  const Units::UnitsEngine& engine;  // holds all of `definitions`
  const std::vector<FiledDefinition>& definitions;
  const std::vector<std::string>& variableNames;
  bool isWhole;  // whether it can be asked for what no definition does
};

/// Finds what may cause trouble later in definitions that load.
void lintLoad(const LintedLoad& load, Findings& findings);

/// Drops the lints that files silence, and finds the allowances that silence nothing.
/// @param hasLoad  whether `lintLoad` was called, and for a whole load.
void applyAllowances(bool hasLoad, bool isWhole, Findings& findings);

}  // namespace Schemas
