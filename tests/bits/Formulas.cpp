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

/// A degree, minutes and seconds, or a value in feet and inches, with marks and parts missing.
std::string compositeLiteral(Random& random) {
  std::string text = random.digits(1, random.oneIn(9) ? 12 : 2);
  switch (random.below(3)) {
    case 0:
      text += random.oneOf({"'", "' ", " ft ", "' - ", "-", " "});
      text += random.oneIn(2) ? number(random) : random.digits(1, 2);
      if (random.oneIn(2)) {
        text += " " + random.digits(1, 2) + "/";
        text += random.digits(1, random.oneIn(9) ? 12 : 2);
      }
      return text += random.oneOf({"\"", "''", " in", " inches", ""});
    case 1:
      text += random.oneOf({"\xC2\xB0 ", "\xC2\xB0 ", "\xC2\xB0 ", ""});
      text += number(random);
      text += random.oneOf({"' ", "' ", "' ", ""});
      text += number(random);
      return text += random.oneOf({"\"", "\"", "\"", ""});
    default:
      text += random.oneOf({"m ", "m ", "m ", ""});
      text += number(random);
      return text += random.oneOf({"cm", "cm", "cm", ""});
  }
}

}  // namespace

Vocabulary vocabularyOf(const Definitions& definitions) {
  const auto suffixes = [&](std::size_t group) {
    std::vector<std::string> texts = definitions.groups[group].plain;
    for (const std::string& unit : definitions.groups[group].plain) texts.push_back(" " + unit);
    return texts;
  };
  Vocabulary words{number,
                   {{{""}, suffixes(length), suffixes(area)}},
                   {"abs", "round", "roundup", "rounddown", "sqrt"},
                   {"*", "/"}};
  words.special = [&definitions](Random& random, int power) {
    if (power == 1) return feetAndInches(random);
    const Group& group = power == 2 ? definitions.groups[area] : random.oneOf(definitions.groups);
    const std::string above = quantityOf(random, group);
    if (power == 2) return above;
    return random.oneIn(2) ? "pi()" : "(" + above + " / " + quantityOf(random, group) + ")";
  };
  return words;
}

std::string literal(Random& random, const Definitions& definitions) {
  std::string text = random.oneIn(3) ? "-" : "";
  const std::size_t kind = random.below(7);
  if (kind < 3) return text += compositeLiteral(random);
  if (kind == 3) return text += "$" + number(random);
  text +=
      quantityOf(random, kind == 6 ? definitions.groups[length] : random.oneOf(definitions.groups));
  if (kind != 4) return text;
  const std::size_t place = random.below(text.size());
  const auto byte = static_cast<char>(random.below(256));
  // No operator comes in that might make a power or a reciprocal.
  if (byte != '^' && byte != '/') text[place] = byte;
  return text;
}
