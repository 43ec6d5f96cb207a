#include "naming/CodeExpression.h"

#include "model/Characters.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace Units {

namespace {

struct Prefix {
  std::string_view text;
  double factor;
};

/// The International System of Units (SI Brochure), 9th edition, table 7; IEC 80000-13 for the
/// binary ones. The names are for UDUNITS only.
constexpr Prefix prefixes[] = {
    {"Y", 1e24},     {"Z", 1e21},      {"E", 1e18},     {"P", 1e15},      {"T", 1e12},
    {"G", 1e9},      {"M", 1e6},       {"k", 1e3},      {"h", 1e2},       {"da", 1e1},
    {"d", 1e-1},     {"c", 1e-2},      {"m", 1e-3},     {"u", 1e-6},      {"n", 1e-9},
    {"p", 1e-12},    {"f", 1e-15},     {"a", 1e-18},    {"z", 1e-21},     {"y", 1e-24},
    {"Ki", 1024},    {"Mi", 0x1p20},   {"Gi", 0x1p30},  {"Ti", 0x1p40},   {"yotta", 1e24},
    {"zetta", 1e21}, {"exa", 1e18},    {"peta", 1e15},  {"tera", 1e12},   {"giga", 1e9},
    {"mega", 1e6},   {"kilo", 1e3},    {"hecto", 1e2},  {"deka", 1e1},    {"deca", 1e1},
    {"deci", 1e-1},  {"centi", 1e-2},  {"milli", 1e-3}, {"micro", 1e-6},  {"nano", 1e-9},
    {"pico", 1e-12}, {"femto", 1e-15}, {"atto", 1e-18}, {"zepto", 1e-21}, {"yocto", 1e-24}};

bool isName(const Prefix& prefix) { return prefix.text.size() > 2; }

constexpr std::int64_t largestPower = 1000000;

bool areDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

SizeAndPowers number(double value) {
  SizeAndPowers terms;
  terms.factor = value;
  return terms;
}

SizeAndPowers wholeNumber(std::string_view digits) {
  double value = 0;
  for (const char digit : digits.substr(0, 400)) value = 10 * value + (digit - '0');
  return number(value);
}

}  // namespace

CodeExpression::CodeExpression(std::string_view text, Syntax syntax, Atoms atoms)
    : text_(text), syntax_(syntax), atoms_(std::move(atoms)) {}

std::optional<SizeAndPowers> CodeExpression::read() {
  products_.assign(1, {});
  while (fault_.empty() && at_ < text_.size()) step();
  if (fault_.empty() && products_.size() > 1) refuse("a parenthesis is not closed");
  if (fault_.empty() && !products_.back().hasPart) refuse("a unit is missing at the end");
  if (!fault_.empty()) return std::nullopt;
  return std::move(products_.back().terms);
}

void CodeExpression::step() {
  const bool isUcum = syntax_ == Syntax::Ucum;
  const char next = text_[at_];
  if (next == '(') return open();
  if (next == ')') return close();
  if (!isUcum && beginsNumber()) return readNumber();
  if (next == '/') return takeOperator(-1, 1);
  if (next == '.' || (next == '*' && !isUcum)) return takeOperator(1, 1);
  if (next == '{' && isUcum) return readRemark();
  if (next == ' ' && !isUcum)
    ++at_;
  else
    readUnit();
}

void CodeExpression::open() {
  if (products_.back().hasPart && syntax_ == Syntax::Ucum)
    return refuse("an operator is missing before a parenthesis");
  products_.emplace_back();
  ++at_;
}

void CodeExpression::close() {
  if (products_.size() == 1) return refuse("a parenthesis is closed but was never opened");
  if (!products_.back().hasPart) return refuse("a unit is missing before a parenthesis");
  const SizeAndPowers inner = std::move(products_.back().terms);
  products_.pop_back();
  ++at_;
  multiply(inner, syntax_ == Syntax::Udunits ? readExponent() : 1);
}

void CodeExpression::takeOperator(int sign, std::size_t length) {
  Product& product = products_.back();
  const bool beginsQuotient = product.isEmpty && sign < 0;  // such as /min
  if (!product.hasPart && !beginsQuotient) return refuse("a unit is missing before an operator");
  product.sign = sign;
  product.hasPart = product.isEmpty = false;
  at_ += length;
}

void CodeExpression::readRemark() {
  const std::size_t end = text_.find('}', at_);
  if (end == text_.npos) return refuse("a brace is not closed");
  products_.back().hasPart = true;
  products_.back().isEmpty = false;
  at_ = end + 1;
}

/// Only UDUNITS has numbers with decimals. A point after a unit is a product there, too.
bool CodeExpression::beginsNumber() const {
  const bool hasPoint = text_[at_] == '.' && !products_.back().hasPart;
  const std::size_t digit = hasPoint ? at_ + 1 : at_;
  return digit < text_.size() && isDigit(text_[digit]);
}

