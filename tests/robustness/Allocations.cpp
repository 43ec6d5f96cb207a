/// Fails every allocation of every operation, once alone and once with all that follow, and checks
/// that the engine is then what its contract says.
#include "tests/robustness/FileLoads.h"
#include "tests/robustness/Operations.h"
#include "tests/support/Check.h"
#include "tests/support/Heap.h"

#include <iterator>
#include <new>

namespace {

/// The engine after a build.
std::string built(Units::UnitsEngine& engine) {
  const std::string said = outcome([&] { engine.buildSchemas(); });
  return said + '\n' + describe(engine);
}

/// What an operation returns where nothing fails, and the engine then.
struct Expectation {
  explicit Expectation(const Operation& operation) {
    const Engine clean = operation.start();
    const std::string before = describe(*clean);
    result = outcome([&] { return operation.run(*clean); });
    after = built(*clean);
    failed = operation.isBuild ? describe(*operation.before()) : before;
    builtWithout = operation.isBuild ? "\n" + failed : built(*operation.start());
  }

  std::string result;
  std::string after;         // with a build after it
  std::string failed;        // where the operation has failed
  std::string builtWithout;  // the same, with a build after that
};

/// Returns whether an allocation failed. A failure is followed by a repeat, or by a build alone.
bool tryOnce(const Operation& operation, const Expectation& expected, long index,
             bool andAllThatFollow, bool repeats, const std::string& where) {
  const Engine engine = operation.start();
  std::string result;
  bool threw = false;
  heap::fail(index, andAllThatFollow);
  heap::pause(operation.startsPaused);
  try {
    result = outcome([&] { return operation.run(*engine); });
  } catch (const std::bad_alloc&) {
    threw = true;
  }
  heap::succeed();
  const bool failed = heap::hasFailed();
  // Where the operation throws anyway, the failed allocation may have been for the exception, for
  // which the language keeps a reserve: then the exception arrives as usual.
  check(threw ? failed : result == expected.result && (!failed || isRefusal(result)), where, ": ",
        result);
  if (threw) {
    check(operation.leavesPending || describe(*engine) == expected.failed,
          where + ": the engine has changed");
    if (repeats) {
      if (operation.isBuild) operation.addPending(*engine);
      check(outcome([&] { return operation.run(*engine); }) == expected.result,
            where + ": the repeat fails");
    } else if (operation.leavesPending) {
      return failed;  // what of its definitions is there may lack parents
    }
  }
  check(built(*engine) == (threw && !repeats ? expected.builtWithout : expected.after),
        where + ": a later build gives something else");
  return failed;
}

/// One row; returns how many allocations the operation makes.
long failEach(const Operation& operation) {
  const Expectation expected(operation);
  bool failed = true;
  long index = 0;
  for (; failed; ++index) {
    failed = false;
    for (const bool andAllThatFollow : {false, true})
      for (const bool repeats : {false, true}) {
        const std::string where = operation.name + (", allocation " + std::to_string(index)) +
                                  (andAllThatFollow ? " and all that follow" : "");
        const long blocks = heap::liveBlocks();
        if (tryOnce(operation, expected, index, andAllThatFollow, repeats, where)) failed = true;
        const long left = heap::liveBlocks() - blocks;
        check(left == 0, where, ": ", left, " blocks are left");
      }
  }
  return index - 1;
}

/// Once made, a prepared conversion needs no memory.
void applyPrepared() {
  const Engine engine = sampleEngine();
  for (const char* to : {"inch", "perInch"}) {
    const Units::PreparedConversion prepared(*engine, "foot", to);
    double values[] = {1, 2, 3, 4, 5, 6, 7};
    heap::fail(0, true);
    values[0] = prepared(values[0]);
    prepared.convert(values, values, std::size(values));
    heap::succeed();
    check(!heap::hasFailed(), "a prepared conversion allocates");
  }
}

}  // namespace

int main() {
  long total = 0;
  applyPrepared();
  const FileLoads files;
  std::vector<Operation> operations = allOperations();
  if (FileLoads::folderCanFail) operations.push_back(files.folder());
  for (const char* name : {"bundle", "none"}) operations.push_back(files.bundle(name));
  for (const Operation& operation : operations) {
    const long count = failEach(operation);
    report(count, " allocations: ", operation.name);
    total += count;
  }
  check(total > 0, "nothing allocates");
  report(total, " allocations of ", operations.size(), " operations, each failed four times");
  return verdict();
}
