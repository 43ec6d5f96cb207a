/// Tables of parameters against the engine's own expansion of formulas, which replaces names by text:
/// after each change, each parameter has the same bits in every unit, or neither has a value.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/Sample.h"

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

using Units::ParameterTable;

const std::map<std::string, std::string> suffixes = {
    {"foot", " ft"}, {"inch", " in"}, {"celsius", " degC"}, {"perInch", " pin"}};

/// The sample, with symbols whose powers cancel, and that are reciprocal.
Engine tableEngine() {
  Engine engine = sampleEngine();
  engine->addUnit(derivedUnit("percent", {{"inch", 1}, {"perInch", 1}}, 0.01));
  addSuffix(*engine, "pct", "percent", "pct");
  addSuffix(*engine, "perIn", "perInch", "pin");
  return engine;
}

/// A table in which formulas name others by "{id}".
class Reference {
 public:
  struct Row {
    std::string name;
    std::string formula;  // empty if it is not defined
    std::string unit;
  };

  explicit Reference(const Units::UnitsEngine& engine) : engine_(engine) {}

  std::vector<Row> rows;

  std::string shown(const std::string& formula) const {
    std::string text;
    for (std::size_t i = 0; i < formula.size(); ++i)
      if (formula[i] == '{')
        text += rows[static_cast<std::size_t>(formula[i + 1] - 'a')].name, i += 2;
      else
        text += formula[i];
    return text;
  }

  /// The value of a name in a unit, or "none". Without a unit, in that of the row.
  std::string value(const Row& row, const std::string& unit) {
    if (!unit.empty() || row.unit.empty()) return value(row.name, unit);
    return value("(" + shown(row.formula) + ")", row.unit);
  }

  void forget() { replacements_.clear(); }

 private:
  std::string replacement(const std::string& name) {
    const auto [known, isNew] = replacements_.emplace(name, "");
    if (isNew)
      for (const Row& row : rows)
        if (row.name == name && !row.formula.empty()) known->second = withUnit(row);
    if (known->second.empty()) throw Units::ParseException("not defined, or a cycle");
    return known->second;
  }

  /// The text of a formula with the unit of its row, found out by the engine.
  std::string withUnit(const Row& row) {
    const std::string text = shown(row.formula);
    if (row.unit.empty()) return text;
    const std::string enclosed = "(" + text + ")";
    if (value(enclosed, "") != "none") return enclosed + suffixes.at(row.unit);
    if (value(enclosed, row.unit) == "none") return "";
    return isReciprocal(enclosed, row.unit) ? reciprocal(enclosed, row.unit == "perInch") : text;
  }

  bool isReciprocal(const std::string& formula, const std::string& unit) {
    const auto resolver = [this](const std::string& name) { return replacement(name); };
    for (const auto& warning : explainFormula(engine_, unit, formula, resolver).warnings())
      if (warning.kind() == Units::FormulaExplanation::WarningKind::ReciprocalConverted)
        return true;
    return false;
  }

  /// The text of a reciprocal in primitive units, of any value: `^` refuses 0 and what counts as 0.
  std::string reciprocal(const std::string& formula, bool isPerInch) {
    const auto resolver = [this](const std::string& name) { return replacement(name); };
    const double value =
        engine_.evaluateExpressionInUnit(isPerInch ? "inch" : "perInch", formula, resolver);
    const double inverse = std::pow(value, -1.0);
    const std::string unit = isPerInch ? " pin)" : " in)";
    return (std::signbit(inverse) ? "-(" : "(") + spelled(std::fabs(inverse)) + unit;
  }

  static std::string spelled(double number) {
    if (std::isinf(number)) return "(1e308*10)";
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.17g", number);
    return digits;
  }

  std::string value(const std::string& formula, const std::string& unit) {
    const auto resolver = [this](const std::string& name) { return replacement(name); };
    try {
      return written(unit.empty() ? engine_.evaluateUnitlessExpression(formula, resolver)
                                  : engine_.evaluateExpressionInUnit(unit, formula, resolver));
    } catch (const std::logic_error&) {
      return "none";
    }
  }

