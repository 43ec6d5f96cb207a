/// Many threads read one engine at once: formulas, conversions and names.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> filled(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *filled);

  const Units::UnitsEngine& engine = *filled;  // const from here on: no thread adds to it
  const std::string foot = "trelvon.unit:foot-1.0.0", meter = "trelvon.unit:meter-1.0.0";
  const Units::PreparedConversion toMeters(engine, foot, meter);

  std::vector<double> results(8);
  std::vector<std::thread> threads;
  for (std::size_t index = 0; index < results.size(); ++index)
    threads.emplace_back([&, index] {
      const auto length = [&](const std::string&) { return std::to_string(index) + " ft"; };
      results[index] = engine.evaluateExpressionInUnit(meter, "2 * length", length) -
                       toMeters(static_cast<double>(index));
    });
  for (std::thread& thread : threads) thread.join();
  std::cout << std::accumulate(results.begin(), results.end(), 0.0) << " m\n";
}
