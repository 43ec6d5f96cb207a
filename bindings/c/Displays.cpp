#include "bindings/c/Engine.h"
#include "bindings/c/Fault.h"
#include "bindings/c/List.h"
#include "bindings/c/Writing.h"

#include <TrelvonUnits/ValueDisplay.h>

using namespace C;

struct trelvon_display {
  Units::ValueDisplay value;
};

trelvon_status trelvon_display_create(const trelvon_engine* engine, trelvon_text json,
                                      trelvon_display** display, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, display);
    *display = new trelvon_display{Units::ValueDisplay::fromJson(*engine->units, viewOf(json))};
  });
}

void trelvon_display_free(trelvon_display* display) { delete display; }

trelvon_status trelvon_display_show(const trelvon_display* display, double value, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(display, {buffer, size}, error,
                 [&](const Units::ValueDisplay& shown) { return shown.show(value); });
}

trelvon_status trelvon_display_read(const trelvon_display* display, trelvon_text text,
                                    double* value, trelvon_error** error) {
  return guard(error, [&] {
    require(display, value);
    const Units::DisplayReading reading = display->value.read(viewOf(text));
    if (!reading.isRead()) {
      Fault fault(TRELVON_PARSE, reading.sentence());
      fault.span = Span{reading.span().begin, reading.span().end};
      throw fault;
    }
    *value = reading.value();
  });
}

trelvon_status trelvon_display_read_json(const trelvon_display* display, trelvon_text text,
                                         char* buffer, size_t* size, trelvon_error** error) {
  return written(display, {buffer, size}, error, [&](const Units::ValueDisplay& shown) {
    return shown.read(viewOf(text)).toJson();
  });
}

trelvon_status trelvon_display_json(const trelvon_display* display, char* buffer, size_t* size,
                                    trelvon_error** error) {
  return written(display, {buffer, size}, error, &Units::ValueDisplay::toJson);
}

trelvon_status trelvon_display_unit(const trelvon_display* display, char* buffer, size_t* size,
                                    trelvon_error** error) {
  return written(display, {buffer, size}, error, &Units::ValueDisplay::unitTypeId);
}

trelvon_status trelvon_display_locales(trelvon_list** locales, trelvon_error** error) {
  return guard(error, [&] {
    require(locales);
    *locales = listOfTexts(Units::ValueDisplay::locales()).release();
  });
}
