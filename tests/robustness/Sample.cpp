#include "tests/robustness/Sample.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

std::string symbolText(const std::string& typeId, const std::string& unit, const std::string& text,
                       const std::string& placement) {
  return schema(typeId, "symbol.prefixOrSuffix",
                "{'id':'unit','typedValue':{'typeid':'" + unit + "'}},{'id':'text','value':'" +
                    text + "'},{'id':'placement','value':'" + placement +
                    "'},{'id':'space','value':true}");
}

}  // namespace

std::string quoted(std::string text) {
  std::replace(text.begin(), text.end(), '\'', '"');
  return text;
}

std::string schema(const std::string& typeId, const std::string& kind,
                   const std::string& constants) {
  return quoted("{'typeid':'" + typeId + "','inherits':['vellamor.unit:" + kind +
                "-1.0.0'],'constants':[" + constants + "]}");
}

const std::vector<std::string>& sampleSchemas() {
  static const std::vector<std::string> all = {
      schema("length", "dimension", ""),
      schema("twelve", "factor", "{'id':'factor','value':12}"),
      schema("gross", "factor.derived", "{'id':'parentFactors','value':{'twelve':2}}"),
      schema("inch", "unit.primitive.dimensional",
             named + ",{'id':'dimension','typedValue':{'typeid':'length'}}"),
      schema("kelvin", "unit.primitive", named),
      schema("foot", "unit.derived",
             named + ",{'id':'parentUnits','value':{'inch':1}},"
                     "{'id':'parentFactors','value':{'twelve':1}}"),
      schema("area", "unit.derived", named + ",{'id':'parentUnits','value':{'foot':2}}"),
      schema("perInch", "unit.derived", named + ",{'id':'parentUnits','value':{'inch':-1}}"),
      schema("celsius", "unit.absolute",
             named + ",{'id':'offset','value':273.15},"
                     "{'id':'parentUnit','typedValue':{'typeid':'kelvin'}}"),
      symbolText("ft", "foot", "ft", "Suffix"),
      symbolText("in", "inch", "in", "Suffix"),
      symbolText("dollar", "inch", "$", "Prefix"),
      symbolText("degC", "celsius", "degC", "Suffix"),
      schema("x:feetAndInches-1", "symbol", "{'id':'unit','typedValue':{'typeid':'foot'}}"),
      schema("height", "quantity",
             "{'id':'name','value':'n'},"
             "{'id':'units','typedValue':[{'typeid':'foot'},{'typeid':'inch'}]}")};
  return all;
}

const std::vector<std::string>& sampleTypeIds() {
  static const std::vector<std::string> all = {
      "length",  "twelve",  "gross", "inch", "kelvin", "foot", "area",
      "perInch", "celsius", "ft",    "in",   "dollar", "degC", "x:feetAndInches-1",
      "height"};
  return all;
}

std::string bundleOf(const std::vector<std::string>& texts) {
  std::string bundle = "TrelvonUnits-schema-bundle-1\n";
  for (const std::string& text : texts) bundle.append(text).push_back('\0');
  return bundle;
}

Engine makeEngine() { return Engine(Units::CreateUnitsEngine()); }

void addSample(Units::UnitsEngine& engine) {
  for (const std::string& text : sampleSchemas()) engine.addDefinition(text);
}

Engine sampleEngine() {
  Engine engine = makeEngine();
  addSample(*engine);
  engine->buildSchemas();
  return engine;
}

std::string describe(const Units::UnitsEngine& engine) {
  std::string all;
  const auto add = [&](const auto& records) {
    for (const auto& [typeId, record] : records) {
      all += engine.getDefinition(typeId);
      for (const std::string& below : engine.getDependencies(typeId)) all += ' ' + below;
      all += '\n';
    }
    all += '\n';
  };
  add(engine.getDimensions());
  add(engine.getFactors());
  add(engine.getUnits());
  add(engine.getSymbols());
  add(engine.getQuantities());
  for (const std::string& typeId : sampleTypeIds()) all += engine.isRegistered(typeId) ? '1' : '0';
  for (const char* typeId : {"new", "waiting"}) all += engine.isRegistered(typeId) ? '1' : '0';
  return all;
}

std::string bits(double value) {
  std::uint64_t pattern = 0;
  std::memcpy(&pattern, &value, sizeof pattern);
  return std::to_string(pattern);
}
