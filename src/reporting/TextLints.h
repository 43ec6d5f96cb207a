#pragma once

#include "reporting/DefinitionReader.h"
#include "reporting/Findings.h"
#include "schema/ReadingTrace.h"

#include <cstddef>

namespace Schemas {

/// Finds what may cause trouble later in the text of a definition that loads, and reads which lints
/// the file silences.
///
/// @param trace  what the reader has read.
void lintText(std::size_t file, const Definition& definition, const Units::ReadingTrace& trace,
              Findings& findings);

}  // namespace Schemas
