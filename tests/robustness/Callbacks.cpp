/// A host's resolver or engine that throws, adds records, builds or evaluates again at its k-th
/// call, for every k: the result that the records stored at each step give, or its own exception,
/// and a whole engine.
#include <functional>
#include <stdexcept>

#include "tests/robustness/FileLoads.h"
#include "tests/robustness/Findings.h"
#include "tests/robustness/HostEngine.h"
#include "tests/robustness/Sample.h"

namespace {

using Units::UnitsEngine;

/// The host's own; no class of ours.
struct HostFault {
  int call;
};

struct Action {
  const char* name;
  std::function<void(UnitsEngine&)> run;
  bool addsSymbol = false;  // "zz", of a foot
};

Units::Symbol anotherFoot(const UnitsEngine& engine) {
  return Units::Symbol("new", engine.getUnit("foot"),
                       Units::PrefixOrSuffix("zz", Units::Placement::Suffix, true));
}

void addMany(UnitsEngine& engine) {
  for (int number = 0; number < 1000; ++number)
    engine.addUnit(Units::Unit("u" + std::to_string(number), "n", Units::System::Metric,
                               Units::DerivedUnitComponent({{"foot", 1}}, {})));
}

const Action actions[] = {
    {"adds a symbol", [](UnitsEngine& e) { e.addSymbol(anotherFoot(e)); }, true},
    {"adds units", addMany},
    {"adds a refused record",
     [](UnitsEngine& e) {
       outcome([&] { return e.addDimension(Units::Dimension("")), std::string(); });
     }},
    {"builds a symbol",
     [](UnitsEngine& e) {
       e.addDefinition(schema("new", "symbol.prefixOrSuffix",
                              "{'id':'unit','typedValue':{'typeid':'foot'}},{'id':'text','value':"
                              "'zz'},{'id':'placement','value':'Suffix'},"
                              "{'id':'space','value':true}"));
       e.buildSchemas();
     },
     true},
    {"builds in vain",
     [](UnitsEngine& e) {
       e.addDefinition(schema("new", "factor.derived", "{'id':'parentFactors','value':{'q':1}}"));
       outcome([&] { return e.buildSchemas(), std::string(); });
     }},
    {"evaluates again",
     [](UnitsEngine& e) {
       const auto resolver = [](const std::string&) { return "3 ft"; };
       check(e.evaluateExpressionInUnit("inch", "y + 2 * y", resolver) == 108,
             "an evaluation within another");
     }},
    {"asks and formats",
     [](UnitsEngine& e) {
       const std::string symbol = "x:feetAndInches-1";
       check(e.formatFixedPoint(5.5, 0, &symbol, false) == "5' 6\"", "a text within a formula");
       describe(e);
     }},
};

const std::string formula = "x+1 zz+2*(1 zz+x)+(1) zz+x+1 zz";
constexpr int tokens = 7;

/// In inches. The resolver gives 2 for x and 5 for what is no symbol yet.
double expected(int k, bool addsSymbol) {
  int call = 0;
  const auto x = [&] { return ++call, 2.0; };
  const auto zz = [&] { return addsSymbol && call >= k ? 12.0 : (++call, 5.0); };
  double sum = x();
  sum += zz();
  const double inner = zz();
  sum += 2 * (inner + x());
  // After a parenthesis an unknown symbol has no operator before it: no formula.
  if (!addsSymbol || call < k) return -1;
  sum += 12.0;
  sum += x();
  return sum + zz();
}

void evaluateWith(const Action& action, int k) {
  const std::string where = "a resolver that " + (action.name + (" at call " + std::to_string(k)));
  const Engine engine = sampleEngine();
  int calls = 0;
  const auto resolver = [&](const std::string& name) -> std::string {
    if (++calls == k) action.run(*engine);
    return name == "x" ? "2 in" : "5 in";
  };
  const double value = expected(k, action.addsSymbol);
  const std::string result =
      outcome([&] { return bits(engine->evaluateExpressionInUnit("inch", formula, resolver)); });
  const std::string right = value < 0 ? "ParseException: Unable to parse expression." : bits(value);
  check(result == right, where + ": " + result + ", not " + right);
  const Engine same = sampleEngine();
  if (calls >= k) action.run(*same);
  check(describe(*engine) == describe(*same), where + ": the engine is another");
}

void throwAt(int k) {
  const Engine engine = sampleEngine();
  const std::string before = describe(*engine);
  int calls = 0;
  try {
    engine->evaluateUnitlessExpression("x+abs(2*(x-(1 ft/1 in)*x))+x+x+x+x+x",
                                       [&](const std::string&) -> std::string {
                                         if (++calls == k) throw HostFault{k};
                                         return "2";
                                       });
    check(false, "a resolver that throws is not heard");
  } catch (const HostFault& fault) {
    check(fault.call == k, "another fault than the resolver's");
  }
  check(describe(*engine) == before, "the engine has changed after a resolver's fault");
}

/// Whatever happened in between, loading again makes the engine complete.
void loadWith(const Operation& load, const std::string& name, int k,
              const std::function<void(HostEngine&)>& action) {
  HostEngine engine;
  engine.onCall = [&](int call) {
    if (call == k) action(engine);
  };
  try {
    outcome([&] { return load.run(engine); });
  } catch (const HostFault& fault) {
    check(fault.call == k, "another fault than the engine's");
  }
  load.run(*engine.inner);
  check(describe(*engine.inner) == describe(*sampleEngine()),
        load.name + ": an engine that " + name + " at call " + std::to_string(k) + " is not whole");
}

/// Prepares a conversion through a host's engine. Returns whether there was a k-th call.
bool prepareWith(const Action& action, int k, bool throws = false) {
  const std::string where = "an engine that " + (action.name + (" at call " + std::to_string(k)));
  HostEngine engine;
  addSample(*engine.inner);
  engine.inner->buildSchemas();
  bool isReached = false;
  engine.onCall = [&](int call) {
    if (call != k) return;
    isReached = true;
    action.run(*engine.inner);
  };
  std::string result;
  try {
    result = bits(Units::PreparedConversion(engine, "foot", "perInch")(2));
  } catch (const HostFault& fault) {
    result = "the fault of call " + std::to_string(fault.call);
  }
  const std::string right = isReached && throws ? "the fault of call " + std::to_string(k)
                                                : bits(engine.inner->convert(2, "foot", "perInch"));
  check(result == right, where + ": " + result + ", not " + right);
  const Engine same = sampleEngine();
  if (isReached && !throws) action.run(*same);
  check(describe(*engine.inner) == describe(*same), where + ": the engine is another");
  return isReached;
}

/// Tells of two units, or two factors, each of which rests on the other.
class CircularEngine : public HostEngine {
 public:
  explicit CircularEngine(bool ofFactors) : ofFactors_(ofFactors) {}