  const Units::UnitsEngine& engine_;
  std::map<std::string, std::string>
      replacements_;  // empty while it is sought, and if there is none
};

std::string randomFormula(Random& random, std::size_t most) {
  const auto atom = [&] {
    const std::string it = std::string("{") + static_cast<char>('a' + random.below(most)) + "}";
    switch (random.below(16)) {
      case 0:
        return std::to_string(random.between(-3, 9)) + " ft";
      case 1:
        return std::to_string(random.between(1, 99)) + ".7 in";
      case 2:
        return std::string("5' 6\"");
      case 3:
        return std::string("-20.5 degC");
      case 4:
        return std::string("3 pct");
      case 5:
        return random.oneOf({"7e-2", "0", "1", "3 pin", "2 in^-1"});
      case 6:
        return "-" + it;
      case 7:
        return it + "^" + random.oneOf({"2", "-1", "0.5", "3"});
      case 8:
        return "sqrt(" + it + ")";
      case 9:
        return "(" + it + ") ft";
      case 10:
        return "$ " + it;
      case 11:
        return "\t( " + it + "\n)";
      default:
        return it;
    }
  };
  std::string formula = atom();
  for (std::size_t count = random.below(3); count > 0; --count) {
    formula += random.oneOf({"+", " - ", "*", " * ", "/"});
    formula += atom();
  }
  return formula;
}

class RandomTable {
 public:
  explicit RandomTable(Random& random) : random_(random) {
    for (const char* name : {"a", "width", "room height", "x1", "D1@Sketch", "\xC3\xA4"})
      reference_.rows.push_back({name, "", ""});
  }

  void change() {
    auto& rows = reference_.rows;
    const std::size_t at = random_.below(rows.size());
    Reference::Row& row = rows[at];
    if (row.formula.empty() || random_.oneIn(2)) {
      // Mostly of those before it: cycles are a few.
      row.formula = randomFormula(random_, random_.oneIn(30) ? rows.size() : at + 1);
      if (row.formula.find(std::string("{") + static_cast<char>('a' + at)) != std::string::npos &&
          !random_.oneIn(20))
        row.formula = "4 in";
      row.unit = random_.oneIn(3) ? random_.oneOf(suffixes).first : "";
      table_.set(row.name, reference_.shown(row.formula), row.unit);
    } else if (random_.oneIn(6)) {
      table_.remove(row.name);
      row.formula.clear();
    } else {
      const std::string name = random_.oneOf({"b", "height", "z 9", "_long name.1"});
      for (const Reference::Row& other : rows)
        if (other.name == name) return;
      table_.rename(row.name, name);
      row.name = name;
    }
  }

  void check() {
    reference_.forget();
    for (const Reference::Row& row : reference_.rows) {
      if (row.formula.empty()) continue;
      checkEqual(table_.formula(row.name), reference_.shown(row.formula), row.name);
      for (const std::string unit : {"", "foot", "inch", "perInch", "area", "celsius", "percent"}) {
        if (unit == row.unit && !unit.empty()) continue;  // the same as without
        const std::string where = row.name + " = " + table_.formula(row.name) + " in " + unit;
        checkEqual(value(row.name, unit), reference_.value(row, unit), where);
      }
    }
  }

 private:
  std::string value(const std::string& name, const std::string& unit) const {
    try {
      return written(unit.empty() ? table_.value(name) : table_.value(name, unit));
    } catch (const Units::ParseException&) {
      return "none";
    }
  }

  const Engine engine_ = tableEngine();
  Random& random_;
  Reference reference_{*engine_};
  ParameterTable table_{*engine_};
};

}  // namespace

void fuzz(Random& random) {
  RandomTable table(random);
  for (std::size_t changes = 5 + random.below(40); changes > 0; --changes) {
    table.change();
    table.check();
  }
}
