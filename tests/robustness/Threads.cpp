/// Four threads read one engine with every reading operation, from its first call on, apply the
/// same prepared conversions, and get what one thread gets; then each of them fills an engine of
/// its own. For ThreadSanitizer to watch.
#include "tests/robustness/Operations.h"
#include "tests/support/Check.h"

#include <atomic>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t threadCount = 4;
using Results = std::vector<std::string>;

std::vector<Results> onAllThreads(const std::function<Results(std::size_t)>& action) {
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
  return results;
}

std::string applied(const Units::PreparedConversion& prepared) {
  double values[] = {-1, 0, 0.1, 1, 1e300};
  std::string all = written(prepared(2));
  prepared.convert(values, values, std::size(values));
  for (const double value : values) all += written(value);
  return all;
}

/// A shared engine with conversions that it has prepared.
struct Shared {
  const Engine engine = sampleEngine();
  const Units::PreparedConversion plain{*engine, "foot", "inch"};
  const Units::PreparedConversion inverted{*engine, "foot", "perInch"};

  /// Each thread begins elsewhere, so that different operations meet.
  Results read(std::size_t first) const {
    static const std::vector<Operation> operations = readingOperations();
    Results results(operations.size());
    for (std::size_t i = 0; i < operations.size(); ++i) {
      const std::size_t at = (first + i) % operations.size();
      results[at] = outcome([&] { return operations[at].run(*engine); });
    }
    results.push_back(applied(plain) + applied(inverted));
    return results;
  }
};

}  // namespace

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : 100;
  for (int round = 0; round < rounds; ++round) {
    const Shared shared;
    const Results alone = Shared().read(0);
    for (const Results& got :
         onAllThreads([&](std::size_t number) { return shared.read(number * 5); }))
      check(got == alone, "threads that share an engine");
  }
  const auto fill = [rounds](std::size_t) {
    Results described;
    for (int round = 0; round < rounds; ++round) {
      const Engine own = sampleEngine();
      for (const Operation& operation : allOperations())
        outcome([&] { return operation.run(*operation.start()); });
      described = {describe(*own)};
    }
    return described;
  };
  for (const Results& got : onAllThreads(fill))
    check(got == Results{describe(*sampleEngine())}, "threads with engines of their own");
  report(rounds, " rounds on ", threadCount, " threads");
  return verdict();
}
