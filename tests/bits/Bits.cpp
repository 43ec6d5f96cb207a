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
#include "tests/support/Outcome.h"
#include "tests/support/RandomFormulas.h"

#include <cfloat>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>

static_assert(FLT_EVAL_METHOD == 0, "A wider evaluation rounds to other bits.");

namespace {

const Units::UnitsEngine& engine() {
  static const std::unique_ptr<Units::UnitsEngine> made = Maker().make();
  return *made;
}

/// What was asked and what it gave, or the text of what it threw.
struct Operation {
  std::string question;
  std::string answer;
};

template <class Action>
Operation operation(const std::string& question, const Action& action) {
  return {question, outcome(action)};
}

Operation converted(Random& random, const std::string& from, const std::string& to) {
  const double value = random.number();
  return operation(written(value) + " " + from + " " + to,
                   [&] { return engine().convert(value, from, to); });
}

Operation evaluated(const std::string& unit, const std::string& text,
                    const Units::VariableResolver& resolver) {
  return operation(text + " in " + unit, [&] {
    return unit.empty() ? engine().evaluateUnitlessExpression(text, resolver)
                        : engine().evaluateExpressionInUnit(unit, text, resolver);
  });
}

Operation evaluated(const std::string& unit, const std::string& text) {
  return evaluated(unit, text, [](const std::string&) { return "7 areaa"; });
}

std::string plain(Random& random, const std::string& group) {
  return group + random.oneOf(letters);
}

/// Whose units convert into one another by products and sums alone.
std::string anyGroup(Random& random) {
  return random.oneIn(4) ? "scale" : random.oneOf(groups).name;
}

Operation convert(Random& random) {
  const std::string group = anyGroup(random), from = plain(random, group);
  return converted(random, from, random.oneIn(30) ? "mass" : plain(random, group));
}

/// Of arrays, for which processors have wider instructions.
Operation prepared(Random& random) {
  const std::string group = anyGroup(random), from = plain(random, group),
                    to = plain(random, group);
  double values[7];
  std::string question;
  for (double& value : values) question += written(value = random.number()) + " ";
  return operation(question + from + " " + to, [&] {
    const Units::PreparedConversion conversion(engine(), from, to);
    std::string answer = written(conversion(values[0])) + " ";
    conversion.convert(values, values, std::size(values));
    for (const double value : values) answer += written(value) + " ";
    return answer;
  });
}

std::string number(Random& random) {
  if (random.oneIn(30)) return random.oneOf({"0x1F", "0x1.8p3", ".5", "5.", "1e400", "1e-400", ""});
  return random.decimal();
}

/// With numbers where the form has a "#".
std::string filled(Random& random, const std::string& form) {
  std::string text;
  for (const char character : form)
    if (character != '#')
      text += character;
    else
      text += random.oneIn(3) ? number(random) : random.digits(1, random.oneIn(9) ? 12 : 2);
  return text;
}

std::string quantity(Random& random, const std::string& group) {
  const std::string value = filled(random, random.oneOf({"#", "# ", "#  "}));
  return value + plain(random, group);
}

/// Values that leave nothing to the C library.
std::string special(Random& random, int power) {
  if (power == 1) return filled(random, "(#' # #/#\")");
  if (power == 2) return quantity(random, "area");
  if (random.oneIn(2)) return "pi()";
  const std::string group = random.oneOf(groups).name, above = quantity(random, group);
  return "(" + above + " / " + quantity(random, group) + ")";
}

Vocabulary makeVocabulary() {
  Vocabulary words{
      number, {{{""}, {}, {}}}, {"abs", "round", "roundup", "rounddown", "sqrt"}, {"*", "/"}};
  words.special = special;
  for (const std::string& letter : letters)
    for (const char* before : {"", " "}) {
      words.suffixes[1].push_back(before + ("length" + letter));
      words.suffixes[2].push_back(before + ("area" + letter));
    }
  return words;
}

Operation formulas(Random& random) {
  static const Vocabulary words = makeVocabulary();
  static const char* const units[] = {"", "lengthd", "areae"};
  const int power = random.between(0, 2);
  RandomFormulas made(random, words);
  const std::string text = made.make(power, random.below(5)).ways[withNames];
  Operation done =
      evaluated(units[power], text, [&](const std::string& name) { return made.variables[name]; });
  for (const auto& [name, value] : made.variables) done.question += "; " + name + " = " + value;
  return done;
}

/// A number with a symbol, or a value in several parts, with a byte that is wrong at times.
Operation literals(Random& random) {
  static const char* const forms[] = {"#' #\"",
                                      "#' # #/#\"",
                                      "# ft #/# in",
                                      "#' - # inches",
                                      "#-#''",
                                      "# #/#\"",
                                      "#\xC2\xB0 #' #\"",
                                      "#\xC2\xB0 #'",
                                      "# #' #\"",
                                      "#m #cm",
                                      "#m #",
                                      "#cm",
                                      "$#",
                                      "#",
                                      "#lengthf",
                                      "# lengthg",
                                      "-# speedb ",
                                      "#scalea"};
  std::string text = filled(random, random.oneOf(forms));
  if (random.oneIn(3)) text.insert(0, "-");
  const std::size_t place = random.below(text.size() + 1);
  const auto byte = static_cast<char>(random.below(256));
  // No operator comes in that might make a power or a reciprocal.
  if (random.oneIn(8) && place < text.size() && byte != '^' && byte != '/') text[place] = byte;
  return evaluated(random.oneIn(5) ? "" : "lengthd", text);
}

Operation display(Random& random, bool isFixed) {
  const double value = random.number();
  const auto places = static_cast<unsigned char>(random.below(isFixed ? 14 : 11));
  const bool trims = random.oneIn(2);
  const std::string odd = random.oneIn(20) ? "none" : random.oneOf(oddSymbols);
  const std::string symbol =
      random.oneIn(2) ? odd : plain(random, "of " + random.oneOf(groups).name);
  const std::string* const shown = random.oneIn(3) ? nullptr : &symbol;
  const std::string question = written(value) + " " + std::to_string(places) + " " + symbol;
  return operation(question, [&] {
    return isFixed ? engine().formatFixedPoint(value, places, shown, trims)
                   : engine().formatFractional(value, places, shown);
  });
}

/// A value that is shown in any way, in any locale, and read back.
Operation displays(Random& random) {
  static const std::vector<std::string> locales = Units::ValueDisplay::locales();
  Units::DisplayOptions options;
  options.symbol = random.oneIn(2) ? random.oneOf(oddSymbols) : plain(random, "of length");
  if (random.oneIn(3)) options.unit = plain(random, "length");
  options.locale = random.oneOf(locales);
  options.groups = random.oneIn(2);
  const int rounding = random.between(0, 3), digits = random.between(0, 18);
  if (rounding == 0) options.places = digits;
  if (rounding == 1) options.denominator = 1 << digits % 11;
  if (rounding == 2) options.significant = digits;
  const double value = random.number();
  return operation(written(value) + " " + options.symbol + " " + options.locale, [&] {
    const Units::ValueDisplay display(engine(), options);
    const std::string text = display.show(value);
    return text + " " + display.read(text).toJson();
  });
}

/// A schema text that is read, with a byte that is wrong at times, and a number that is written.
Operation schemas(Random& random) {
  std::string text = schema("read", "factor", {value("factor", random.decimal())});
  if (random.oneIn(5)) {
    const std::size_t place = random.below(text.size());
    text[place] = static_cast<char>(random.between(1, 255));
  }
  const double number = random.number();
  return operation(text + " " + written(number), [&] {
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    std::string answer = written(engine->addDefinition(text));
    engine->buildSchemas();
    for (const auto& [typeId, factor] : engine->getFactors())
      answer += written(factor.getFactorComponent().getFactor()) + engine->getDefinition(typeId);
    engine->addFactor(Units::Factor("written", Units::FactorComponent(number)));
    return answer + engine->getDefinition("written");
  });
}

using Make = std::function<Operation(Random&)>;

/// A function of the formula language, or the operator "^", of arguments that it takes.
Make calls(const std::string& function) {
  return [function](Random& random) {
    const bool isArc = function == "asin" || function == "acos";
    std::string text = random.oneIn(2) ? "(-" : "(";
    text += std::to_string(isArc ? 0 : random.between(0, 9)) + ".";
    text += random.digits(1, 17) + ")";
    if (function != "^") return evaluated("", function + text);
    text += "^(" + std::to_string(random.between(-9, 9));
    return evaluated("", text + "." + random.digits(1, 1) + ")");
  };
}

struct Kind {
  std::string name;
  Make make;
  std::string functions = {};  ///< Of the C library, whose last bit results rest on.
};

const Kind kinds[] = {
    {"convert", convert},
    {"prepared", prepared},
    {"formulas", formulas},
    {"literals", literals},
    {"fixed", [](Random& random) { return display(random, true); }},
    {"fractional", [](Random& random) { return display(random, false); }},
    {"displays", displays},
    {"schemas", schemas},
    {"powers",
     [](Random& random) {
       const std::string group = random.oneOf(groups).name, from = plain(random, group + "^");
       return converted(random, from, plain(random, group));
     },
     "pow"},
    {"reciprocals",
     [](Random& random) {
       const std::string from = plain(random, "speed");
       return converted(random, from, plain(random, "pace"));
     },
     "pow"},
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
void run(const Kind& kind, long count, const Action& action) {
  Checksum seed;
  seed.add(kind.name);
  Random random(seed.sum);
  for (long done = 0; done < count / 16; ++done) action(kind.make(random));
}

int show(const std::string& name, long count) {
  for (const Kind& kind : kinds)
    if (kind.name == name)
      run(kind, count, [](const Operation& done) {
        std::printf("%s -> %s\n", done.question.c_str(), done.answer.c_str());
      });
  return 0;
}

int check(long count, const char* kept) {
  std::string exact;
  for (const Kind& kind : kinds) {
    Checksum checksum;
    run(kind, count, [&](const Operation& done) {
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
  if (count == 4) return show(arguments[3], operations);
  return check(operations, count == 3 ? arguments[2] : nullptr);
}
