/// Every operation of an engine, as a row, for programs that make it fail.
#pragma once

#include "tests/support/Sample.h"

#include <functional>
#include <string>
#include <vector>

struct Operation {
  std::string name;
  std::function<std::string(Units::UnitsEngine&)> run;

  /// The engine that it runs on, and what is then pending there.
  Engine (*before)() = sampleEngine;
  void (*addPending)(Units::UnitsEngine&) = [](Units::UnitsEngine&) {};

  bool isBuild = false;        // drops what was pending when it fails
  bool leavesPending = false;  // what it has read before it fails, as its contract says
  bool startsPaused = false;   // no allocation fails before `heap::pause(false)`

  Engine start() const {
    Engine engine = before();
    addPending(*engine);
    return engine;
  }
};

/// A load into an empty engine.
Operation loading(const std::string& name, const std::function<void(Units::UnitsEngine&)>& load);

std::vector<Operation> readingOperations();
std::vector<Operation> allOperations();
