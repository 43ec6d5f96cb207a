#include "tests/bits/Formulas.h"

namespace {

std::string number(Random& random) {
  if (random.oneIn(30)) return random.oneOf({"0x1F", "0x1.8p3", ".5", "5.", "1e400", "1e-400", ""});
  return random.decimal();
}

std::string quantityOf(Random& random, const Group& group) {
  std::string text = number(random);
  text += random.oneOf({"", " ", "  "});
  return text += random.oneOf(group.plain);
}

std::string feetAndInches(Random& random) {
  std::string text = random.digits(1, 3) + "' ";
  text += random.digits(1, 2) + " ";
  text += random.digits(1, 2) + "/";
  return "(" + text + random.digits(1, 2) + "\")";
}

std::string leaf(Random& random, const Definitions& definitions, int power) {
  const int kind = random.below(8);
  if (kind == 0) return "x" + std::to_string(power);
  if (power == 1 && kind == 1) return feetAndInches(random);
  if (power == 1) return quantityOf(random, definitions.groups[length]);
  if (power == 2) return quantityOf(random, definitions.groups[area]);
  if (kind == 1) return "pi()";
  if (kind > 2) return number(random);
  const Group& group = random.oneOf(definitions.groups);
  const std::string above = quantityOf(random, group);
  return "(" + above + " / " + quantityOf(random, group) + ")";
}

}  // namespace

std::string formula(Random& random, const Definitions& definitions, int power, int depth) {
  if (depth == 0) return leaf(random, definitions, power);
  const auto part = [&](int exponent) {
    return formula(random, definitions, exponent, random.below(depth));
  };
  switch (random.below(8)) {
    case 0:
    case 1: {
      std::string sum = part(power);
      sum += random.oneOf({" + ", " - ", "+", "-"});
      return sum += part(random.oneIn(40) ? random.below(3) : power);
    }
    case 2: {
      const int leftPower = random.between(0, power);
      const std::string left = part(leftPower);
      return left + " * " + part(power - leftPower);
    }
    case 3: {
      const int more = power == 2 ? 0 : random.below(2);
      const std::string above = part(power + more);
      return above + "/(" + part(more) + ")";
    }
    case 4:
      return "(" + part(power) + ")";
    case 5:
      return "-" + part(power);
    case 6:
      if (power < 2) return "sqrt(abs(" + part(2 * power) + "))";
      break;
    default:
      break;
  }
  const std::string function = random.oneOf({"abs", "round", "roundup", "rounddown"});
  return function + "(" + part(power) + ")";
}

std::string literal(Random& random, const Definitions& definitions) {
  std::string text = random.oneIn(3) ? "-" : "";
  const auto whole = [&] { text += random.digits(1, random.oneIn(9) ? 12 : 2); };
  const auto any = [&] { text += number(random); };
  const auto mark = [&](const char* texts) {
    if (!random.oneIn(6)) text += texts;
  };
  switch (random.below(7)) {
    case 0:
      whole();
      text += random.oneOf({"'", "' ", " ft ", "' - ", "-", " "});
      random.oneIn(2) ? any() : whole();
      if (random.oneIn(2)) {
        text += " " + random.digits(1, 2) + "/";
        whole();
      }
      return text += random.oneOf({"\"", "''", " in", " inches", ""});
    case 1:
      whole(), mark("\xC2\xB0 "), any(), mark("' "), any(), mark("\"");
      return text;
    case 2:
      whole(), mark("m "), any(), mark("cm");
      return text;
    case 3:
      text += "$";
      any();
      return text;
    case 4: {
      text += quantityOf(random, random.oneOf(definitions.groups));
      const int place = random.below(static_cast<int>(text.size()));
      const auto byte = static_cast<char>(random.below(256));
      // No operator comes in that might make a power or a reciprocal.
      if (byte != '^' && byte != '/') text[static_cast<std::size_t>(place)] = byte;
      return text;
    }
    case 5:
      return text += quantityOf(random, random.oneOf(definitions.groups));
    default:
      return text += quantityOf(random, definitions.groups[length]);
  }
}
