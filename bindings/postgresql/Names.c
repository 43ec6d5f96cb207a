#include "bindings/postgresql/Names.h"

#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Finding.h"
#include "bindings/postgresql/Text.h"

enum { MOST_KEPT = 1000, MOST_OF_KEPT_NAME = 120 };

/* A name in the encoding of the database, after a letter for the kind of record. */
typedef struct {
  char name[MOST_OF_KEPT_NAME + 2];
  const char* type_id;
} known_name;

typedef struct {
  const char* from;
  const char* to;
} pair;

typedef struct {
  pair units;
  trelvon_conversion* conversion;
} known_conversion;

static MemoryContext context;
static HTAB* known_names;
static HTAB* known_conversions;
static unsigned known_generation;
static int long_names;

static HTAB* new_table(const char* name, Size key, Size entry, int flags) {
  HASHCTL about = {.keysize = key, .entrysize = entry, .hcxt = context};
  return hash_create(name, 64, &about, HASH_ELEM | HASH_CONTEXT | flags);
}

static void forget(void) {
  if (known_conversions != NULL) {
    HASH_SEQ_STATUS each;
    known_conversion* entry;
    hash_seq_init(&each, known_conversions);
    while ((entry = hash_seq_search(&each)) != NULL) trelvon_conversion_free(entry->conversion);
  }
  known_names = known_conversions = NULL;
  long_names = 0;
  MemoryContextReset(context);
}

void begin_lookups(void) {
  get_engine();
  if (context == NULL)
    context = AllocSetContextCreate(TopMemoryContext, "trelvonunits", ALLOCSET_DEFAULT_SIZES);
  if (known_conversions != NULL && known_generation == engine_generation &&
      hash_get_num_entries(known_names) + long_names <= MOST_KEPT &&
      hash_get_num_entries(known_conversions) <= MOST_KEPT)
    return;
  if (known_generation == engine_generation && ++engine_generation == 0) engine_generation = 1;
  forget();
  known_names =
      new_table("trelvonunits names", MOST_OF_KEPT_NAME + 2, sizeof(known_name), HASH_STRINGS);
  known_conversions =
      new_table("trelvonunits conversions", sizeof(pair), sizeof(known_conversion), HASH_BLOBS);
  known_generation = engine_generation;
}

static const char* called(char kind, const text* name, trelvon_text (*find)(trelvon_text)) {
  const size_t size = VARSIZE_ANY_EXHDR(name);
  const bool is_kept = size <= MOST_OF_KEPT_NAME;
  char key[MOST_OF_KEPT_NAME + 2] = {kind};
  known_name* known;
  trelvon_text found;
  char* type_id;
  if (is_kept) {
    memcpy(key + 1, VARDATA_ANY(name), size);
    known = hash_search(known_names, key, HASH_FIND, NULL);
    if (known != NULL) return known->type_id;
  }
  found = find(utf8_of(name, MOST_OF_NAME, "a name"));
  type_id = MemoryContextStrdup(context, found.data);
  if (!is_kept) {
    ++long_names;
    return type_id;
  }
  known = hash_search(known_names, key, HASH_ENTER, NULL);
  known->type_id = type_id;
  return type_id;
}

const char* unit_called(const text* name) { return called('u', name, find_unit); }
const char* symbol_called(const text* name) { return called('s', name, find_symbol); }
const char* quantity_called(const text* name) { return called('q', name, find_quantity); }

const trelvon_conversion* conversion_between(const char* from, const char* to) {
  pair units = {from, to};
  held* made;
  trelvon_status status;
  known_conversion* known = hash_search(known_conversions, &units, HASH_FIND, NULL);
  if (known != NULL) return known->conversion;
  made = hold();
  status = trelvon_conversion_create(get_engine(), trelvon_string(from), trelvon_string(to),
                                     &made->conversion, &made->error);
  if (status != TRELVON_OK) refuse(status, made);
  known = hash_search(known_conversions, &units, HASH_ENTER, NULL);
  known->conversion = made->conversion;
  made->conversion = NULL;
  return known->conversion;
}
