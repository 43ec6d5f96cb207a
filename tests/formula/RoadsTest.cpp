/// Two ways to write one formula come to the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "tests/formula/FormulaSample.h"

namespace {

/// A formula in the ways that are compared.
struct Written {
  std::string bare;      // with the parentheses that it needs
  std::string full;      // every operand in parentheses
  std::string spaced;    // with separators wherever they mean nothing
  std::string named;     // parts of it are identifiers
  std::string replaced;  // those identifiers replaced by hand
  std::string applied;   // suffixes stand behind parentheses and not in literals
  int priority = 5;      // of its outermost operator
};

class RandomFormulas {
 public:
  explicit RandomFormulas(unsigned seed) : random_(seed) {}

  /// What the identifiers of all formulas stand for.
  std::map<std::string, std::string> variables;

  Written make(int depth) {
    const std::size_t kind = pick(depth == 0 ? 2 : 12);
    Written made;
    if (kind < 2)
      made = literal();
    else if (kind < 8)
      made = binary(depth);
    else if (kind < 9)
      made = unary(make(depth - 1));
    else
      made = call(make(depth - 1));
    return pick(4) == 0 ? name(std::move(made)) : made;
  }

  std::size_t pick(std::size_t count) { return random_() % count; }

 private:
  // The symbols are none of those whose words and marks make composite literals.
  Written literal() {
    static const std::vector<std::string> numbers = {"1",  "2",  "3",   "0.5",  "7.25",
                                                     "10", ".4", "1e3", "2E-2", "0x1.8p1"};
    static const std::vector<std::string> suffixes = {"lb", "st", "rad"};
    const std::string number = numbers[pick(numbers.size())];
    if (pick(3) != 0) return {number, number, gap() + number + spaces(), number, number, number, 5};
    const std::string suffix = suffixes[pick(suffixes.size())];
    const std::string bare = number + " " + suffix;
    return {bare, bare, gap() + number + spaces() + suffix + spaces(),
            bare, bare, "(" + number + ")" + suffix,
            5};
  }

  Written binary(int depth) {
    static const std::pair<const char*, int> operators[] = {
        {"+", 1}, {"-", 1}, {"*", 2}, {"/", 2}, {"^", 3}};
    const auto& [spelling, priority] = operators[pick(5)];
    return join(make(depth - 1), spelling, make(depth - 1), priority);
  }

  Written join(const Written& left, const std::string& spelling, const Written& right,
               int priority) {
    const auto every = [&](std::string Written::*way, const std::string& before) {
      return enclosed(left, way, left.priority < priority) + before + spelling +
             enclosed(right, way, right.priority <= priority);
    };
    return {every(&Written::bare, ""),
            "(" + left.full + ")" + spelling + "(" + right.full + ")",
            every(&Written::spaced, ""),
            every(&Written::named, ""),
            every(&Written::replaced, ""),
            every(&Written::applied, ""),
            priority};
  }

  Written unary(const Written& operand) {
    const bool needed = operand.priority < 4;
    const auto one = [&](std::string Written::*way) {
      return "-" + enclosed(operand, way, needed);
    };
    return {one(&Written::bare),
            "-(" + operand.full + ")",
            gap() + one(&Written::spaced),
            one(&Written::named),
            one(&Written::replaced),
            one(&Written::applied),
            4};
  }

  Written call(const Written& input) {
    static const std::vector<std::string> names = {"abs", "sqrt", "round", "sin", "exp", ""};
    const std::string name = names[pick(names.size())];
    const auto one = [&](std::string Written::*way) { return name + "(" + input.*way + ")"; };
    return {one(&Written::bare),
            name + "((" + input.full + "))",
            gap() + name + gap() + "(" + input.spaced + spaces() + ")" + gap(),
            one(&Written::named),
            one(&Written::replaced),
            one(&Written::applied),
            5};
  }

  Written name(Written part) {
    const std::string identifier = "v " + std::to_string(variables.size());
    if (part.named == part.replaced && pick(8) == 0)
      part.named = part.replaced = spoiled(part.named);
    variables[identifier] = part.named;
    part.bare = "(" + part.bare + ")";
    part.full = "(" + part.full + ")";
    part.spaced = "(" + part.spaced + spaces() + ")" + gap();
    part.applied = "(" + part.applied + ")";
    part.named = identifier;
    part.replaced = "(" + part.replaced + ")";
    part.priority = 5;
    return part;
  }

  /// A text with a fault in it, most likely.
  std::string spoiled(std::string text) {
    static const std::vector<std::string> faults = {"(", ")", "+", "^", " ", "1", "lb", "\"", "-"};
    const std::size_t place = pick(text.size() + 1);
    return pick(2) == 0 ? text.insert(place, faults[pick(faults.size())])
                        : text.substr(0, place) + text.substr(std::min(place + 1, text.size()));
  }

  static std::string enclosed(const Written& part, std::string Written::*way, bool needed) {
    return needed ? "(" + part.*way + ")" : part.*way;
  }

  std::string gap() {
    static const std::string separators[] = {"", "", "", " ", "  ", "\n", "\t ", " \n"};
    return separators[pick(8)];
  }
  std::string spaces() { return std::string(pick(3), ' '); }

  std::mt19937 random_;
};

TEST(Roads, LeadToTheSame) {
  const Sample sample;
  RandomFormulas random(1);
  const auto resolver = [&](const std::string& name) {
    const auto found = random.variables.find(name);
    return found == random.variables.end() ? rejectIdentifier(name) : found->second;
  };
  int values = 0;
  for (int count = 0; count < 60000; ++count) {
    random.variables.clear();
    const Written written = random.make(static_cast<int>(random.pick(5)));
    const std::string outcome = sample.outcome(written.bare);
    values += outcome.find_first_not_of("0123456789.") == std::string::npos;
    ASSERT_EQ(sample.outcome(written.bare), outcome) << written.bare;
    ASSERT_EQ(sample.outcome(written.full), outcome) << written.bare;
    ASSERT_EQ(sample.outcome(written.spaced), outcome) << testing::PrintToString(written.spaced);
    ASSERT_EQ(sample.outcome(written.applied), outcome) << written.applied;
    ASSERT_EQ(sample.outcome(written.named, resolver), sample.outcome(written.replaced))
        << written.named << " or " << written.replaced;
  }
  EXPECT_GT(values, 10000);
}

}  // namespace
