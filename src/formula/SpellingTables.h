#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

/// The spellings of the operators and functions of the formula language. No table contains None.

/// Each operator is one byte: in the order of their enumerations, from 1.
inline constexpr std::string_view binaryOperators = "+-*/^";
inline constexpr std::string_view unaryOperators = "-";

enum class FormulaBinaryOperator : std::int32_t {
  None = 0,
  Add = 1,
  Subtract = 2,
  Multiply = 3,
  Divide = 4,
  Power = 5,
};

enum class FormulaUnaryOperator : std::int32_t {
  None = 0,
  Negate = 1,
};

enum class FormulaFunction : std::int32_t {
  None = 0,
  Sin = 1,
  Cos = 2,
  Tan = 3,
  Asin = 4,
  Acos = 5,
  Atan = 6,
  Exp = 7,
  Log = 8,
  Sqrt = 9,
  Abs = 10,
  Pi = 11,
  Round = 12,
  RoundUp = 13,
  RoundDown = 14,
  Ln = 15,
};

/// A two-way table between spellings and values. It fills itself on first use.
template <class E>
class ValStringMap {
 public:
  using Spellings = std::map<std::string, E, std::less<>>;

  virtual ~ValStringMap() = default;

  /// `E::None` if no entry has this spelling.
  E find(std::string_view spelling) const {
    const Spellings& all = spellings();
    if (spelling.size() == 1) return ofByte_[static_cast<unsigned char>(spelling[0])];
    const auto found = all.find(spelling);
    return found == all.end() ? E::None : found->second;
  }

  /// Empty if no entry has this value.
  std::string spellingOf(E value) const {
    ensureFilled();
    const auto found = valueToString_.find(value);
    return found == valueToString_.end() ? std::string() : found->second;
  }

  /// All entries, in byte order.
  const Spellings& spellings() const {
    ensureFilled();
    return stringToValue_;
  }

 protected:
  /// Adds every entry of the table.
  virtual void populate() const = 0;

  /// An entry replaces earlier entries with the same spelling or value.
  void add(std::string_view spelling, E value) const {
    stringToValue_[std::string(spelling)] = value;
    valueToString_[value] = spelling;
    if (spelling.size() == 1) ofByte_[static_cast<unsigned char>(spelling[0])] = value;
  }

  /// Adds spellings of one byte each, with the values from 1 on.
  void addBytes(std::string_view spellings) const {
    for (std::size_t i = 0; i < spellings.size(); ++i)
      add(spellings.substr(i, 1), static_cast<E>(i + 1));
  }

 private:
  void ensureFilled() const {
    if (initialized_) return;
    populate();
    initialized_ = true;
  }

  mutable bool initialized_ = false;
  mutable Spellings stringToValue_;
  mutable std::map<E, std::string> valueToString_;
  mutable std::array<E, 256> ofByte_ = {};  // the spellings of one byte
};

class BinaryOperatorMap : public ValStringMap<FormulaBinaryOperator> {
 protected:
  void populate() const override;
};

class UnaryOperatorMap : public ValStringMap<FormulaUnaryOperator> {
 protected:
  void populate() const override;
};

class FunctionMap : public ValStringMap<FormulaFunction> {
 protected:
  void populate() const override;
};
