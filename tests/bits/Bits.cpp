/// The same bits on every machine: random operations, and a checksum over all that they give.
///
///   bits COUNT [KEPT]        COUNT operations: a line a kind, with its checksum; fails where one
///                            differs from the file KEPT
///   bits COUNT --show KIND   the operations of a kind with what each gives, to find a difference
///
/// Results are compared to the bit, but for those that are no number. Kinds that name functions go
/// through these functions of the C library, which need not be right in the last bit; all others
/// have the same checksum on every machine, with every compiler. "all" sums these up.
#include "tests/bits/Definitions.h"
#include "tests/bits/Formulas.h"
#include "tests/support/Outcome.h"
#include "tests/support/SchemaTexts.h"

#include <cfloat>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>

static_assert(FLT_EVAL_METHOD == 0, "A wider evaluation rounds to other bits.");

namespace {

using Units::UnitsEngine;

/// What was asked and what it gave, or the text of what it threw.
struct Operation {
  std::string question;
  std::string answer;
};

template <class Action>
Operation operation(const std::string& question, const Action& action) {
  return {question, outcome(action)};
}

Operation converted(const UnitsEngine& engine, double value, const std::string& from,
                    const std::string& to) {
  return operation(written(value) + " " + from + " " + to,
                   [&] { return engine.convert(value, from, to); });
}

Operation evaluated(
    const UnitsEngine& engine, const std::string& unit, const std::string& text,
    const Units::VariableResolver& resolver = [](const std::string&) { return "7 areaa"; }) {
  return operation(text + " in " + unit, [&] {
    return unit.empty() ? engine.evaluateUnitlessExpression(text, resolver)
                        : engine.evaluateExpressionInUnit(unit, text, resolver);
  });
}

/// Units that convert into one another by products and sums alone.
const std::vector<std::string>& fellows(Random& random, const Definitions& definitions) {
  return random.oneIn(4) ? definitions.scales : random.oneOf(definitions.groups).plain;
}

Operation convert(Random& random, const Definitions& definitions) {
  const double value = random.number();
  const std::vector<std::string>& units = fellows(random, definitions);
  const std::string from = random.oneOf(units);
  const std::string to =
      random.oneIn(30) ? random.oneOf({"kg", "scale0", "none"}) : random.oneOf(units);
  return converted(*definitions.engine, value, from, to);
}

/// Of arrays, for which processors have wider instructions.
Operation prepared(Random& random, const Definitions& definitions) {
  const std::vector<std::string>& units = fellows(random, definitions);
  const std::string from = random.oneOf(units), to = random.oneOf(units);
  double values[7];
  std::string question;
  for (double& value : values) question += written(value = random.number()) + " ";
  return operation(question + from + " " + to, [&] {
    const Units::PreparedConversion conversion(*definitions.engine, from, to);
    std::string answer = written(conversion(values[0])) + " ";
    conversion.convert(values, values, std::size(values));
    for (const double value : values) answer += written(value) + " ";
    return answer;
  });
}

Operation formulas(Random& random, const Definitions& definitions) {
  static const Vocabulary words = vocabularyOf(definitions);
  static const char* const units[] = {"", "lengthd", "areae"};
  const int power = random.between(0, 2);
  RandomFormulas made(random, words);
  const std::string text = made.make(power, random.below(5)).ways[withNames];
  Operation done = evaluated(*definitions.engine, units[power], text,
                             [&](const std::string& name) { return made.variables[name]; });
  for (const auto& [name, value] : made.variables) done.question += "; " + name + " = " + value;
  return done;
}

Operation literals(Random& random, const Definitions& definitions) {
  const std::string text = literal(random, definitions);
  return evaluated(*definitions.engine, random.oneIn(5) ? "" : "lengthd", text);
}

Operation display(Random& random, const Definitions& definitions, bool isFixed) {
  const double value = random.number();
  const auto places = static_cast<unsigned char>(random.below(isFixed ? 14 : 11));
  const bool trims = random.oneIn(2);
  const std::string symbol = random.oneIn(30) ? "none" : random.oneOf(definitions.symbols);
  const std::string* const shown = random.oneIn(3) ? nullptr : &symbol;
  const std::string question = written(value) + " " + std::to_string(places) + " " + symbol;
  return operation(question, [&] {
    return isFixed ? definitions.engine->formatFixedPoint(value, places, shown, trims)
                   : definitions.engine->formatFractional(value, places, shown);
  });
}

Operation fixed(Random& random, const Definitions& definitions) {
  return display(random, definitions, true);
}

Operation fractional(Random& random, const Definitions& definitions) {
  return display(random, definitions, false);
}

/// A schema text that is read, with a byte that is wrong at times, and a number that is written.
Operation schemas(Random& random, const Definitions&) {
  std::string text = schema("read", "factor", {value("factor", random.decimal())});
  if (random.oneIn(5)) {
    const std::size_t place = random.below(text.size());
    text[place] = static_cast<char>(random.between(1, 255));
  }
  const double number = random.number();
  return operation(text + " " + written(number), [&] {
    const std::unique_ptr<UnitsEngine> engine(Units::CreateUnitsEngine());
    std::string answer = written(engine->addDefinition(text));
    engine->buildSchemas();
    for (const auto& [typeId, factor] : engine->getFactors())
      answer += written(factor.getFactorComponent().getFactor()) + engine->getDefinition(typeId);
    engine->addFactor(Units::Factor("written", Units::FactorComponent(number)));
    return answer + engine->getDefinition("written");
  });
}

Operation queries(Random& random, const Definitions& definitions) {
  const UnitsEngine& engine = *definitions.engine;
  const Group& group = random.oneOf(definitions.groups);
  const Group& other = random.oneOf(definitions.groups);
  const std::string unit = random.oneOf(group.powered), fellow = random.oneOf(other.plain);
  const int kind = random.between(0, 4);
  return operation(std::to_string(kind) + " " + unit + " " + fellow, [&] {
    switch (kind) {
      case 0:
        return written(engine.canConvert(unit, fellow));
      case 1:
        return written(engine.getConvertibleUnits(unit));
      case 2:
        return written(engine.getUnitsWithPrimitivePowers(group.powers));
      case 3:
        return written(engine.getDependencies(unit));
      default:
        return written(engine.getSymbolsOfUnit(fellow));
    }
  });
}

/// Units whose parents are raised to powers.
Operation powers(Random& random, const Definitions& definitions) {
  const double value = random.number();
  const Group& group = random.oneOf(definitions.groups);
  const std::string from = random.oneOf(group.powered);
  return converted(*definitions.engine, value, from, random.oneOf(group.plain));
}

Operation reciprocals(Random& random, const Definitions& definitions) {
  const double value = random.number();
  const std::string from = random.oneOf(definitions.groups[speed].plain);
  return converted(*definitions.engine, value, from, random.oneOf(definitions.groups[pace].plain));
}

using Maker = std::function<Operation(Random&, const Definitions&)>;

/// A function of the formula language, or the operator "^", of arguments that it takes.
Maker calls(const std::string& function) {
  return [function](Random& random, const Definitions& definitions) {
    const bool isArc = function == "asin" || function == "acos";
    std::string text = random.oneIn(2) ? "(-" : "(";
    text += std::to_string(isArc ? 0 : random.between(0, 9)) + ".";
    text += random.digits(1, 17) + ")";
    if (function != "^") return evaluated(*definitions.engine, "", function + text);
    text += "^(" + std::to_string(random.between(-9, 9));
    return evaluated(*definitions.engine, "", text + "." + random.digits(1, 1) + ")");
  };
}

struct Kind {
  std::string name;
  Maker make;
  std::string functions = {};  ///< Of the C library, whose last bit results rest on.
};

const Kind kinds[] = {
    {"convert", convert},
    {"prepared", prepared},
    {"formulas", formulas},
    {"literals", literals},
    {"fixed", fixed},
    {"fractional", fractional},
    {"schemas", schemas},
    {"queries", queries},
    {"powers", powers, "pow"},
    {"reciprocals", reciprocals, "pow"},
    {"^", calls("^"), "pow"},
    {"exp", calls("exp"), "exp"},
    {"ln", calls("ln"), "log"},
    {"log", calls("log"), "log10"},
    {"sin", calls("sin"), "sin"},
    {"cos", calls("cos"), "cos"},
    {"tan", calls("tan"), "cos, tan"},
    {"asin", calls("asin"), "asin"},
    {"acos", calls("acos"), "acos"},
    {"atan", calls("atan"), "atan"},
};

/// FNV-1a.
struct Checksum {
  std::uint64_t sum = 0xCBF29CE484222325;

