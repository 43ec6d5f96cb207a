/* Lets the script of the page answer what replaces an identifier: it cannot make a pointer to a
   function of its own. */
#include <TrelvonUnits/trelvon.h>

#include <emscripten.h>

/* What the script gives for this import is in library.mjs. */
EM_JS(int, page_resolve, (const char* name, size_t size, trelvon_answer* answer), {});

trelvon_resolver page_resolver(void);

static trelvon_status resolve(void* context, trelvon_text name, trelvon_answer* answer) {
  (void)context;
  return (trelvon_status)page_resolve(name.data, name.size, answer);
}

trelvon_resolver page_resolver(void) { return resolve; }
