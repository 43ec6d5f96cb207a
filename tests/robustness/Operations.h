/// Every operation of an engine, as a row, for programs that make it fail.
#pragma once

#include "tests/support/Sample.h"

#include <functional>
#include <string>
#include <vector>

struct Operation {
  std::string name;
  std::function<std::string(Units::UnitsEngine&)> run;

  /// The engine that it runs on.
  std::function<Engine()> start;

  /// Where the operation drops what was pending when it fails: what is left, and how to add the
  /// rest again.
  bool isBuild = false;
  std::function<std::string()> dropped = [] { return std::string(); };
  std::function<void(Units::UnitsEngine&)> refill = [](Units::UnitsEngine&) {};

  /// What it has read before it fails stays pending, as its contract says.
  bool leavesPending = false;

  /// No allocation fails before `heap::pause(false)`.
  bool startsPaused = false;

  bool mayNeedNone = false;  // answers without an allocation
};

/// A load into an empty engine.
Operation loading(const std::string& name, const std::function<void(Units::UnitsEngine&)>& load);

std::vector<Operation> readingOperations();
std::vector<Operation> allOperations();
