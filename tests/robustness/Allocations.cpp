/// Fails every allocation of every operation, once alone and once with all that follow, and looks
/// whether the engine is then what its contract says.
#include <iterator>
#include <new>

#include "tests/robustness/FileLoads.h"
#include "tests/robustness/Findings.h"
#include "tests/robustness/Operations.h"
#include "tests/support/Heap.h"

namespace {

struct Attempt {
  bool failed = false;  // an allocation did
  bool threw = false;   // std::bad_alloc
  std::string result;
};

Attempt attempt(const Operation& operation, Units::UnitsEngine& engine, long index,
                bool andAllThatFollow) {
  Attempt made;
  heap::fail(index, andAllThatFollow);
  heap::pause(operation.startsPaused);
  try {
    made.result = outcome([&] { return operation.run(engine); });
  } catch (const std::bad_alloc&) {
    made.threw = true;
  }
  heap::succeed();
  made.failed = heap::hasFailed();
  return made;
}

/// Where the operation throws anyway, what failed may have been the place for the exception, for
/// which the language keeps a reserve: then the exception comes as if nothing had been.
bool isAsPromised(const Attempt& made, const std::string& expected) {
  const bool isRefusal = expected.find("Exception: ") != std::string::npos ||
                         expected.find("logic_error: ") != std::string::npos;
  return made.threw ? made.failed : made.result == expected && (!made.failed || isRefusal);
}

/// What an engine is after a build.
std::string built(Units::UnitsEngine& engine) {
  const std::string said = outcome([&] { return engine.buildSchemas(), std::string("built"); });
  return said + '\n' + describe(engine);
}

/// What an operation gives where nothing fails, and what the engine then is.
struct Expectation {
  explicit Expectation(const Operation& operation) {
    const Engine clean = operation.start();
    const std::string before = describe(*clean);
    result = outcome([&] { return operation.run(*clean); });
    after = built(*clean);
    failed = operation.isBuild ? operation.dropped() : before;
    builtWithout = operation.isBuild ? "built\n" + failed : built(*operation.start());
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
  const Attempt made = attempt(operation, *engine, index, andAllThatFollow);
  check(isAsPromised(made, expected.result), where + ": " + made.result);
  if (made.threw) {
    check(operation.leavesPending || describe(*engine) == expected.failed,
          where + ": the engine has changed");
    if (repeats) operation.refill(*engine);
    if (repeats)
      check(outcome([&] { return operation.run(*engine); }) == expected.result,
            where + ": the repeat fails");
    else if (operation.leavesPending)
      return made.failed;  // what of its definitions is there may lack parents
  }
  check(built(*engine) == (made.threw && !repeats ? expected.builtWithout : expected.after),
        where + ": a later build gives something else");
  return made.failed;
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
        check(left == 0, where + ": " + std::to_string(left) + " blocks are left");
      }
  }
  return index - 1;
}

/// Once it is made, a prepared conversion needs no memory.
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
  operations.push_back(files.bundle());
  operations.push_back(files.missingBundle());
  for (const Operation& operation : operations) {
    const long count = failEach(operation);
    check(count > 0 || operation.mayNeedNone, operation.name + std::string(" allocates nothing"));
    report(std::to_string(count) + " allocations: " + operation.name);
    total += count;
  }
  report(std::to_string(total) + " allocations of " + std::to_string(operations.size()) +
         " operations, each failed four times");
  return verdict();
}
