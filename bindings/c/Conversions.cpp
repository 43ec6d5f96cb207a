#include "bindings/c/Conversion.h"
#include "bindings/c/Engine.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <cstdint>
#include <functional>

using namespace C;

namespace {

/// Whether `count` doubles so far apart fit into memory.
bool fits(std::size_t stride, std::size_t count) {
  return stride == 0 || count - 1 < PTRDIFF_MAX / sizeof(double) / stride;
}

/// Whether the arrays are the same or do not overlap, as the loops over whole arrays require.
bool areApart(const double* from, const double* to, std::size_t count) {
  const std::less_equal<const double*> before;
  return from == to || before(from + count, to) || before(to + count, from);
}

}  // namespace

trelvon_status trelvon_conversion_create(const trelvon_engine* engine, trelvon_text from,
                                         trelvon_text to, trelvon_conversion** conversion,
                                         trelvon_error** error) {
  return guard(error, [&] {
    require(engine, conversion);
    *conversion = new trelvon_conversion{
        Units::PreparedConversion(*engine->units, stringOf(from), stringOf(to))};
  });
}

trelvon_status trelvon_conversion_apply(const trelvon_conversion* conversion, const double* from,
                                        size_t from_stride, double* to, size_t to_stride,
                                        size_t count) {
  if (conversion == nullptr) return TRELVON_ARGUMENT;
  if (count == 0) return TRELVON_OK;
  if (from == nullptr || to == nullptr || (to_stride == 0 && count > 1)) return TRELVON_ARGUMENT;
  if (!fits(from_stride, count) || !fits(to_stride, count)) return TRELVON_ARGUMENT;
  const Units::PreparedConversion& prepared = conversion->prepared;
  if (from_stride == 1 && to_stride == 1 && areApart(from, to, count)) {
    prepared.convert(from, to, count);
  } else {
    for (std::size_t i = 0; i < count; ++i) to[i * to_stride] = prepared(from[i * from_stride]);
  }
  return TRELVON_OK;
}

void trelvon_conversion_free(trelvon_conversion* conversion) { delete conversion; }
