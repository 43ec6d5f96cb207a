#pragma once

#include "tools/trelvon/Context.h"
#include "tools/trelvon/csv/CellReader.h"
#include "tools/trelvon/csv/CsvReader.h"

#include <TrelvonUnits/PreparedConversion.h>

#include <string>
#include <vector>

namespace tool {

/// What happens to a column.
struct ColumnPlan {
  std::size_t index;  ///< From 0.
  std::string shownName;
  CellReader reader;
  Units::PreparedConversion conversion;
  std::string header;  ///< With --from-header: the new text of the header's cell.
};

/// The plans of all columns in ascending order, by the options and the header. The header, if there
/// is one, is the row that the reader is at.
/// @throws Failure  a column or unit is unknown, or does not fit.
std::vector<ColumnPlan> planColumns(Context& context, const CsvReader* header);

}  // namespace tool
