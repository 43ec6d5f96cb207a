#pragma once

#include "naming/CodeExpression.h"
#include "naming/CodedUnits.h"
#include "naming/ExactNames.h"
#include "naming/UnitCodesContents.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// Finds units by expressions of codes, such as "ucum:kg.m-3", and explains what is wrong with
/// codes.
class CodeFinder {
 public:
  /// @param entries, names  must outlive it.
  CodeFinder(const UnitsEngine& engine, std::vector<Unit> units,
             const std::map<std::string, CodesBySystem>& codes, const NameEntries& entries,
             const ExactNames& names);

  /// The units of an expression "SYSTEM:EXPRESSION", in order.
  std::vector<Unit> find(std::string_view text) const;

  /// Why a text "SYSTEM:CODE" does not name a unit.
  std::string whyNot(std::string_view text) const;

 private:
  std::optional<CodeExpression> expressionOf(std::string_view text) const;
  const SizeAndPowers* ucumAtom(std::string_view code) const;
  const SizeAndPowers* udunitsAtom(std::string_view code) const;
  const SizeAndPowers* termsOf(const std::string& text) const;

  const NameEntries& entries_;
  const ExactNames& names_;
  const CodedUnits units_;
  std::set<std::string, std::less<>> systems_;
};

}  // namespace Units
