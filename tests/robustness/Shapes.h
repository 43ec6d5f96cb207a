/// Inputs of any size, each of a form in which something might cost more than its length: time,
/// memory or stack.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/robustness/Sample.h"

/// What a shape does with an engine, once all that it needs is prepared.
struct Work {
  std::function<void()> run;
  std::size_t bytes = 0;  // of the texts that go in

  /// Bytes of the texts that have been put in for identifiers, once it has run.
  std::shared_ptr<std::size_t> substituted = std::make_shared<std::size_t>(0);
};

struct Shape {
  std::string name;
  enum Kind { Formula, Text, Definitions } kind;

  /// @param size    how often the form repeats itself.
  /// @param engine  a sample engine. It must outlive the work.
  std::function<Work(int size, Units::UnitsEngine& engine)> prepare;
};

const std::vector<Shape>& allShapes();

// Those of one kind each, in files of their own.
std::vector<Shape> formulaShapes();
std::vector<Shape> textShapes();
std::vector<Shape> definitionShapes();

/// The loading of a bundle.
Work bundleLoad(const std::string& bundle, Units::UnitsEngine& engine);

std::string repeated(const std::string& text, int count);
