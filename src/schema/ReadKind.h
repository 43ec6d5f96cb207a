#pragma once

#include "schema/DimensionSchema.h"
#include "schema/FactorSchema.h"
#include "schema/QuantitySchema.h"
#include "schema/SchemaHeader.h"
#include "schema/SymbolSchema.h"
#include "schema/UnitSchema.h"

#include <TrelvonUnits/Exceptions.h>

#include <utility>

namespace Units {

/// Offers a header to the kinds in order, and gives the data of the first one that accepts it to
/// `take`, a function that can be called with the data of each kind.
///
/// @return  what `take` returns.
/// @throws ValidationException  the kind rejects a constant, or no kind accepts the header.
template <class Take>
auto readKind(const SchemaHeader& header, const Take& take) {
  if (auto data = readDimensionSchema(header)) return take(*std::move(data));
  if (auto data = readFactorSchema(header)) return take(*std::move(data));
  if (auto data = readUnitSchema(header)) return take(*std::move(data));
  if (auto data = readSymbolSchema(header)) return take(*std::move(data));
  if (auto data = readQuantitySchema(header)) return take(*std::move(data));
  note(header.trace, ReadingStep::member("inherits"), ReadingStep::element(0));
  throw ValidationException("Inheritance from an unrecognized base schema.");
}

}  // namespace Units
