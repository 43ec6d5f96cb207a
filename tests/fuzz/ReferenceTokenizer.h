/// The tokenizer as one would write it first: the text is erased from the front, everything is
/// searched for again for each token, and nothing is bounded.
#pragma once

#include "formula/FormulaTokenizer.h"
#include "text/ValueText.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <string>
#include <utility>
#include <vector>

struct ReferenceTokenizer {
  std::string rest;
  const Units::SymbolTexts& symbols;
  const Units::UnitMath& math;
  VariableResolver resolver;

  static constexpr const char* separators = "\n \t";

  static std::pair<std::size_t, std::size_t> findFirstOperator(const std::string& text) {
    std::pair<std::size_t, std::size_t> best(std::string::npos, 0);
    for (const std::string spelling : {"-", "+", "-", "*", "/", "^", "(", ")"}) {
      const std::size_t position = text.find(spelling);
      if (position < best.first) best = {position, spelling.size()};
    }
    return best;
  }

  static std::string trimmed(const std::string& text) {
    const std::size_t from = text.find_first_not_of(separators);
    if (from == std::string::npos) return "";
    return text.substr(from, text.find_last_not_of(separators) + 1 - from);
  }

  std::string take(std::size_t length) {
    const std::string taken = rest.substr(0, length);
    rest.erase(0, length);
    return trimmed(taken);
  }

  std::vector<std::size_t> candidates() const {
    std::vector<std::size_t> ends;
    for (std::size_t from = 0; ends.size() < 5;) {
      const auto [position, length] = findFirstOperator(rest.substr(from));
      ends.push_back(position == std::string::npos ? rest.size() : from + position);
      if (position == std::string::npos) break;
      from += position + length;
    }
    return ends;
  }

  bool scanValueOrSymbol(FormulaTokenType& type, std::string& text) {
    const std::vector<std::size_t> ends = candidates();
    for (auto end = ends.rbegin(); end != ends.rend(); ++end) {
      const std::string candidate = rest.substr(0, *end);
      if (Units::parseValueText(candidate, nullptr, nullptr, symbols)) {
        type = FormulaTokenType::Number;
        text = take(*end);
        return true;
      }
      std::string_view after = candidate;
      if (Units::matchLeadingSymbol(after, std::nullopt, nullptr, symbols)) {
        type = FormulaTokenType::UnitSymbol;
        text = take(*end - after.size());
        return true;
      }
    }
    return false;
  }

  bool nextToken(FormulaTokenType& type, std::string& text) {
    rest.erase(0, rest.find_first_not_of(separators));
    if (rest.empty()) return false;
    const auto [position, length] = findFirstOperator(rest);
    if (position == 0) {
      text = take(length);
      type = text == "("   ? FormulaTokenType::OpenParen
             : text == ")" ? FormulaTokenType::CloseParen
                           : FormulaTokenType::Operator;
      return true;
    }
    if (scanValueOrSymbol(type, text)) return true;
    text = take(position);
    type = FormulaTokenType::Function;
    if (math.getFunctionMap().find(text) != FormulaFunction::None) return true;
    const std::string replacement = resolver(text);
    if (replacement == text)
      throw Units::ParseException("Variable resolved to an identical string.");
    rest = "(" + replacement + ")" + rest;
    return nextToken(type, text);
  }
};
