/// Fails every allocation of every operation, once alone and once with all that follow, and looks
/// whether the engine is then what its contract says.
#include <algorithm>
#include <new>

#include "robustness/Findings.h"
#include "robustness/FolderLoad.h"
#include "robustness/Heap.h"
#include "robustness/Operations.h"

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

/// One row; returns how many allocations the operation makes.
long failEach(const Operation& operation) {
  const Engine clean = operation.start();
  const std::string before = describe(*clean);
  const std::string expected = outcome([&] { return operation.run(*clean); });
  clean->buildSchemas();
  const std::string after = describe(*clean);

  bool failed = true;
  long index = 0;
  for (; failed; ++index) {
    failed = false;
    for (const bool andAllThatFollow : {false, true}) {
      const std::string where = operation.name + (", allocation " + std::to_string(index)) +
                                (andAllThatFollow ? " and all that follow" : "");
      const long blocks = heap::liveBlocks();
      {
        const Engine engine = operation.start();
        const Attempt made = attempt(operation, *engine, index, andAllThatFollow);
        failed = failed || made.failed;
        check(isAsPromised(made, expected), where + ": " + made.result);
        if (made.threw) {
          const std::string now = describe(*engine);
          check(
              operation.leavesPending || now == (operation.isBuild ? operation.dropped() : before),
              where + ": the engine has changed");
          operation.refill(*engine);
          check(outcome([&] { return operation.run(*engine); }) == expected,
                where + ": the repeat fails");
        }
        engine->buildSchemas();
        check(describe(*engine) == after, where + ": a later build gives something else");
      }
      const long left = heap::liveBlocks() - blocks;
      check(left == 0, where + ": " + std::to_string(left) + " blocks are left");
    }
  }
  return index - 1;
}

}  // namespace

int main() {
  long total = 0;
  const FolderLoad folder;
  std::vector<Operation> operations = allOperations();
  if (FolderLoad::canFail) operations.push_back(folder.operation());
  for (const Operation& operation : operations) {
    const long count = failEach(operation);
    check(count > 0 || operation.mayNeedNone, operation.name + std::string(" allocates nothing"));
    report(std::to_string(count) + " allocations: " + operation.name);
    total += count;
  }
  report(std::to_string(total) + " allocations of " + std::to_string(operations.size()) +
         " operations, each failed twice");
  return verdict();
}
