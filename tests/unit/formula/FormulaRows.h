/// Formulas and what they come to, as rows.
#pragma once

#include "tests/unit/formula/FormulaSample.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Rows as "formula = outcome".
inline void expectOutcomes(const std::vector<std::string>& rows) {
  const Sample sample;
  for (const std::string& row : rows) {
    const std::string formula = row.substr(0, row.find(" = "));
    EXPECT_EQ(formula + " = " + sample.outcome(formula), row);
  }
}

inline void expectEach(const std::vector<const char*>& formulas, const std::string& outcome) {
  const Sample sample;
  for (const char* formula : formulas) EXPECT_EQ(sample.outcome(formula), outcome) << formula;
}
