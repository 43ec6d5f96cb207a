#pragma once

#include "formula/EvaluatedValue.h"
#include "parameters/FormulaReading.h"
#include "parameters/Parameter.h"

#include <TrelvonUnits/ParameterTable.h>

#include <cstddef>
#include <memory>
#include <mutex>

namespace Units {

struct ParameterTableContents {
  explicit ParameterTableContents(const UnitsEngine& engine)
      : host(engine), source(std::make_unique<FormulaSource>(engine)) {}

  const UnitsEngine& host;
  std::unique_ptr<FormulaSource> source;
  ParameterMap parameters;
  std::size_t defined = 0;  // how many have a definition

  std::mutex mutex;           // protects what const operations change: states, values, marks
  std::size_t clock = 0;      // of visits
  EvaluatedValues evaluated;  // memory that is used again
};

}  // namespace Units
