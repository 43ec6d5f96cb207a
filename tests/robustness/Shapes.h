/// Inputs of any size, each of a form in which something might cost more than its length: time,
/// memory or stack.
#pragma once

#include "tests/support/Sample.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a shape does with an engine, once all that it needs is prepared.
struct Work {
  std::function<void()> run;
  std::size_t bytes = 0;  // of the texts that go in

  /// Bytes of the texts that replaced identifiers, once it has run.
  std::shared_ptr<std::size_t> substituted = std::make_shared<std::size_t>(0);
};

struct Shape {
  std::string name;
  enum Kind {
    Formula,
    Text,
    Definitions,
    UnitFormula,  // over definitions as many as it has parts
  } kind;

  /// @param size    how often the form repeats itself.
  /// @param engine  a sample engine. It must outlive the work.
  std::function<Work(int size, Units::UnitsEngine& engine)> prepare;
};

/// All but `proportionShapes`.
const std::vector<Shape>& allShapes();
const Shape* findShape(const std::string& name);

std::vector<Shape> formulaShapes();
std::vector<Shape> textShapes();
std::vector<Shape> definitionShapes();

struct NamedWork {
  std::string name;
  Shape::Kind kind;
  Work work;
};

/// A small set of definitions with formulas, of which one or two dimensions are blown up, such as
/// the parents of a unit and their factors.
struct Proportion {
  std::string name;

  /// What is done with them, on one engine and in this order: the first builds them.
  std::function<std::vector<NamedWork>(int size, Units::UnitsEngine& engine)> prepare;
};

/// Every dimension alone, and every pair.
std::vector<Proportion> proportions();
std::vector<Shape> proportionShapes();

/// The loading of a bundle.
Work bundleLoad(const std::string& bundle, Units::UnitsEngine& engine);

/// The evaluation of a formula in a unit.
Work evaluation(const std::string& unit, const std::string& formula, Units::UnitsEngine& engine,
                const Units::VariableResolver& resolver);

/// The schema texts in this order, and the build.
Work batch(const std::vector<std::string>& texts, Units::UnitsEngine& engine);

std::string repeated(const std::string& text, int count);
