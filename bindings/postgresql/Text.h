/* Texts between the server, which has them in the encoding of the database, and the library. */
#ifndef TRELVON_POSTGRESQL_TEXT_H
#define TRELVON_POSTGRESQL_TEXT_H

#include "bindings/postgresql/Postgres.h"

/* What one call takes. A formula of 1 MiB is read within a tenth of a second; an explanation has a
   hundred times the size of its formula. */
enum { MOST_OF_NAME = 10000, MOST_OF_FORMULA = 1 << 20, MOST_OF_EXPLAINED = 1 << 16 };

/* Reads a text as UTF-8. Refuses a longer one; `what` says in the message what it is. */
trelvon_text utf8_of(const text* read, size_t most, const char* what);

/* The same for bytes in the encoding of the database. */
trelvon_text utf8_of_bytes(const char* bytes, size_t size, size_t most, const char* what);

/* A C string in the encoding of the database. Invalid bytes are shown as \xNN. */
char* server_string(trelvon_text from);

text* server_text(trelvon_text from);

/* The same as `server_string` for messages and explanations: what the encoding does not have is shown as
   <U+NNNN>, so that no error hides the message. */
char* shown_string(trelvon_text from);

/* A copy of a text of the library, in the current memory context. */
trelvon_text copied(trelvon_text from);

Datum jsonb_of(const char* json);

/* Calls `function(ARGUMENTS..., buffer, &size, error)` and sets `result` to what it wrote. */
#define WRITE_TEXT(result, guess, function, ...)                                              \
  do {                                                                                        \
    const size_t write_room = (guess);                                                        \
    size_t write_size = write_room;                                                           \
    char* write_buffer = palloc(write_room);                                                  \
    trelvon_status write_status = function(__VA_ARGS__, write_buffer, &write_size, NULL);     \
    if (write_status == TRELVON_ARGUMENT && write_size > write_room) {                        \
      pfree(write_buffer);                                                                    \
      write_buffer = palloc(write_size);                                                      \
      write_status = function(__VA_ARGS__, write_buffer, &write_size, NULL);                  \
    }                                                                                         \
    if (write_status != TRELVON_OK) {                                                         \
      held* const write_refused = hold();                                                     \
      refuse(function(__VA_ARGS__, NULL, &write_size, &write_refused->error), write_refused); \
    }                                                                                         \
    (result) = (trelvon_text){write_buffer, write_size};                                      \
  } while (0)

#endif
