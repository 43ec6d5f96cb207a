#pragma once

#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/trelvon.h>

#include <memory>

struct trelvon_engine {
  std::unique_ptr<Units::UnitsEngine> units;
};
