#pragma once

#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/trelvon.h>

#include <memory>

struct trelvon_engine {
  std::shared_ptr<Units::UnitsEngine> units;  // tables of parameters share it
};
