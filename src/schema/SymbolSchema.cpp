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

std::string readUnit(const SchemaHeader& header) {
  return readConstant<std::string>(header, "unit", std::nullopt, readTypedValue);
}

std::optional<PrefixOrSuffix> makePrefixOrSuffix(const SymbolSchemaData& data) {
  if (!data.prefixOrSuffix) return std::nullopt;
  const auto& [text, placement, space] = *data.prefixOrSuffix;
  return PrefixOrSuffix(text, placement == "Prefix" ? Placement::Prefix : Placement::Suffix, space);
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
  auto unit = readUnit(header);
  auto text = readConstant<std::string>(header, "text", std::nullopt, readString);
  auto placement = readConstant<std::string>(header, "placement", std::nullopt, readNonEmptyString);
  const bool space = readConstant<bool>(header, "space", std::nullopt, readBoolean);
  return SymbolSchemaData{std::move(unit),
                          PrefixOrSuffixSchemaData{std::move(text), std::move(placement), space}};
}

std::set<std::string> symbolSchemaDependencies(const SymbolSchemaData& data) { return {data.unit}; }

void buildSymbol(const std::string& typeId, const SymbolSchemaData& data,
                 const KindRegistry<UnitSchemaData, Unit>& units, RecordStore<Symbol>& built) {
  const Unit& unit = findDependency(units, data.unit, typeId);
  built.add(Symbol(typeId, unit, makePrefixOrSuffix(data)));
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
