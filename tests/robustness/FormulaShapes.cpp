#include "tests/robustness/Shapes.h"

#include <TrelvonUnits/Limits.h>

namespace {

/// `before` and `after` are repeated, `middle` stands once.
struct Row {
  const char* name;
  const char* before;
  const char* middle;
  const char* after;
};

constexpr Row rows[] = {
    {"sum", "1+", "1", ""},
    {"difference", "", "1", "-1"},
    {"product", "1*", "1", ""},
    {"quotient", "", "1", "/1"},
    {"power", "", "1", "^1"},
    {"power after a sum", "1+1^", "1", ""},
    {"parentheses", "(", "1", ")"},
    {"parentheses left open", "(", "1", ""},
    {"parentheses left open by half", "((", "1", ")"},
    {"parentheses closed alone", "", "1", ")"},
    {"minus signs", "-", "(1)", ""},
    {"minus signs before a literal", "-", "1", ""},
    {"function calls", "abs(", "1", ")"},
    {"function calls without input", "", "pi()", "-pi()"},
    {"calls in parentheses", "pi()*(", "0", ")"},
    {"parentheses around what has no value", "(pi()*", "1/0", ")"},
    {"parentheses around what is refused", "(pi()*", "sqrt()", ")"},
    {"parentheses around an unknown identifier", "abs(", "y", ")"},
    {"identifiers", "", "x", "+x"},
    {"identifiers before parentheses", "x*(", "1", ")"},
    {"unknown identifiers", "", "y", "+y"},
    {"a long identifier", "n", "o", ""},
    {"an identifier of many words", "n ", "o", ""},
    {"feet and inches", "5' - 6 1/2\" + ", "1 ft", ""},
    {"inches without feet", "6 1/2\"+", "1 ft", ""},
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

Shape inOneText() {
  return {"an identifier that stands for it all", Shape::Formula,
          [](int size, Units::UnitsEngine& engine) {
            const std::string text = repeated("1+(2*3)-", size) + "1";
            return inFeet("x", engine, [text](const std::string&) { return text; });
          }};
}

/// Texts that nest as deep as they may, over and over.
Shape nestedTexts() {
  return {"identifiers that nest", Shape::Formula, [](int size, Units::UnitsEngine& engine) {
            const int most = Units::maximumSubstitutionDepth;
            const std::string formula = repeated("n" + std::to_string(most) + "+", 1 + size / most);
            const auto resolver = [](const std::string& name) {
              const int left = std::stoi(name.substr(1));
              return left == 1 ? std::string("1") : "n" + std::to_string(left - 1);
            };
            return inFeet(formula + "1", engine, resolver);
          }};
}

/// Symbols whose texts begin alike, met by a formula that uses each.
Shape manySymbols() {
  return {"symbols", Shape::Formula, [](int size, Units::UnitsEngine& engine) {
            std::string formula = "1 ft";
            for (int number = 0; number < size; ++number) {
              const std::string text = "ft" + std::to_string(number);
              addSuffix(engine, "s" + text, "foot", text);
              formula += "+1 " + text;
            }
            return inFeet(formula, engine);
          }};
}

}  // namespace

std::vector<Shape> formulaShapes() {
  std::vector<Shape> shapes;
  for (const Row& row : rows)
    shapes.push_back({row.name, Shape::Formula, [&row](int size, Units::UnitsEngine& engine) {
                        const std::string formula =
                            repeated(row.before, size) + row.middle + repeated(row.after, size);
                        return inFeet(formula, engine);
                      }});
  shapes.push_back(inOneText());
  shapes.push_back(nestedTexts());
  shapes.push_back(manySymbols());
  return shapes;
}
