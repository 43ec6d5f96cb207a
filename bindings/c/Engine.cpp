#include "bindings/c/Engine.h"

#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <algorithm>
#include <optional>
#include <string_view>

using namespace C;

static_assert(std::string_view(TRELVON_VERSION) == TRELVON_PROJECT_VERSION);

namespace {

/// The engine takes a byte: a larger number must not be truncated to one.
unsigned char digitsOf(unsigned count) { return static_cast<unsigned char>(std::min(count, 255u)); }

std::optional<std::string> symbolOf(const trelvon_text* symbol) {
  if (symbol == nullptr) return std::nullopt;
  return stringOf(*symbol);
}

const std::string* pointerTo(const std::optional<std::string>& text) {
  return text ? &*text : nullptr;
}

}  // namespace

const char* trelvon_version(void) { return TRELVON_VERSION; }

trelvon_status trelvon_engine_create(trelvon_engine** engine, trelvon_error** error) {
  return guard(error, [&] {
    require(engine);
    std::unique_ptr<Units::UnitsEngine> units(Units::CreateUnitsEngine());
    *engine = new trelvon_engine{std::move(units)};
  });
}

void trelvon_engine_free(trelvon_engine* engine) { delete engine; }

trelvon_status trelvon_convert(const trelvon_engine* engine, double value, trelvon_text from,
                               trelvon_text to, double* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, result);
    *result = engine->units->convert(value, stringOf(from), stringOf(to));
  });
}

trelvon_status trelvon_can_convert(const trelvon_engine* engine, trelvon_text from, trelvon_text to,
                                   int* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, result);
    *result = engine->units->canConvert(stringOf(from), stringOf(to));
  });
}

trelvon_status trelvon_format_fixed(const trelvon_engine* engine, double value, unsigned places,
                                    const trelvon_text* symbol, int trim, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, size);
    const std::optional<std::string> typeId = symbolOf(symbol);
    write(engine->units->formatFixedPoint(value, digitsOf(places), pointerTo(typeId), trim != 0),
          {buffer, size});
  });
}

trelvon_status trelvon_format_fractional(const trelvon_engine* engine, double value,
                                         unsigned precision, const trelvon_text* symbol,
                                         char* buffer, size_t* size, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, size);
    const std::optional<std::string> typeId = symbolOf(symbol);
    write(engine->units->formatFractional(value, digitsOf(precision), pointerTo(typeId)),
          {buffer, size});
  });
}
