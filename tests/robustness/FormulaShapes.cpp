#include "tests/robustness/Shapes.h"

#include <TrelvonUnits/Limits.h>

namespace {

constexpr Row rows[] = {
    {"sum", "1+", "1", ""},
    {"difference", "", "1", "-1"},
    {"power", "", "1", "^1"},
    {"power after a sum", "1+1^", "1", ""},
    {"parentheses", "(", "1", ")"},
    {"parentheses left open", "(", "1", ""},
    {"parentheses closed alone", "", "1", ")"},
    {"minus signs", "-", "(1)", ""},
    {"minus signs before a literal", "-", "1", ""},
    {"function calls", "abs(", "1", ")"},
    {"function calls without input", "", "pi()", "-pi()"},
    {"parentheses around what has no value", "(pi()*", "1/0", ")"},
    {"parentheses around what is refused", "(pi()*", "sqrt()", ")"},
    {"parentheses around an unknown identifier", "abs(", "y", ")"},
    {"identifiers", "", "x", "+x"},
    {"identifiers before parentheses", "x*(", "1", ")"},
    {"unknown identifiers", "", "y", "+y"},
    {"a long identifier", "n", "o", ""},
    {"an identifier of many words", "n ", "o", ""},
    {"feet and inches", "5' - 6 1/2\" + ", "1 ft", ""},
    {"degrees, minutes, seconds", "10\xC2\xB0 30' 15\"+", "1", ""},
    {"meters and centimeters", "2m 35cm+", "1", ""},
    {"feet that go on", "5'-6-7/", "1", ""},
    {"exponents that go on", "1e-1e-", "1", ""},
    {"numbers without operators", "1 ", "1", ""},
    {"literals with symbols", "1 ft+", "1 in", ""},
    {"literals with prefix symbols", "$1+", "$1", ""},
    {"units that grow", "1 ft*", "1 ft", ""},
    {"units that cancel", "1 ft/1 in*", "1 ft", ""},
    {"a symbol after a parenthesis", "(1) ft+", "(1) ft", ""},
    {"symbols after a parenthesis", "", "(1)", " ft"},
    {"symbols before parentheses", "$(", "1", ")"},
    {"spaces", " ", "1", " "},
    {"spaces in a literal", "", "1", " "},
    {"tabs", "\t", "1", "\t"},
    {"digits", "7", "1", ""},
    {"decimals", "", "0.", "7"},
    {"zeros", "0", "1", ""},
    {"letters of symbols", "ft", "ft", ""},
    {"bytes that are no text", "\xFF", "\xC2", ""},
};

std::string resolve(const std::string& name) { return name == "x" ? "1" : "(1 + x)"; }

Work inFeet(const std::string& formula, Units::UnitsEngine& engine,
            const Units::VariableResolver& resolver = resolve) {
  return evaluation("foot", formula, engine, resolver);
}

/// Texts that nest as deep as they may.
std::string nested(const std::string& name) {
  const int left = std::stoi(name.substr(1));
  return left == 1 ? "1" : "n" + std::to_string(left - 1);
}

}  // namespace

std::vector<Shape> formulaShapes() {
  std::vector<Shape> shapes;
  for (const Row& row : rows)
    shapes.push_back({row.name, true,
                      [&row](int size, auto& engine) { return inFeet(row.text(size), engine); }});
  shapes.push_back({"an identifier that stands for it all", true, [](int size, auto& engine) {
                      const std::string text = repeated("1+(2*3)-", size) + "1";
                      return inFeet("x", engine, [text](const std::string&) { return text; });
                    }});
  shapes.push_back({"identifiers that nest", true, [](int size, auto& engine) {
                      const int most = Units::maximumSubstitutionDepth;
                      const std::string deepest = "n" + std::to_string(most) + "+";
                      return inFeet(repeated(deepest, 1 + size / most) + "1", engine, nested);
                    }});
  // Their texts begin alike.
  shapes.push_back({"symbols", true, [](int size, auto& engine) {
                      for (int number = 0; number < size; ++number) {
                        const std::string text = "ft" + std::to_string(number);
                        addSuffix(engine, "s" + text, "foot", text);
                      }
                      return inFeet("1 ft" + repeated("+1 ft%", size), engine);
                    }});
  return shapes;
}
