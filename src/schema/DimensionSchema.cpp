#include "schema/DimensionSchema.h"

#include "model/RecordAccess.h"
#include "schema/SchemaWriter.h"

namespace Units {

std::optional<Dimension> readDimensionSchema(const SchemaHeader& header) {
  if (!isOfKind(header, "dimension")) return std::nullopt;
  return Dimension(header.typeId);
}

std::string writeDimensionSchema(const Dimension& dimension) {
  return makeSchemaDocument(RecordAccess::typeId(dimension), "dimension").toString();
}

}  // namespace Units
