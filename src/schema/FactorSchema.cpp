#include "schema/FactorSchema.h"

#include "model/RecordAccess.h"
#include "schema/ConstantReaders.h"
#include "schema/SchemaWriter.h"

#include <map>
#include <utility>
#include <variant>

namespace Units {

namespace {

constexpr const char* simpleWord = "factor";
constexpr const char* derivedWord = "factor.derived";

}  // namespace

std::optional<FactorSchemaData> readFactorSchema(const SchemaHeader& header) {
  using Powers = std::map<std::string, int>;
  if (isOfKind(header, simpleWord))
    return SimpleFactorSchemaData{readConstant<double>(header, "factor", 1.0, readNumber)};
  if (!isOfKind(header, derivedWord)) return std::nullopt;
  const double factor = readConstant<double>(header, "factor", 1.0, readNumber);
  auto parentFactors = readConstant<Powers>(header, "parentFactors", Powers(), readIntegerMap);
  checkParents(header, "parentFactors", parentFactors);
  return DerivedFactorSchemaData{factor, std::move(parentFactors)};
}

std::set<std::string> factorSchemaDependencies(const FactorSchemaData& data) {
  std::set<std::string> dependencies;
  if (const auto* const derived = std::get_if<DerivedFactorSchemaData>(&data))
    for (const auto& [parent, exponent] : derived->parentFactors) dependencies.insert(parent);
  return dependencies;
}

void buildFactor(const std::string& typeId, const FactorSchemaData& data,
                 RecordStore<Factor>& built) {
  if (const auto* const derived = std::get_if<DerivedFactorSchemaData>(&data))
    built.add(Factor(typeId, FactorComponent(derived->factor, derived->parentFactors)));
  else
    built.add(Factor(typeId, FactorComponent(std::get<SimpleFactorSchemaData>(data).factor)));
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
  JSON document = makeSchemaDocument(typeId, isSimple ? simpleWord : derivedWord);
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
