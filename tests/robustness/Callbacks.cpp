/// A host's resolver or engine that throws, adds records, builds or evaluates again at its k-th
/// call, for every k: the result that the records stored at each step give, or its own exception,
/// and a consistent engine.
#include "tests/robustness/FileLoads.h"
#include "tests/support/Check.h"
#include "tests/support/HostEngine.h"

#include <functional>
#include <iterator>

namespace {

using Units::HostEngine;
using Units::UnitsEngine;

/// The host's own; not derived from any of ours.
struct HostFault {};

struct Action {
  std::string name;
  std::function<void(UnitsEngine&)> run;
  bool addsSymbol = false;  // "zz", of a foot
  bool throws = false;
};

const Action actions[] = {
    {"throws", [](UnitsEngine&) { throw HostFault(); }, false, true},
    {"adds a symbol", [](UnitsEngine& e) { addSuffix(e, "new", "foot", "zz"); }, true},
    {"adds units",
     [](UnitsEngine& e) {
       for (int number = 0; number < 1000; ++number)
         e.addUnit(derivedUnit("u" + std::to_string(number), {{"foot", 1}}));
     }},
    {"adds a refused record",
     [](UnitsEngine& e) { outcome([&] { e.addDimension(Units::Dimension("")); }); }},
    {"builds a symbol",
     [](UnitsEngine& e) { e.addDefinition(symbol("new", "foot", "zz")), e.buildSchemas(); }, true},
    {"builds in vain",
     [](UnitsEngine& e) {
       e.addDefinition(factor("new", {"q"}));
       outcome([&] { e.buildSchemas(); });
     }},
    {"evaluates again",
     [](UnitsEngine& e) {
       const auto resolver = [](const std::string&) { return "3 ft"; };
       checkEqual(e.evaluateExpressionInUnit("inch", "y + 2 * y", resolver), 108,
                  "an evaluation within another");
     }},
    {"asks and formats",
     [](UnitsEngine& e) {
       const std::string symbol = "x:feetAndInches-1";
       checkEqual(e.formatFixedPoint(5.5, 0, &symbol, false), "5' 6\"", "a text within a formula");
       describe(e);
     }},
};

/// What a call comes to that a host's fault may end.
template <class Call>
std::string outcomeOrFault(const Call& call) {
  try {
    return outcome(call);
  } catch (const HostFault&) {
    return "the host's fault";
  }
}

/// An action at the k-th call, of which there may be none.
struct Turn {
  const Action& action;
  int k;
  int calls = 0;

  void take(UnitsEngine& engine) {
    if (++calls == k) action.run(engine);
  }
  bool isReached() const { return calls >= k; }

