#pragma once

#include "parameters/Contents.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <string_view>

namespace Units {

/// The parameters of a table that have values.
class KnownParameters final : public KnownVariables {
 public:
  explicit KnownParameters(const ParameterTableContents& table) : table_(table) {}

  const VariableValue* find(std::string_view name) override;

 private:
  const ParameterTableContents& table_;
};

/// Explains a parameter's formula. What it refers to must have values.
FormulaExplanation explainParameter(const ParameterTableContents& table,
                                    const Parameter& parameter);

}  // namespace Units
