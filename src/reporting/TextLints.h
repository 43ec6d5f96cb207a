#pragma once

#include "reporting/DefinitionReader.h"
#include "reporting/Findings.h"
#include "schema/ReadingTrace.h"

#include <cstddef>

namespace Schemas {

/// Finds what loads in the text of a definition and is regretted later, and reads the lints that the
/// file silences.
///
/// @param trace  what the reader has read.
void lintText(std::size_t file, const Definition& definition, const Units::ReadingTrace& trace,
              Findings& findings);

}  // namespace Schemas
