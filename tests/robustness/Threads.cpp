/// Four threads read one engine with every reading operation, from its first call on, apply the
/// same prepared conversions, and give what one thread gives; then each of them fills an engine of
/// its own. For ThreadSanitizer to watch.
#include <atomic>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Operations.h"

namespace {

constexpr int threadCount = 4;

void onAllThreads(const std::function<void(int)>& action) {
  std::atomic<int> waiting{threadCount};
  std::vector<std::thread> threads;
  for (int number = 0; number < threadCount; ++number)
    threads.emplace_back([&, number] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();  // so that first calls meet
      action(number);
    });
  for (std::thread& thread : threads) thread.join();
}

std::vector<std::string> resultsOn(Units::UnitsEngine& engine, std::size_t first) {
  static const std::vector<Operation> operations = readingOperations();
  std::vector<std::string> results(operations.size());
  for (std::size_t i = 0; i < operations.size(); ++i) {
    // Each thread begins elsewhere, so that different operations meet.
    const std::size_t at = (first + i) % operations.size();
    results[at] = outcome([&] { return operations[at].run(engine); });
  }
  return results;
}

std::string applied(const Units::PreparedConversion& prepared) {
  double values[] = {-1, 0, 0.1, 1, 1e300};
  std::string all = bits(prepared(2));
  prepared.convert(values, values, std::size(values));
  for (const double value : values) all += ' ' + bits(value);
  return all;
}

}  // namespace

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : 100;
  std::vector<std::vector<std::string>> results(threadCount);
  for (int round = 0; round < rounds; ++round) {
    const Engine shared = sampleEngine();
    const Units::PreparedConversion prepared(*shared, "foot", "inch");
    const Units::PreparedConversion inverted(*shared, "foot", "perInch");
    onAllThreads([&](int number) {
      const auto index = static_cast<std::size_t>(number);
      results[index] = resultsOn(*shared, index * 5);
      results[index].push_back(applied(prepared) + applied(inverted));
    });
    std::vector<std::string> alone = resultsOn(*sampleEngine(), 0);
    alone.push_back(applied(prepared) + applied(inverted));
    for (const auto& result : results) check(result == alone, "threads that share an engine");
  }

  std::vector<std::string> described(threadCount);
  onAllThreads([&](int number) {
    const auto index = static_cast<std::size_t>(number);
    for (int round = 0; round < rounds; ++round) {
      const Engine own = sampleEngine();
      for (const Operation& operation : allOperations())
        outcome([&] { return operation.run(*operation.start()); });
      described[index] = describe(*own);
    }
  });
  for (const std::string& text : described)
    check(text == describe(*sampleEngine()), "threads with engines of their own");
  report(std::to_string(rounds) + " rounds on " + std::to_string(threadCount) + " threads");
  return verdict();
}