 private:
  double convert(double value, std::string, std::string) const override { return value; }
  Units::Unit getUnit(std::string typeId) const override {
    const Units::FactorComponent factor(1.0, ofFactors_ ? Parents{{"a", 1}} : Parents());
    return Units::Unit(typeId, "", Units::System::Metric,
                       Units::DerivedUnitComponent(ofFactors_ ? Parents() : other(typeId), factor));
  }
  Units::Factor getFactor(std::string typeId) const override {
    return Units::Factor(typeId, Units::FactorComponent(1.0, other(typeId)));
  }

  using Parents = std::map<std::string, int>;
  static Parents other(const std::string& typeId) { return {{typeId == "a" ? "b" : "a", 1}}; }

  bool ofFactors_;
};

void prepareThroughCircle(bool ofFactors) {
  std::string told;
  try {
    Units::PreparedConversion(CircularEngine(ofFactors), "a", "b");
  } catch (const std::logic_error& error) {
    told = error.what();
  }
  check(told == "The parents of a lead back to it.", "a circle is told by: " + told);
}

}  // namespace

int main() {
  for (const Action& action : actions)
    for (int k = 1; k <= tokens; ++k) evaluateWith(action, k);
  for (int k = 1; k <= tokens; ++k) throwAt(k);

  const FileLoads files;
  const int calls = static_cast<int>(sampleSchemas().size()) + 1;  // and the build
  for (const Operation& load : {files.folder(), files.bundle()})
    for (int k = 1; k <= calls; ++k) {
      loadWith(load, "throws", k, [k](HostEngine&) { throw HostFault{k}; });
      loadWith(load, "throws what no one expects", k,
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
  prepareThroughCircle(false);
  prepareThroughCircle(true);
  report(std::to_string(std::size(actions) * tokens + tokens) + " evaluations, " +
         std::to_string(8 * calls) + " loads, " + std::to_string(prepared) + " preparations");
  return verdict();
}