  void add(const std::string& text) {
    for (const char byte : text + '\n')
      sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  }
};

/// One in sixteen for each kind: kinds do not share what chance gives them.
template <class Action>
void run(const Kind& kind, long count, const Definitions& definitions, const Action& action) {
  Checksum seed;
  seed.add(kind.name);
  Random random(seed.sum);
  for (long done = 0; done < count / 16; ++done) action(kind.make(random, definitions));
}

int show(const std::string& name, long count, const Definitions& definitions) {
  for (const Kind& kind : kinds)
    if (kind.name == name)
      run(kind, count, definitions, [](const Operation& done) {
        std::printf("%s -> %s\n", done.question.c_str(), done.answer.c_str());
      });
  return 0;
}

int check(long count, const Definitions& definitions, const char* kept) {
  std::string exact;
  for (const Kind& kind : kinds) {
    Checksum checksum;
    run(kind, count, definitions, [&](const Operation& done) {
      checksum.add(done.question);
      checksum.add(done.answer);
    });
    std::string row = kind.name + std::string(13 - kind.name.size(), ' ');
    row +=
        hexadecimal(checksum.sum) + (kind.functions.empty() ? "\n" : "  " + kind.functions + "\n");
    if (kind.functions.empty()) exact += row;
    std::printf("%s", row.c_str());
  }
  Checksum all;
  all.add(exact);
  const std::string sum = "all          " + hexadecimal(all.sum) + "\n";
  std::printf("%s", sum.c_str());
  if (kept == nullptr) return 0;
  std::ifstream file(kept);
  const std::string expected{std::istreambuf_iterator<char>(file), {}};
  if (exact + sum == expected) return 0;
  std::printf("Otherwise than in %s:\n%s", kept, expected.c_str());
  return 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return std::puts("bits COUNT [KEPT], or bits COUNT --show KIND"), 2;
  const long operations = std::strtol(arguments[1], nullptr, 10);
  const Definitions definitions = makeDefinitions();
  if (count == 4) return show(arguments[3], operations, definitions);
  return check(operations, definitions, count == 3 ? arguments[2] : nullptr);
}
