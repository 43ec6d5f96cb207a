/* Loads the shipped definitions, converts, evaluates and formats. */
#include <TrelvonUnits/trelvon.h>

#include <stdio.h>

int main(int count, char** arguments) {
  const trelvon_text foot = trelvon_string("trelvon.unit:foot-1.0.0");
  const trelvon_text meter = trelvon_string("trelvon.unit:meter-1.0.0");
  const trelvon_text feet_and_inches = trelvon_string("trelvon.symbol:feetAndInches-1.0.0");
  const char* const packs[] = {"core", "symbols", "aliases"};
  trelvon_engine* engine;
  trelvon_error* error = NULL;
  double value;
  char text[256];
  size_t size = sizeof text;

  if (count < 2 || trelvon_engine_create(&engine, &error) != TRELVON_OK) return 1;
  for (int i = 0; i < 3; ++i) {
    snprintf(text, sizeof text, "%s/%s", arguments[1], packs[i]);
    if (trelvon_add_folder(engine, trelvon_string(text), &error) != TRELVON_OK) return 1;
  }
  if (trelvon_convert(engine, 6, foot, meter, &value, NULL) == TRELVON_OK) printf("%g\n", value);
  if (trelvon_evaluate(engine, meter, trelvon_string("2 ft + 3 in"), NULL, NULL, &value, NULL) ==
      TRELVON_OK)
    printf("%g\n", value);
  if (trelvon_format_fractional(engine, 5.53125, 4, &feet_and_inches, text, &size, NULL) ==
      TRELVON_OK)
    printf("%.*s\n", (int)size, text);
  if (trelvon_evaluate(engine, meter, trelvon_string("2 ft + 3 kg"), NULL, NULL, &value, &error) !=
      TRELVON_OK) {
    const trelvon_text message = trelvon_error_message(error);
    printf("%.*s\n", (int)message.size, message.data);
    trelvon_error_free(error);
  }
  trelvon_engine_free(engine);
  return 0;
}
