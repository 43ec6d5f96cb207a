#include "bindings/c/Engine.h"
#include "bindings/c/Guard.h"
#include "bindings/c/List.h"
#include "bindings/c/Text.h"

using namespace C;

trelvon_status trelvon_add_definition(trelvon_engine* engine, trelvon_text schema,
                                      trelvon_list** missing, trelvon_error** error) {
  return guard(error, [&] {
    require(engine);
    const std::string text = stringOf(schema);
    List list = std::make_unique<trelvon_list>();
    list->items = engine->units->addDefinition(text);  // after it, nothing may fail
    if (missing != nullptr) *missing = list.release();
  });
}

trelvon_status trelvon_build_schemas(trelvon_engine* engine, trelvon_error** error) {
  return guard(error, [&] {
    require(engine);
    engine->units->buildSchemas();
  });
}

trelvon_status trelvon_definition(const trelvon_engine* engine, trelvon_text type_id, char* buffer,
                                  size_t* size, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, size);
    write(engine->units->getDefinition(stringOf(type_id)), {buffer, size});
  });
}

trelvon_status trelvon_dependencies(const trelvon_engine* engine, trelvon_text type_id,
                                    trelvon_list** texts, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, texts);
    *texts = listOfTexts(engine->units->getDependencies(stringOf(type_id))).release();
  });
}

trelvon_status trelvon_is_registered(const trelvon_engine* engine, trelvon_text type_id,
                                     int* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, result);
    *result = engine->units->isRegistered(stringOf(type_id));
  });
}
