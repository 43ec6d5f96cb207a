#include "schema/SymbolSchema.h"

#include "model/RecordAccess.h"
#include "registry/RecordChecks.h"
#include "schema/ConstantReaders.h"
#include "schema/FindDependency.h"
#include "schema/SchemaWriter.h"
#include "schema/UnitSchema.h"

#include <utility>
#include <vector>

namespace Units {

namespace {

constexpr const char* compositeWord = "symbol";
constexpr const char* prefixOrSuffixWord = "symbol.prefixOrSuffix";

std::string_view readUnit(const SchemaHeader& header) {
  return readConstant<std::string_view>(header, "unit", std::nullopt, readTypedValue);
}

std::optional<PrefixOrSuffix> makePrefixOrSuffix(const SymbolSchemaData& data) {
  if (!data.prefixOrSuffix) return std::nullopt;
  const auto& [text, placement, space] = *data.prefixOrSuffix;
  return PrefixOrSuffix(std::string(text),
                        placement == "Prefix" ? Placement::Prefix : Placement::Suffix, space);
}

}  // namespace

std::optional<SymbolSchemaData> readSymbolSchema(const SchemaHeader& header) {
  if (isOfKind(header, compositeWord)) {
    SymbolSchemaData data{readUnit(header), std::nullopt};
    note(header.trace, ReadingStep::member("typeid"));
    checkSpecialSymbol(header.typeId);
    return data;
  }
  if (!isOfKind(header, prefixOrSuffixWord)) return std::nullopt;
  using Text = std::string_view;
  const Text unit = readUnit(header);
  const Text text = readConstant<Text>(header, "text", std::nullopt, readString);
  const Text placement = readConstant<Text>(header, "placement", std::nullopt, readNonEmptyString);
  const bool space = readConstant<bool>(header, "space", std::nullopt, readBoolean);
  return SymbolSchemaData{unit, PrefixOrSuffixSchemaData{text, placement, space}};
}

void addPending(const SymbolSchemaData& data, SchemaIds& ids) {
  ids.addPending(SymbolSchema{ids.refer(data.unit), makePrefixOrSuffix(data)});
}

Symbol build(const SharedText& typeId, SymbolSchema& schema, const Registries& registries) {
  const Unit& unit = findDependency(registries.units, schema.unit, typeId);
  return RecordAccess::make<Symbol>(typeId, unit, schema.prefixOrSuffix);
}

void collectSymbolReferences(const Symbol& symbol, References& out,
                             const RecordStore<Unit>& units) {
  const Unit& unit = RecordAccess::unit(symbol);
  out.typeIds.insert(RecordAccess::typeId(unit));
  collectUnitReferences(storedNode(units, RecordAccess::typeId(unit)), out);
}

std::string writeSymbolSchema(const Symbol& symbol) {
  const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol);
  JSON document = makeSchemaDocument(RecordAccess::typeId(symbol),
                                     decoration ? prefixOrSuffixWord : compositeWord);
  std::vector<JSON> constants;
  constants.push_back(
      makeTypedValueProperty(document, "unit", RecordAccess::typeId(RecordAccess::unit(symbol))));
  if (decoration) {
    const std::string placement =
        decoration->getPlacement() == Placement::Prefix ? "Prefix" : "Suffix";
    constants.push_back(makeValueProperty(document, "text", RecordAccess::text(*decoration)));
    constants.push_back(makeValueProperty(document, "placement", placement));
    constants.push_back(makeValueProperty(document, "space", decoration->hasSpace()));
  }
  setConstants(document, std::move(constants));
  return document.toString();
}

}  // namespace Units