void CodeExpression::readNumber() {
  const LeadingNumber read = readClassicDouble(text_.substr(at_));
  at_ += read.length;
  multiply(number(read.value), readExponent());
}

void CodeExpression::readUnit() {
  const bool isUdunits = syntax_ == Syntax::Udunits;
  const std::size_t begin = at_, end = endOfWord();
  std::string_view word = text_.substr(begin, end - begin);
  if (isUdunits && word == "per") return takeOperator(-1, word.size());
  if (products_.back().hasPart && !isUdunits) return refuse("an operator is missing before a unit");
  at_ = end;
  const SizeAndPowers* const whole = atoms_(word);  // a code may end in digits
  const int exponent = whole || areDigits(word) ? 1 : takeExponent(word);
  const auto terms = whole ? std::optional<SizeAndPowers>(*whole) : termsOf(word);
  if (!terms)
    return refuse(quotedCode(text_.substr(begin, end - begin)) + " is not the code of a unit");
  if (terms->isAbsolute) return refuse(quotedCode(word) + " is a scale, which has no powers");
  multiply(*terms, isUdunits && exponent == 1 ? readExponent() : exponent);
}

/// Everything in brackets belongs to a unit.
std::size_t CodeExpression::endOfWord() const {
  const std::string_view ends = syntax_ == Syntax::Ucum ? "./(){" : "./()* ";
  bool isInBrackets = false;
  std::size_t end = at_;
  for (; end < text_.size(); ++end) {
    if (text_[end] == '[') isInBrackets = true;
    if (text_[end] == ']') isInBrackets = false;
    if (!isInBrackets && ends.find(text_[end]) != ends.npos) break;
  }
  return end;
}

/// The terms of a whole number, or of a code, which may have a prefix.
std::optional<SizeAndPowers> CodeExpression::termsOf(std::string_view code) const {
  if (areDigits(code)) return wholeNumber(code);
  if (syntax_ == Syntax::Ucum && (code == "10*" || code == "10^")) return wholeNumber("10");
  if (syntax_ == Syntax::Ucum && code == "[pi]") return number(3.14159265358979323846);
  if (const SizeAndPowers* const known = atoms_(code)) return *known;
  for (const Prefix& prefix : prefixes) {
    if (isName(prefix) && syntax_ != Syntax::Udunits) continue;
    if (code.substr(0, prefix.text.size()) != prefix.text) continue;
    const SizeAndPowers* const known = atoms_(code.substr(prefix.text.size()));
    if (!known || known->isAbsolute) continue;
    SizeAndPowers terms = *known;
    terms.factor *= prefix.factor;
    return terms;
  }
  return std::nullopt;
}

/// Cuts an exponent from the end of a word: "m-3", or "m^2" in UDUNITS.
/// @return  1 if there is none.
int CodeExpression::takeExponent(std::string_view& word) const {
  std::size_t begin = word.size();
  while (begin > 0 && isDigit(word[begin - 1])) --begin;
  const std::string_view digits = word.substr(begin);
  if (digits.empty() || digits.size() > 4) return 1;
  int exponent = std::atoi(std::string(digits).c_str());
  if (begin > 0 && (word[begin - 1] == '-' || word[begin - 1] == '+'))
    exponent = word[--begin] == '-' ? -exponent : exponent;
  if (syntax_ == Syntax::Udunits && begin > 0 && word[begin - 1] == '^') --begin;
  word = word.substr(0, begin);
  return exponent;
}

/// Reads the exponent that follows what was read, with its sign: "**2", "^-2", or "2".
/// @return  1 if there is none.
int CodeExpression::readExponent() {
  const std::string_view sign = text_.substr(at_, 2) == "**" ? "**" : "";
  std::size_t end = at_ + sign.size();
  while (end < text_.size() &&
         (isDigit(text_[end]) || text_[end] == '^' || text_[end] == '-' || text_[end] == '+'))
    ++end;
  std::string_view word = text_.substr(at_, end - at_);
  const int exponent = takeExponent(word);
  if (word != sign || (!sign.empty() && end == at_ + sign.size()))
    refuse("an exponent is missing or not a whole number");
  at_ = end;
  return exponent;
}

void CodeExpression::multiply(const SizeAndPowers& part, int exponent) {
  Product& product = products_.back();
  exponent *= product.sign;
  product.terms.factor *= std::pow(part.factor, exponent);
  if (!std::isnormal(product.terms.factor)) return refuse("a number is too large or too small");
  for (const auto& [primitive, power] : part.powers) {
    std::int64_t& sum = product.terms.powers[primitive];
    sum += power * exponent;
    if (std::abs(sum) > largestPower) return refuse("a power is too large");
  }
  product.sign = 1;
  product.hasPart = true;
}

void CodeExpression::refuse(std::string reason) { fault_ = std::move(reason); }

}  // namespace Units
