/// Loads folders and reports what is wrong in them, then checks a single definition.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const Schemas::SchemaReport load =
      Schemas::loadFolders({schemas + "/core", schemas + "/symbols"}, *engine, {});
  std::cout << load.getFileCount(Schemas::FileFate::Loaded) << " files loaded, "
            << load.getErrorCount() << " errors\n\n";

  const std::string cubit = R"({
  "typeid": "example.unit:cubit-1.0.0",
  "inherits": ["vellamor.unit:unit.derived-1.0.0"],
  "constants": [
    {"id": "name", "value": "cubit"}, {"id": "unitSystem", "value": "imperial"},
    {"id": "factor", "value": 1.5},
    {"id": "parentUnits", "value": {"trelvon.unit:foor-1.0.0": 1}}
  ]
})";
  std::cout << Schemas::checkText(cubit, "cubit.json", *engine).toText();
}
