/// Random formulas, each written in several equivalent ways. No expression draws two random values:
/// compilers evaluate operands in different orders, and all of them must make the same formulas.
#pragma once

#include "tests/support/Random.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

enum Way : std::size_t {
  bare,       // with the parentheses that it needs
  full,       // every operand in parentheses
  spaced,     // with separators wherever they mean nothing
  applied,    // suffixes stand after parentheses and not in literals
  withNames,  // parts of it are identifiers
};

struct WrittenFormula {
  std::array<std::string, 5> ways;
  int priority = 5;  // of the outermost operator
};

/// What formulas are made of. Powers are those of one unit, from 0 to 2.
struct Vocabulary {
  std::function<std::string(Random&)> number;
  std::array<std::vector<std::string>, 3> suffixes;  // by power; without any, a product is made
  std::vector<std::string> functions;                // that keep the unit, or "sqrt"
  std::vector<std::string> operators;                // of products
  std::function<std::string(Random&, int power)> special = {};  // other values, at times
};

class RandomFormulas {
 public:
  RandomFormulas(Random& random, const Vocabulary& words) : random_(random), words_(words) {}

  std::map<std::string, std::string> variables;

  /// Mostly of that power; else one that is refused.
  WrittenFormula make(int power, std::size_t depth) {
    const std::size_t kind = random_.below(depth == 0 ? 2 : 12);
    WrittenFormula made = kind < 2    ? leaf(power)
                          : kind < 5  ? sum(power, depth - 1)
                          : kind < 8  ? product(power, depth - 1)
                          : kind == 8 ? unary(make(power, depth - 1))
                                      : call(power, depth - 1);
    return random_.oneIn(4) ? name(made) : made;
  }

 private:
  WrittenFormula leaf(int power) {
    WrittenFormula made;
    if (words_.special && random_.oneIn(4)) {
      made.ways.fill(words_.special(random_, power));
      return made;
    }
    const auto& suffixes = words_.suffixes[static_cast<std::size_t>(power)];
    if (suffixes.empty()) {
      const WrittenFormula left = leaf(power - 1);
      return joined(left, "*", leaf(1), 2);
    }
    const std::string number = words_.number(random_);
    const std::string suffix = random_.oneOf(suffixes);
    made.ways.fill(number + suffix);
    made.ways[spaced] = gap() + number;
    made.ways[spaced] += spaces() + suffix;
    made.ways[spaced] += spaces();
    if (!suffix.empty()) made.ways[applied] = "(" + number + ")" + suffix;
    return made;
  }

  WrittenFormula sum(int power, std::size_t depth) {
    const WrittenFormula left = make(power, depth);
    const std::string spelling = random_.oneOf({"+", "-"});
    return joined(left, spelling, make(random_.oneIn(40) ? random_.between(0, 2) : power, depth),
                  1);
  }

  WrittenFormula product(int power, std::size_t depth) {
    const std::string spelling = random_.oneOf(words_.operators);
    const int right = spelling == "*"   ? random_.between(0, power)
                      : spelling == "/" ? random_.between(0, 2 - power)
                                        : 0;
    const WrittenFormula left = make(spelling == "*" ? power - right : power + right, depth);
    return joined(left, spelling, make(right, depth), spelling == "^" ? 3 : 2);
  }

  static WrittenFormula joined(const WrittenFormula& left, const std::string& spelling,
                               const WrittenFormula& right, int priority) {
    WrittenFormula made = enclosed(left, left.priority < priority);
    const WrittenFormula operand = enclosed(right, right.priority <= priority);
    for (const Way way : all) made.ways[way] += spelling + operand.ways[way];
    made.priority = priority;
    return made;
  }

  WrittenFormula unary(const WrittenFormula& operand) {
    WrittenFormula made = enclosed(operand, operand.priority < 4);
    for (const Way way : all) made.ways[way].insert(0, way == spaced ? gap() + "-" : "-");
    made.priority = 4;
    return made;
  }

  WrittenFormula call(int power, std::size_t depth) {
    const std::string function = random_.oneOf(words_.functions);
    WrittenFormula made =
        enclosed(make(function == "sqrt" ? std::min(2, 2 * power) : power, depth), true);
    const std::string before = gap(), after = gap();
    for (const Way way : all)
      made.ways[way].insert(0, way == spaced ? before + function + after : function);
    return made;
  }

  WrittenFormula name(const WrittenFormula& part) {
    const std::string identifier = "v " + std::to_string(variables.size());
    variables[identifier] = part.ways[withNames];
    WrittenFormula made = enclosed(part, true);
    made.ways[withNames] = identifier;
    return made;
  }

  static WrittenFormula enclosed(const WrittenFormula& part, bool needed) {
    WrittenFormula made;
    for (const Way way : all)
      made.ways[way] = needed || way == full ? "(" + part.ways[way] + ")" : part.ways[way];
    if (needed) made.ways[spaced] = "(" + part.ways[spaced] + " )\n";
    return made;
  }

  std::string gap() { return random_.oneOf({"", "", "", " ", "  ", "\n", "\t ", " \n"}); }
  std::string spaces() { return std::string(random_.below(3), ' '); }

  static constexpr Way all[] = {bare, full, spaced, applied, withNames};
  Random& random_;
  const Vocabulary& words_;
};
