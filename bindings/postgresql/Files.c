#include "bindings/postgresql/Files.h"

#include "bindings/postgresql/Catalog.h"
#include "bindings/postgresql/Fault.h"

#include <sys/stat.h>

#include <common/cryptohash.h>
#include <common/sha2.h>
#include <utils/resowner.h>

/* A larger file is not a bundle, or is one for another machine. */
enum { MOST_OF_FILE = 1 << 28 };

char* catalog_path(const char* name) {
  char share[MAXPGPATH];
  get_share_path(my_exec_path, share);
  return psprintf("%s/trelvonunits/%s", share, name);
}

static pg_attribute_noreturn() void refuse_file(const char* path, const char* why) {
  ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS), errmsg("file \"%s\" %s", path, why));
}

trelvon_text read_whole_file(const char* path) {
  struct stat about;
  char* bytes;
  size_t size;
  FILE* file;
  if (stat(path, &about) == 0 && !S_ISREG(about.st_mode)) /* To open a pipe would wait. */
    refuse_file(path, "is not a regular file");
  file = AllocateFile(path, PG_BINARY_R);
  if (file == NULL || fstat(fileno(file), &about) != 0)
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("could not open file \"%s\": %m", path));
  if (about.st_size > MOST_OF_FILE) refuse_file(path, "is too large");
  bytes = palloc((size_t)about.st_size + 1);
  size = fread(bytes, 1, (size_t)about.st_size, file);
  if (ferror(file))
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("could not read file \"%s\": %m", path));
  FreeFile(file);
  return (trelvon_text){bytes, size};
}

static bool hash(trelvon_text bytes, uint8* digest, size_t size) {
  pg_cryptohash_ctx* const context = pg_cryptohash_create(PG_SHA256);
  const bool done = context != NULL && pg_cryptohash_init(context) == 0 &&
                    pg_cryptohash_update(context, (const uint8*)bytes.data, bytes.size) == 0 &&
                    pg_cryptohash_final(context, digest, size) == 0;
  pg_cryptohash_free(context);
  return done;
}

/* Hashing needs an owner, which the server's first process does not have. */
static bool has_digest(trelvon_text bytes, const char* expected) {
  uint8 digest[PG_SHA256_DIGEST_LENGTH];
  char digits[2 * PG_SHA256_DIGEST_LENGTH + 1] = "";
  const ResourceOwner caller = CurrentResourceOwner;
  const ResourceOwner owner = ResourceOwnerCreate(caller, "trelvonunits");
  bool done;
  CurrentResourceOwner = owner;
  done = hash(bytes, digest, sizeof digest);
  CurrentResourceOwner = caller;
  ResourceOwnerDelete(owner);
  if (!done) ereport(ERROR, errcode(ERRCODE_INTERNAL_ERROR), errmsg("SHA-256 cannot be computed"));
  hex_encode((const char*)digest, sizeof digest, digits);
  return strcmp(digits, expected) == 0;
}

trelvon_text read_catalog(const char* path) {
  const trelvon_text bundle = read_whole_file(path);
  if (bundle.size != CATALOG_SIZE || !has_digest(bundle, CATALOG_SHA256))
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("file \"%s\" is not the catalog of this version of trelvonunits", path),
            errdetail("It has %zu bytes; the catalog has %d, and the SHA-256 %s.", bundle.size,
                      CATALOG_SIZE, CATALOG_SHA256),
            errhint("Install the extension again."));
  return bundle;
}
