#include "bindings/c/Conversion.h"
#include "bindings/c/Engine.h"
#include "bindings/c/Fault.h"
#include "bindings/c/Guard.h"
#include "bindings/c/List.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/UnitNames.h>

using namespace C;

struct trelvon_names {
  Units::UnitCodes codes;
  Units::UnitNames names;
};

namespace {

Units::UnitCodes codesOf(const trelvon_text* mappings, std::size_t count) {
  if (count != 0) require(mappings);
  auto codes = std::make_unique<Units::UnitCodes>();
  for (std::size_t i = 0; i < count; ++i)
    codes = std::make_unique<Units::UnitCodes>(
        codes->with(Units::UnitCodes::fromText(viewOf(mappings[i]))));
  return *codes;
}

/// `UnitNames` looks at the type id alone.
Units::Unit unitOf(trelvon_text typeId) {
  return Units::Unit(stringOf(typeId), "", Units::System::Metric, Units::PrimitiveUnitComponent());
}

trelvon_name itemOf(trelvon_list& list, const Units::UnitName& name) {
  return {list.keep(name.getText()), list.keep(name.getUnit().getTypeId()),
          static_cast<trelvon_name_kind>(name.getKind()), name.isExact()};
}

static_assert(static_cast<int>(Units::NameKind::CodeExpression) == TRELVON_NAME_CODE_EXPRESSION);

template <class Find>
trelvon_status search(const trelvon_names* names, trelvon_list** found, trelvon_error** error,
                      const Find& find) {
  return guard(error, [&] {
    require(names, found);
    *found = listOf(find(names->names), itemOf).release();
  });
}

/// @throws Fault  a text names no unit, or several.
std::string onlyUnit(const Units::UnitNames& names, trelvon_text text) {
  const auto found = names.findBest(viewOf(text));
  if (found.size() == 1) return found.front().getUnit().getTypeId();
  throw Fault(
      TRELVON_UNRECOGNIZED,
      stringOf(text) + (found.empty() ? " does not name a unit." : " names more than one unit."));
}

}  // namespace

trelvon_status trelvon_names_create(const trelvon_engine* engine, const trelvon_text* mappings,
                                    size_t count, trelvon_names** names, trelvon_error** error) {
  const auto create = [&] {
    require(engine, names);
    const Units::UnitCodes codes = codesOf(mappings, count);
    *names = new trelvon_names{codes, Units::UnitNames(*engine->units, codes)};
  };
  return guard(error, create, TRELVON_PARSE);
}

void trelvon_names_free(trelvon_names* names) { delete names; }

trelvon_status trelvon_names_find(const trelvon_names* names, trelvon_text text,
                                  trelvon_list** found, trelvon_error** error) {
  return search(names, found, error,
                [&](const Units::UnitNames& all) { return all.find(viewOf(text)); });
}

trelvon_status trelvon_names_find_best(const trelvon_names* names, trelvon_text text,
                                       trelvon_list** found, trelvon_error** error) {
  return search(names, found, error,
                [&](const Units::UnitNames& all) { return all.findBest(viewOf(text)); });
}

trelvon_status trelvon_convert_named(const trelvon_engine* engine, const trelvon_names* names,
                                     double value, trelvon_text from, trelvon_text to,
                                     double* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, names, result);
    const std::string source = onlyUnit(names->names, from);
    *result = engine->units->convert(value, source, onlyUnit(names->names, to));
  });
}

trelvon_status trelvon_conversion_create_named(const trelvon_engine* engine,
                                               const trelvon_names* names, trelvon_text from,
                                               trelvon_text to, trelvon_conversion** conversion,
                                               trelvon_error** error) {
  return guard(error, [&] {
    require(engine, names, conversion);
    const std::string source = onlyUnit(names->names, from), target = onlyUnit(names->names, to);
    *conversion = new trelvon_conversion{Units::PreparedConversion(*engine->units, source, target)};
  });
}

trelvon_status trelvon_names_find_code(const trelvon_names* names, trelvon_text system,
                                       trelvon_text code, trelvon_list** found,
                                       trelvon_error** error) {
  return search(names, found, error, [&](const Units::UnitNames& all) {
    return all.findCode(viewOf(system), viewOf(code));
  });
}

trelvon_status trelvon_names_suggest(const trelvon_names* names, trelvon_text text, size_t count,
                                     trelvon_list** found, trelvon_error** error) {
  return search(names, found, error,
                [&](const Units::UnitNames& all) { return all.suggest(viewOf(text), count); });
}

trelvon_status trelvon_names_completions(const trelvon_names* names, trelvon_text prefix,
                                         size_t count, trelvon_list** found,
                                         trelvon_error** error) {
  return search(names, found, error, [&](const Units::UnitNames& all) {
    return all.completions(viewOf(prefix), count);
  });
}

trelvon_status trelvon_names_of(const trelvon_names* names, trelvon_text unit, trelvon_list** found,
                                trelvon_error** error) {
  return search(names, found, error,
                [&](const Units::UnitNames& all) { return all.namesOf(unitOf(unit)); });
}

trelvon_status trelvon_names_why_not(const trelvon_names* names, trelvon_text text, char* buffer,
                                     size_t* size, trelvon_error** error) {
  return guard(error, [&] {
    require(names, size);
    write(names->names.whyNot(viewOf(text)), {buffer, size});
  });
}

trelvon_status trelvon_names_unambiguous(const trelvon_names* names, trelvon_text unit,
                                         char* buffer, size_t* size, trelvon_error** error) {
  return guard(error, [&] {
    require(names, size);
    write(names->names.unambiguousName(unitOf(unit)), {buffer, size});
  });
}

trelvon_status trelvon_local_id(trelvon_text type_id, char* buffer, size_t* size,
                                trelvon_error** error) {
  return guard(error, [&] { write(Units::UnitNames::localId(viewOf(type_id)), {buffer, size}); });
}

trelvon_status trelvon_names_systems(const trelvon_names* names, trelvon_list** systems,
                                     trelvon_error** error) {
  return guard(error, [&] {
    require(names, systems);
    *systems = listOfTexts(names->codes.getSystems()).release();
  });
}

trelvon_status trelvon_names_codes(const trelvon_names* names, trelvon_text unit,
                                   trelvon_text system, trelvon_list** codes,
                                   trelvon_error** error) {
  return guard(error, [&] {
    require(names, codes);
    *codes = listOfTexts(names->codes.getCodes(stringOf(unit), stringOf(system))).release();
  });
}
