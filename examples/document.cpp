/// A document that stores its definitions, so it reads the same on a computer without them.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <set>
#include <string>

namespace {

const std::string cubit = "my.unit:cubit-1.0.0", cubitSymbol = "my.symbol:cubit-1.0.0";
const std::string meter = "trelvon.unit:meter-1.0.0";

std::unique_ptr<Units::UnitsEngine> makeEngine() {
  return std::unique_ptr<Units::UnitsEngine>(Units::CreateUnitsEngine());
}

/// Bundles the definitions that `used` needs: a line, then each text and a NUL.
std::string bundleOf(const Units::UnitsEngine& engine, const std::set<std::string>& used) {
  std::set<std::string> all = used;
  for (const std::string& typeId : used) all.merge(engine.getDependencies(typeId));
  std::string bundle = "TrelvonUnits-schema-bundle-1\n";
  for (const std::string& typeId : all) bundle += engine.getDefinition(typeId) + '\0';
  std::cout << all.size() << " definitions, " << bundle.size() << " bytes\n";
  return bundle;
}

std::string save(const std::string& schemas) {
  const auto engine = makeEngine();
  Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + "/core", *engine);
  engine->addUnit(Units::Unit(cubit, "cubit", Units::System::Imperial,
                              Units::DerivedUnitComponent({{"trelvon.unit:inch-1.0.0", 1}}, 18.0)));
  engine->addSymbol(Units::Symbol(cubitSymbol, engine->getUnit(cubit),
                                  Units::PrefixOrSuffix("cbt", Units::Placement::Suffix, true)));
  return bundleOf(*engine, {cubit, cubitSymbol, meter});
}

/// Reports which definitions of an engine differ from those of a document.
void compare(const Units::UnitsEngine& document, const Units::UnitsEngine& own) {
  for (const auto& [typeId, unit] : document.getUnits())
    if (own.isRegistered(typeId) && own.getDefinition(typeId) != document.getDefinition(typeId))
      std::cout << typeId << " (" << unit.getName() << ") is another one here\n";
}

}  // namespace

int main(int, char** arguments) {
  const std::string document = save(arguments[1]);

  const auto opened = makeEngine();
  Schemas::SchemaBundle::addDefinitionsFromBuffer(document, *opened);
  const double cubits = opened->evaluateExpressionInUnit(cubit, "3 cbt / 2");
  std::cout << opened->formatFixedPoint(cubits, 2, &cubitSymbol, true) << " = "
            << opened->convert(cubits, cubit, meter) << " m\n";

  const auto own = makeEngine();
  Schemas::SchemaUtility::addDefinitionsFromFolder(std::string(arguments[1]) + "/core", *own);
  own->addUnit(Units::Unit(cubit, "cubit", Units::System::Imperial,
                           Units::DerivedUnitComponent({{"trelvon.unit:inch-1.0.0", 1}}, 17.5)));
  compare(*opened, *own);
}
