/// Four threads read one engine with every reading operation, from its first call on, apply the
/// same prepared conversions, evaluate the same table of parameters, and get what one thread gets;
/// then each of them fills an engine of its own. For ThreadSanitizer to watch.
#include "tests/robustness/Operations.h"
#include "tests/support/Check.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t threadCount = 4;
using Results = std::vector<std::string>;

/// Checks that every thread gets `expected`.
void onAllThreads(const Results& expected, const std::function<Results(std::size_t)>& action) {
  std::vector<Results> results(threadCount);
  std::atomic<std::size_t> waiting{threadCount};
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < threadCount; ++number)
    threads.emplace_back([&, number] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();  // so that first calls meet
      results[number] = action(number);
    });
  for (std::thread& thread : threads) thread.join();
  for (const Results& got : results) check(got == expected, "a thread gets something else");
}

/// A shared engine with conversions that it has prepared, and a table that is due.
struct Shared {
  const Engine engine = sampleEngine();
  const Units::PreparedConversion plain{*engine, "foot", "inch"};
  const Units::PreparedConversion inverted{*engine, "foot", "perInch"};
  Units::ParameterTable table{*engine};

  Shared() {
    for (int i = 0; i < 20; ++i)
      table.set("p" + std::to_string(i), i == 0 ? "1" : "p" + std::to_string(i / 2) + " + other");
    table.set("other", "2");
  }
  const Units::ValueDisplay display =
      Units::ValueDisplay::fromJson(*engine, R"({"symbol":"x:feetAndInches-1","places":2})");

  /// Each thread begins elsewhere, so that different operations meet.
  Results read(std::size_t first) const {
    static const std::vector<Operation> operations = readingOperations();
    Results results(operations.size());
    for (std::size_t i = 0; i < operations.size(); ++i) {
      const std::size_t at = (first + i) % operations.size();
      results[at] = outcome([&] { return operations[at].run(*engine); });
    }
    for (std::size_t i = 0; i < 20; ++i)
      results.push_back(written(table.value("p" + std::to_string((first + i) % 20))));
    std::sort(results.end() - 20, results.end());
    for (double value : {-1.0, 0.0, 0.1, 1e300}) {
      results.push_back(written(inverted(value)));
      const Units::ValueDisplay copy = display;
      results.push_back(copy.read(copy.show(value)).toJson());
      plain.convert(&value, &value, 1);
      results.push_back(written(value));
    }
    return results;
  }
};

Results fill() {
  for (const Operation& operation : allOperations())
    outcome([&] { return operation.run(*operation.start()); });
  return {describe(*sampleEngine())};
}

}  // namespace

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : 100;
  for (int round = 0; round < rounds; ++round) {
    const Shared shared;
    onAllThreads(Shared().read(0), [&](std::size_t number) { return shared.read(number * 5); });
    onAllThreads({describe(*sampleEngine())}, [](std::size_t) { return fill(); });
  }
  report(rounds, " rounds on ", threadCount, " threads");
  return verdict();
}
