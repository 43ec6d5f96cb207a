/* Prints the nanoseconds of one trelvon_convert, in an engine with the bundle on standard input.
   web_speed.mjs does the same with the module of the page. */
#include <TrelvonUnits/trelvon.h>

#include <stdio.h>
#include <time.h>

enum { MOST_BYTES = 1 << 22, CALLS = 300000 };

static char bundle[MOST_BYTES];

int main(void) {
  const trelvon_text text = {bundle, fread(bundle, 1, sizeof bundle, stdin)};
  const trelvon_text from = trelvon_string("trelvon.unit:poundForcePerSquareInch-1.0.0"),
                     to = trelvon_string("trelvon.unit:kilopascal-1.0.0");
  trelvon_engine* engine;
  double converted;
  clock_t start;
  int i;
  if (trelvon_engine_create(&engine, NULL) != TRELVON_OK) return 1;
  if (trelvon_add_bundle(engine, text, NULL) != TRELVON_OK) return 1;
  start = clock();
  for (i = 0; i < CALLS; ++i)
    if (trelvon_convert(engine, i, from, to, &converted, NULL) != TRELVON_OK) return 1;
  printf("%.1f\n", (double)(clock() - start) / CLOCKS_PER_SEC * 1e9 / CALLS);
  trelvon_engine_free(engine);
  return 0;
}
