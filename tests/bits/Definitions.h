/// The definitions that the operations use: units of a few dimensions, in groups.
#pragma once

#include "tests/support/Random.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <string>
#include <vector>

/// Units of one dimension. The plain ones need only products. What the powered ones are defined by
/// is raised to powers, by the C library's pow.
struct Group {
  const char* name;
  Units::PrimitivePowers powers;
  std::vector<std::string> plain = {};
  std::vector<std::string> powered = {};
};

struct Definitions {
  std::unique_ptr<Units::UnitsEngine> engine;
  std::vector<Group> groups;        ///< Length, mass and time first.
  std::vector<std::string> scales;  ///< Absolute units.
  std::vector<std::string> symbols;
};

constexpr std::size_t length = 0, area = 3, speed = 4, pace = 5;

Definitions makeDefinitions();
