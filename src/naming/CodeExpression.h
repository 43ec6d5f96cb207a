#pragma once

#include "model/SizeAndPowers.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// A code as messages show it.
inline std::string quotedCode(std::string_view code) { return '`' + std::string(code) + '`'; }

/// Reads products and quotients of codes, such as kg.m-3 or m/s2.
///
/// UCUM: `.` and `/`, an exponent directly after a unit, whole numbers and `[pi]`, parentheses, and
/// remarks in braces, which are ignored. (The Unified Code for Units of Measure, version 2.1,
/// sections 2 to 4.)
///
/// UDUNITS: also spaces and `*` for products, `per` for quotients, `^` and `**` before an exponent,
/// exponents after parentheses, and numbers with decimals. (UDUNITS-2, "Unit syntax".)
///
/// A unit may have an SI prefix. A temperature scale cannot be part of an expression.
class CodeExpression {
 public:
  enum class Syntax { Ucum, Udunits };

  /// Returns the terms of a single code; null if there is none.
  using Atoms = std::function<const SizeAndPowers*(std::string_view)>;

  CodeExpression(std::string_view text, Syntax syntax, Atoms atoms);

  /// The terms of the expression.
  /// @return  none if it cannot be read; `fault` then says why.
  std::optional<SizeAndPowers> read();

  const std::string& fault() const { return fault_; }

 private:
  /// A product that is not complete yet.
  struct Product {
    SizeAndPowers terms;
    int sign = 1;          // of the exponent of the next part
    bool hasPart = false;  // after the last operator
    bool isEmpty = true;   // nothing was read yet
  };

  void step();
  void open();
  void close();
  void takeOperator(int sign, std::size_t length);
  void readRemark();
  bool beginsNumber() const;
  void readNumber();
  void readUnit();
  std::size_t endOfWord() const;
  std::optional<SizeAndPowers> termsOf(std::string_view code) const;
  int takeExponent(std::string_view& word) const;
  int readExponent();
  void multiply(const SizeAndPowers& part, int exponent);
  void refuse(std::string reason);

  const std::string_view text_;
  const Syntax syntax_;
  const Atoms atoms_;
  std::size_t at_ = 0;
  std::vector<Product> products_;  // one more for each parenthesis that is open
  std::string fault_;
};

}  // namespace Units
