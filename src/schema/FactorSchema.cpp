#include "schema/FactorSchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/SchemaWriter.h"

#include <utility>

namespace Units {

namespace {

constexpr const char* simpleWord = "factor";
constexpr const char* derivedFactorWord = "factor.derived";

}  // namespace

std::optional<FactorSchemaData> readFactorSchema(const SchemaHeader& header) {
  if (isOfKind(header, simpleWord))
    return FactorSchemaData{readConstant<double>(header, "factor", 1.0, readNumber), {}};
  if (!isOfKind(header, derivedFactorWord)) return std::nullopt;
  const double factor = readConstant<double>(header, "factor", 1.0, readNumber);
  auto parents = readConstant<ParentViews>(header, "parentFactors", ParentViews(), readIntegerMap);
  checkParents(header, "parentFactors", parents);
  return FactorSchemaData{factor, std::move(parents)};
}

FactorComponent makeFactorComponent(const FactorSchemaData& data, SchemaIds& ids) {
  return RecordAccess::make<FactorComponent>(data.factor, ids.refer(data.parentFactors));
}

void addPending(const FactorSchemaData& data, SchemaIds& ids) {
  const FactorComponent component = makeFactorComponent(data, ids);
  ids.addPending(RecordAccess::make<Factor>(ids.typeId(), component));
}

void collectParentFactors(const std::vector<ParentPower<Factor>>& parents, References& out) {
  std::vector<const std::vector<ParentPower<Factor>>*> waiting = {&parents};
  while (!waiting.empty()) {
    const auto& current = *waiting.back();
    waiting.pop_back();
    for (const auto& [parent, exponent] : current) {
      if (!out.visitedFactors.insert(parent).second) continue;
      out.typeIds.insert(RecordAccess::typeId(parent->record));
      waiting.push_back(&parent->parents);
    }
  }
}

std::string writeFactorSchema(const Factor& factor) {
  const std::string& typeId = RecordAccess::typeId(factor);
  const FactorComponent& component = RecordAccess::factorComponent(factor);
  const bool isSimple = RecordAccess::parentFactorPowers(component).empty();
  JSON document = makeSchemaDocument(typeId, isSimple ? simpleWord : derivedFactorWord);
  std::vector<JSON> constants;
  addFactorConstants(document, typeId, component, constants);
  setConstants(document, std::move(constants));
  return document.toString();
}

void addFactorConstants(JSON& document, const std::string& typeId, const FactorComponent& component,
                        std::vector<JSON>& constants) {
  checkWritable(component.getFactor(), typeId);
  constants.push_back(makeValueProperty(document, "factor", component.getFactor()));
  const auto& parents = RecordAccess::parentFactorPowers(component);
  if (!parents.empty()) constants.push_back(makePowersProperty(document, "parentFactors", parents));
}

}  // namespace Units
