/// A host's resolver or engine that throws, adds records, builds or evaluates again at its k-th
/// call, for every k: the result that the records stored at each step give, or its own exception,
/// and a consistent engine.
#include "tests/robustness/FileLoads.h"
#include "tests/support/Check.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Sample.h"

#include <functional>
#include <iterator>

namespace {

using Units::HostEngine;
using Units::UnitsEngine;

/// The host's own; not derived from any of ours.
struct HostFault {
  int call;
};

struct Action {
  std::string name;
  std::function<void(UnitsEngine&)> run;
  bool addsSymbol = false;  // "zz", of a foot
};

const Action actions[] = {
    {"adds a symbol", [](UnitsEngine& e) { addSuffix(e, "new", "foot", "zz"); }, true},
    {"adds units",
     [](UnitsEngine& e) {
       for (int number = 0; number < 1000; ++number)
         e.addUnit(derivedUnit("u" + std::to_string(number), {{"foot", 1}}));
     }},
    {"adds a refused record",
     [](UnitsEngine& e) { outcome([&] { e.addDimension(Units::Dimension("")); }); }},
    {"builds a symbol",
     [](UnitsEngine& e) {
       e.addDefinition(symbol("new", "foot", "zz"));
       e.buildSchemas();
     },
     true},
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

const std::string formula = "x+1 zz+2*(1 zz+x)+(1) zz+x+1 zz";
constexpr int tokens = 7;

/// In inches. The resolver gives 2 for x and 5 for what is no symbol yet.
std::string expected(int k, bool addsSymbol) {
  int call = 0;
  const auto x = [&] { return ++call, 2.0; };
  const auto zz = [&] { return addsSymbol && call >= k ? 12.0 : (++call, 5.0); };
  double sum = x();
  sum += zz();
  const double inner = zz();
  sum += 2 * (inner + x());
  // After a parenthesis an unknown symbol has no operator before it: no formula.
  if (!addsSymbol || call < k) return "ParseException: Unable to parse expression.";
  sum += 12.0;
  sum += x();
  return written(sum + zz());
}

/// The sample after an action, or without one.
std::string describeAfter(const Action* action) {
  const Engine same = sampleEngine();
  if (action != nullptr) action->run(*same);
  return describe(*same);
}

void evaluateWith(const Action& action, int k) {
  const std::string where = "a resolver that " + action.name + " at call " + std::to_string(k);
  const Engine engine = sampleEngine();
  int calls = 0;
  const auto resolver = [&](const std::string& name) {
    if (++calls == k) action.run(*engine);
    return name == "x" ? "2 in" : "5 in";
  };
  checkEqual(outcome([&] { return engine->evaluateExpressionInUnit("inch", formula, resolver); }),
             expected(k, action.addsSymbol), where);
  check(describe(*engine) == describeAfter(calls >= k ? &action : nullptr), where,
        ": the engine is another");
}

/// What a call comes to that a host's fault may end.
template <class Call>
std::string outcomeOrFault(const Call& call) {
  try {
    return outcome(call);
  } catch (const HostFault& fault) {
    return "the fault of call " + std::to_string(fault.call);
  }
}

std::string faultOf(int k) { return "the fault of call " + std::to_string(k); }

void throwAt(int k) {
  const Engine engine = sampleEngine();
  int calls = 0;
  const auto resolver = [&](const std::string&) {
    if (++calls == k) throw HostFault{k};
    return "2";
  };
  checkEqual(outcomeOrFault([&] {
               return engine->evaluateUnitlessExpression("x+abs(2*(x-(1 ft/1 in)*x))+x+x+x+x+x",
                                                         resolver);
             }),
             faultOf(k), "a resolver that throws");
  check(describe(*engine) == describeAfter(nullptr), "the engine has changed after a fault");
}

/// Whatever happened in between, loading again makes the engine complete.
void loadWith(const Operation& load, const std::string& name, int k,
              const std::function<void(HostEngine&)>& action) {
  HostEngine engine;
  engine.onCall = [&](int call) {
    if (call == k) action(engine);
  };
  const std::string said = outcomeOrFault([&] { return load.run(engine); });
  check(said.find("fault") == std::string::npos || said == faultOf(k), load.name, ": ", said);
  load.run(*engine.inner);
  check(describe(*engine.inner) == describeAfter(nullptr), load.name, ": an engine that ", name,
        " at call ", k, " is not complete");
}

/// Prepares a conversion through a host's engine. Returns whether there was a k-th call.
bool prepareWith(const Action& action, int k, bool throws = false) {
  const std::string where = "an engine that " + action.name + " at call " + std::to_string(k);
  HostEngine engine(sampleEngine());
  bool isReached = false;
  engine.onCall = [&](int call) {
    if (call != k) return;
    isReached = true;
    action.run(*engine.inner);
  };
  const std::string result =
      outcomeOrFault([&] { return Units::PreparedConversion(engine, "foot", "perInch")(2); });
  checkEqual(
      result,
      isReached && throws ? faultOf(k) : written(engine.inner->convert(2, "foot", "perInch")),
      where);
  check(describe(*engine.inner) == describeAfter(isReached && !throws ? &action : nullptr), where,
        ": the engine is another");
  return isReached;
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
  for (int k = 1; k <= tokens; ++k) throwAt(k);
  for (const Action& action : actions)
    for (int k = 1; k <= tokens; ++k) evaluateWith(action, k);

  const FileLoads files;
  const int calls = static_cast<int>(sampleDefinitions().size()) + 1;  // and the build
  for (const Operation& load : {files.folder(), files.bundle()})
    for (int k = 1; k <= calls; ++k) {
      loadWith(load, "throws", k, [k](HostEngine&) { throw HostFault{k}; });
      loadWith(load, "throws an unexpected exception", k,
               [](HostEngine&) { throw std::logic_error("passes"); });
      loadWith(load, "builds", k, [](HostEngine& engine) { engine.inner->buildSchemas(); });
      loadWith(load, "loads again", k, [&](HostEngine& engine) { load.run(*engine.inner); });
    }

  int prepared = 0;
  for (const Action& action : actions)
    for (int k = 1; prepareWith(action, k); ++k) ++prepared;
  const auto throwing = [](int k) {
    return Action{"throws", [k](UnitsEngine&) { throw HostFault{k}; }};
  };
  for (int k = 1; prepareWith(throwing(k), k, true); ++k) ++prepared;
  for (const bool ofFactors : {false, true})
    checkEqual(
        outcome([&] { return Units::PreparedConversion(CyclicEngine(ofFactors), "a", "b")(1); }),
        "logic_error: The parents of a lead back to it.", "a cycle");
  report(std::size(actions) * tokens + tokens, " evaluations, ", 8 * calls, " loads, ", prepared,
         " preparations");
  return verdict();
}
