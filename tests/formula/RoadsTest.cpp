/// Two ways to write one formula come to the same.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/formula/FormulaSample.h"

namespace {

enum Way : std::size_t {
  bare,      // with the parentheses that it needs
  full,      // every operand in parentheses
  spaced,    // with separators wherever they mean nothing
  applied,   // suffixes stand behind parentheses and not in literals
  named,     // parts of it are identifiers
  replaced,  // those identifiers replaced by hand
};

struct Written {
  std::array<std::string, 6> ways;
  int priority = 5;  // of the outermost operator
};

class RandomFormulas {
 public:
  std::map<std::string, std::string> variables;

  Written make(int depth) {
    const std::size_t kind = pick(depth == 0 ? 2 : 12);
    Written made = kind < 2    ? literal()
                   : kind < 8  ? binary(make(depth - 1), make(depth - 1))
                   : kind == 8 ? unary(make(depth - 1))
                               : call(make(depth - 1));
    return pick(4) == 0 ? name(made) : made;
  }

  std::size_t pick(std::size_t count) { return random_() % count; }

 private:
  // The symbols are none of those whose words and marks make composite literals.
  Written literal() {
    const std::string number =
        oneOf({"1", "2", "3", "0.5", "7.25", "10", ".4", "1e3", "2E-2", "0x1.8p1"});
    const std::string suffix = oneOf({"", "", "lb", "st", "rad"});
    Written made;
    made.ways.fill(number + suffix);
    made.ways[spaced] = gap() + number + spaces() + suffix + spaces();
    if (!suffix.empty()) made.ways[applied] = "(" + number + ")" + suffix;
    return made;
  }

  Written binary(const Written& left, const Written& right) {
    static const std::pair<const char*, int> operators[] = {
        {"+", 1}, {"-", 1}, {"*", 2}, {"/", 2}, {"^", 3}};
    const auto& [spelling, priority] = operators[pick(5)];
    Written made = enclosed(left, left.priority < priority);
    const Written operand = enclosed(right, right.priority <= priority);
    for (const Way way : all) made.ways[way] += spelling + operand.ways[way];
    made.priority = priority;
    return made;
  }

  Written unary(const Written& operand) {
    Written made = enclosed(operand, operand.priority < 4);
    for (const Way way : all) made.ways[way].insert(0, way == spaced ? gap() + "-" : "-");
    made.priority = 4;
    return made;
  }

  Written call(const Written& input) {
    const std::string name = oneOf({"abs", "sqrt", "round", "sin", "exp", ""});
    Written made = enclosed(input, true);
    for (const Way way : all) made.ways[way].insert(0, way == spaced ? gap() + name + gap() : name);
    return made;
  }

  Written name(Written part) {
    if (part.ways[named] == part.ways[replaced] && pick(8) == 0)
      part.ways[named] = part.ways[replaced] = spoiled(part.ways[named]);
    const std::string identifier = "v " + std::to_string(variables.size());
    variables[identifier] = part.ways[named];
    Written made = enclosed(part, true);
    made.ways[named] = identifier;
    return made;
  }

  Written enclosed(const Written& part, bool needed) {
    Written made;
    for (const Way way : all)
      made.ways[way] = needed || way == full ? "(" + part.ways[way] + ")" : part.ways[way];
    if (needed) made.ways[spaced] = "(" + part.ways[spaced] + spaces() + ")" + gap();
    return made;
  }

  /// A text with a fault in it, most likely.
  std::string spoiled(const std::string& text) {
    const std::size_t place = pick(text.size());
    return text.substr(0, place) + oneOf({"", "(", ")", "+", "^", " ", "1", "lb", "\"", "-"}) +
           text.substr(place + pick(2));
  }

  std::string oneOf(const std::vector<std::string>& texts) { return texts[pick(texts.size())]; }
  std::string gap() { return oneOf({"", "", "", " ", "  ", "\n", "\t ", " \n"}); }
  std::string spaces() { return std::string(pick(3), ' '); }

  static constexpr Way all[] = {bare, full, spaced, applied, named, replaced};
  std::mt19937 random_{1};
};

TEST(Roads, LeadToTheSame) {
  const Sample sample;
  RandomFormulas random;
  const auto resolver = [&](const std::string& name) {
    const auto found = random.variables.find(name);
    return found == random.variables.end() ? rejectIdentifier(name) : found->second;
  };
  int values = 0;
  for (int count = 0; count < 60000; ++count) {
    random.variables.clear();
    const auto ways = random.make(static_cast<int>(random.pick(5))).ways;
    const std::string outcome = sample.outcome(ways[bare]);
    for (const Way way : {bare, full, spaced, applied})
      ASSERT_EQ(sample.outcome(ways[way]), outcome) << testing::PrintToString(ways);
    ASSERT_EQ(sample.outcome(ways[named], resolver), sample.outcome(ways[replaced]))
        << testing::PrintToString(ways);
    values += outcome.find_first_not_of("0123456789.") == std::string::npos;
  }
  EXPECT_GT(values, 10000);
}

}  // namespace