  /// The result, but where the action throws, and the sample engine after the action.
  void check(const std::string& got, const std::string& expected, const UnitsEngine& engine) const {
    const std::string where = action.name + " at call " + std::to_string(k);
    checkEqual(got, isReached() && action.throws ? "the host's fault" : expected, where);
    const Engine same = sampleEngine();
    if (isReached() && !action.throws) action.run(*same);
    ::check(describe(engine) == describe(*same), where, ": the engine is another");
  }
};

/// Returns whether there was a k-th call. The resolver gives 2 inches for x and 5 for what is no
/// symbol yet: a symbol counts from the next token on.
bool evaluateWith(Turn turn) {
  const double sums[] = {2. + 12 + 2 * (12 + 2) + 12, 2. + 5 + 2 * (12 + 2) + 12,
                         2. + 5 + 2 * (5 + 2) + 12, 2. + 5 + 2 * (5 + 2) + 12};
  const bool isSymbol = turn.action.addsSymbol && turn.k <= 4;
  const std::string expected = written(isSymbol ? sums[turn.k - 1] : 2. + 5 + 2 * (5 + 2) + 5);
  const Engine engine = sampleEngine();
  const auto resolver = [&](const std::string& name) {
    turn.take(*engine);
    return name == "x" ? "2 in" : "5 in";
  };
  const std::string result = outcomeOrFault(
      [&] { return engine->evaluateExpressionInUnit("inch", "x+1 zz+2*(1 zz+x)+1 zz", resolver); });
  turn.check(result, expected, *engine);
  return turn.isReached();
}

/// Prepares a conversion through a host's engine.
bool prepareWith(Turn turn) {
  HostEngine engine(sampleEngine());
  engine.onCall = [&](int) { turn.take(*engine.inner); };
  const std::string result =
      outcomeOrFault([&] { return Units::PreparedConversion(engine, "foot", "perInch")(2); });
  turn.check(result, written(engine.inner->convert(2, "foot", "perInch")), *engine.inner);
  return turn.isReached();
}

using LoadAction = std::function<void(HostEngine&, const Operation& load)>;
const LoadAction loadActions[] = {
    [](HostEngine&, const Operation&) { throw HostFault(); },
    [](HostEngine&, const Operation&) { throw std::logic_error("passes"); },
    [](HostEngine& engine, const Operation&) { engine.inner->buildSchemas(); },
    [](HostEngine& engine, const Operation& load) { load.run(*engine.inner); }};

/// Whatever happened in between, loading again makes the engine complete.
bool loadWith(const Operation& load, const LoadAction& action, int k) {
  HostEngine engine;
  bool isReached = false;
  engine.onCall = [&](int call) {
    if (call != k) return;
    isReached = true;
    action(engine, load);
  };
  const std::string said = outcomeOrFault([&] { return load.run(engine); });
  if (&action == &loadActions[0] && isReached) checkEqual(said, "the host's fault", load.name);
  load.run(*engine.inner);
  check(describe(*engine.inner) == describe(*sampleEngine()), load.name, ": not complete after ",
        &action - loadActions, " at call ", k);
  return isReached;
}

/// The first file that is read removes all others, which the walk may have seen already.
void loadFilesThatVanish() {
  const FolderTree folder;
  for (const std::string typeId : {"a", "b", "c"})
    folder.write("sub/" + typeId + ".json", dimension(typeId));
  HostEngine engine;
  engine.onCall = [&](int) {
    for (const char* name : {"sub/a.json", "sub/b.json", "sub/c.json"})
      std::filesystem::remove(folder.path(name));
  };
  Schemas::SchemaUtility::addDefinitionsFromFolder(folder.path(), engine);
  checkEqual(engine.inner->getDimensions().size(), 1u, "files that vanish");
}

/// Has two units, or two factors, each of which depends on the other.
class CyclicEngine : public HostEngine {
 public:
  explicit CyclicEngine(bool ofFactors) : ofFactors_(ofFactors) {}

 private:
  double convert(double value, std::string, std::string) const override { return value; }
  Units::Unit getUnit(std::string typeId) const override {
    return ofFactors_ ? derivedUnit(typeId, {}, {1.0, {{"a", 1}}})
                      : derivedUnit(typeId, other(typeId), 1.0);
  }
  Units::Factor getFactor(std::string typeId) const override {
    return Units::Factor(typeId, Units::FactorComponent(1.0, other(typeId)));
  }
  static Powers other(const std::string& typeId) { return {{typeId == "a" ? "b" : "a", 1}}; }

  bool ofFactors_;
};

}  // namespace

int main() {
  int evaluations = 0, preparations = 0, loads = 0;
  for (const Action& action : actions) {
    for (int k = 1; evaluateWith({action, k}); ++k) ++evaluations;
    for (int k = 1; prepareWith({action, k}); ++k) ++preparations;
  }
  const FileLoads files;
  for (const Operation& load : {files.folder(), files.bundle()})
    for (const LoadAction& action : loadActions)
      for (int k = 1; loadWith(load, action, k); ++k) ++loads;
  loadFilesThatVanish();
  for (const bool ofFactors : {false, true})
    checkEqual(
        outcome([&] { return Units::PreparedConversion(CyclicEngine(ofFactors), "a", "b")(1); }),
        "logic_error: The parents of a lead back to it.", "a cycle");
  check(evaluations > 0 && preparations > 0 && loads > 0, "no calls");
  report(evaluations, " evaluations, ", loads, " loads, ", preparations, " preparations");
  return verdict();
}
