#include "bindings/postgresql/Fault.h"

#include "bindings/postgresql/Text.h"

enum { MOST_OF_MESSAGE = 8000 };

int sqlstate_of(trelvon_status status) {
  switch (status) {
    case TRELVON_UNRECOGNIZED:
      return ERRCODE_UNITS_UNRECOGNIZED;
    case TRELVON_INCOMPATIBLE:
      return ERRCODE_UNITS_INCOMPATIBLE;
    case TRELVON_PRECISION:
      return ERRCODE_UNITS_PRECISION;
    case TRELVON_PARSE:
      return ERRCODE_UNITS_FORMULA;
    case TRELVON_VALIDATION:
    case TRELVON_FILE:
      return ERRCODE_UNITS_DEFINITIONS;
    case TRELVON_MEMORY:
      return ERRCODE_OUT_OF_MEMORY;
    default:
      return ERRCODE_UNITS;
  }
}

char* message_of(const trelvon_error* error) {
  trelvon_text message = trelvon_error_message(error);
  if (message.size > MOST_OF_MESSAGE) message.size = MOST_OF_MESSAGE;
  return shown_string(message);
}

void refuse(trelvon_status status, held* failed) {
  char* const message = message_of(failed->error);
  release(failed);
  ereport(ERROR, errcode(sqlstate_of(status)), errmsg_internal("%s", message));
}
