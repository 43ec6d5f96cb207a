#include "bindings/postgresql/Text.h"

#include <catalog/namespace.h>

trelvon_text utf8_of_bytes(const char* bytes, size_t size, size_t most, const char* what) {
  char* converted;
  if (size > most)
    ereport(ERROR, errcode(ERRCODE_PROGRAM_LIMIT_EXCEEDED),
            errmsg("%s of %zu bytes is too long", what, size),
            errdetail("At most %zu bytes are read.", most));
  converted = pg_server_to_any(bytes, (int)size, PG_UTF8);
  if (converted == bytes) return (trelvon_text){bytes, size};
  return (trelvon_text){converted, strlen(converted)};
}

trelvon_text utf8_of(const text* read, size_t most, const char* what) {
  return utf8_of_bytes(VARDATA_ANY(read), VARSIZE_ANY_EXHDR(read), most, what);
}

/* Messages may contain parts of characters. */
static char* valid_utf8(trelvon_text from) {
  StringInfoData shown;
  size_t at = 0;
  initStringInfo(&shown);
  while (at < from.size) {
    const int rest = (int)(from.size - at);
    const int valid = pg_encoding_verifymbstr(PG_UTF8, from.data + at, rest);
    appendBinaryStringInfo(&shown, from.data + at, valid);
    at += (size_t)valid;
    if (valid < rest) appendStringInfo(&shown, "\\x%02X", (unsigned char)from.data[at++]);
  }
  return shown.data;
}

char* server_string(trelvon_text from) {
  char* const utf8 = valid_utf8(from);
  return pg_any_to_server(utf8, (int)strlen(utf8), PG_UTF8);
}

char* shown_string(trelvon_text from) {
  const int encoding = GetDatabaseEncoding();
  char* const utf8 = valid_utf8(from);
  StringInfoData shown;
  const char* at;
  Oid convert;
  if (encoding == PG_UTF8 || encoding == PG_SQL_ASCII) return utf8;
  convert = FindDefaultConversionProc(PG_UTF8, encoding);
  if (!OidIsValid(convert)) return pg_any_to_server(utf8, (int)strlen(utf8), PG_UTF8);
  initStringInfo(&shown);
  for (at = utf8; *at != '\0'; at += pg_utf_mblen((const unsigned char*)at)) {
    unsigned char bytes[MAX_MULTIBYTE_CHAR_LEN * MAX_CONVERSION_GROWTH + 1];
    const int size = pg_utf_mblen((const unsigned char*)at);
    if (pg_do_encoding_conversion_buf(convert, PG_UTF8, encoding,
                                      (unsigned char*)unconstify(char*, at), size, bytes,
                                      sizeof bytes, true) == size)
      appendStringInfoString(&shown, (const char*)bytes);
    else
      appendStringInfo(&shown, "<U+%04X>", utf8_to_unicode((const unsigned char*)at));
  }
  return shown.data;
}

text* server_text(trelvon_text from) { return cstring_to_text(server_string(from)); }

trelvon_text copied(trelvon_text from) {
  char* const copy = palloc(from.size + 1);
  if (from.size != 0) memcpy(copy, from.data, from.size);
  copy[from.size] = '\0';
  return (trelvon_text){copy, from.size};
}

Datum jsonb_of(const char* json) { return DirectFunctionCall1(jsonb_in, CStringGetDatum(json)); }
