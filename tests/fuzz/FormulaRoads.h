/// Formulas out of choices, each written in several ways that come to the same.
#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>

#include "tests/fuzz/Choices.h"

enum Way : std::size_t {
  bare,      // with the parentheses that it needs
  full,      // every operand in parentheses
  spaced,    // with separators wherever they mean nothing
  applied,   // suffixes stand behind parentheses and not in literals
  named,     // parts of it are identifiers
  replaced,  // those identifiers replaced by hand
};

struct WrittenFormula {
  std::array<std::string, 6> ways;
  int priority = 5;  // of the outermost operator
};

class RandomFormulas {
 public:
  explicit RandomFormulas(Choices& choices) : choices_(choices) {}

  std::map<std::string, std::string> variables;

  WrittenFormula make(std::size_t depth) {
    const std::size_t kind = choices_.below(depth == 0 ? 2 : 12);
    WrittenFormula made = kind < 2    ? literal()
                          : kind < 8  ? binary(depth)
                          : kind == 8 ? unary(make(depth - 1))
                                      : call(make(depth - 1));
    return choices_.oneIn(4) ? name(made) : made;
  }

 private:
  // The symbols are none of those whose words and marks make composite literals.
  WrittenFormula literal() {
    static const char* const numbers[] = {"1",  "2",  "3",   "0.5",  "7.25",
                                          "10", ".4", "1e3", "2E-2", "0x1.8p1"};
    static const char* const suffixes[] = {"", "", "lb", "st", "rad"};
    const std::string number = choices_.oneOf(numbers);
    const std::string suffix = choices_.oneOf(suffixes);
    WrittenFormula made;
    made.ways.fill(number + suffix);
    made.ways[spaced] = gap() + number + spaces() + suffix + spaces();
    if (!suffix.empty()) made.ways[applied] = "(" + number + ")" + suffix;
    return made;
  }

  WrittenFormula binary(std::size_t depth) {
    static const std::pair<const char*, int> operators[] = {
        {"+", 1}, {"-", 1}, {"*", 2}, {"/", 2}, {"^", 3}};
    const auto& [spelling, priority] = choices_.oneOf(operators);
    const WrittenFormula left = make(depth - 1);
    const WrittenFormula right = make(depth - 1);
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

  WrittenFormula call(const WrittenFormula& input) {
    static const char* const names[] = {"abs", "sqrt", "round", "sin", "exp", ""};
    const std::string function = choices_.oneOf(names);
    WrittenFormula made = enclosed(input, true);
    for (const Way way : all)
      made.ways[way].insert(0, way == spaced ? gap() + function + gap() : function);
    return made;
  }

  WrittenFormula name(WrittenFormula part) {
    if (part.ways[named] == part.ways[replaced] && choices_.oneIn(8))
      part.ways[named] = part.ways[replaced] = spoiled(part.ways[named]);
    const std::string identifier = "v " + std::to_string(variables.size());
    variables[identifier] = part.ways[named];
    WrittenFormula made = enclosed(part, true);
    made.ways[named] = identifier;
    return made;
  }

  WrittenFormula enclosed(const WrittenFormula& part, bool needed) {
    WrittenFormula made;
    for (const Way way : all)
      made.ways[way] = needed || way == full ? "(" + part.ways[way] + ")" : part.ways[way];
    if (needed) made.ways[spaced] = "(" + part.ways[spaced] + spaces() + ")" + gap();
    return made;
  }

  /// A text with a fault in it, most likely.
  std::string spoiled(const std::string& text) {
    static const char* const faults[] = {"", "(", ")", "+", "^", " ", "1", "lb", "\"", "-"};
    const std::size_t place = choices_.below(text.size());
    return text.substr(0, place) + choices_.oneOf(faults) + text.substr(place + choices_.below(2));
  }

  std::string gap() {
    static const char* const gaps[] = {"", "", "", " ", "  ", "\n", "\t ", " \n"};
    return choices_.oneOf(gaps);
  }
  std::string spaces() { return std::string(choices_.below(3), ' '); }

  static constexpr Way all[] = {bare, full, spaced, applied, named, replaced};
  Choices& choices_;
};
