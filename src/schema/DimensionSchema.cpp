#include "schema/DimensionSchema.h"

#include "model/RecordAccess.h"
#include "schema/SchemaWriter.h"

namespace Units {

std::optional<DimensionSchemaData> readDimensionSchema(const SchemaHeader& header) {
  if (!isOfKind(header, "dimension")) return std::nullopt;
  return DimensionSchemaData();
}

void addPending(const DimensionSchemaData&, SchemaIds& ids) {
  ids.addPending(RecordAccess::make<Dimension>(ids.typeId()));
}

std::string writeDimensionSchema(const Dimension& dimension) {
  return makeSchemaDocument(RecordAccess::typeId(dimension), "dimension").toString();
}

}  // namespace Units
