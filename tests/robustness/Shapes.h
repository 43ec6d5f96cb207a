/// Inputs of any size, each of a form in which something might cost more than its length: time,
/// memory or stack.
#pragma once

#include "tests/support/Sample.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What is done with an engine, once all that it needs is prepared.
struct Work {
  std::function<void()> run;
  std::size_t bytes = 0;  // of the texts that go in
  enum Kind { Schemas, Formula, Explanation } kind = Schemas;

  /// Bytes of the texts that replaced identifiers, once it has run.
  std::shared_ptr<std::size_t> substituted = std::make_shared<std::size_t>(0);

  /// Explains the formula; only of an evaluation.
  std::function<void()> explain = {};
};

/// `Prepared` is a `Work`, or several with their names: the first builds what the others use.
///
/// `prepare` takes how often the form repeats itself, and an engine that must outlive the work.
template <class Prepared>
struct Form {
  std::string name;
  bool isOneText;  // a formula or a schema text over the sample, and no definitions of its own
  std::function<Prepared(int size, Units::UnitsEngine& engine)> prepare;
};
using Shape = Form<Work>;
using Proportion = Form<std::vector<std::pair<std::string, Work>>>;

/// Small definitions with formulas, of which one or two dimensions are blown up, such as the
/// parents of a unit and their factors: every dimension alone, and every pair.
std::vector<Proportion> proportions();

/// Each work of each proportion as a shape of its own.
const std::vector<Shape>& proportionShapes();

std::vector<Shape> formulaShapes();
std::vector<Shape> textShapes();

/// Those of the proportions that have cost too much before, and what no proportion has.
std::vector<Shape> definitionShapes();

/// The formulas, which are explained.
std::vector<Shape> explanationShapes();

/// The four above.
const std::vector<Shape>& allShapes();

/// Any of the shapes.
/// @throws std::logic_error  there is none of that name.
const Shape& findShape(const std::string& name);

/// The loading of a bundle of these texts.
Work bundleLoad(const std::vector<std::string>& texts, Units::UnitsEngine& engine);

/// The evaluation of a formula in a unit.
Work evaluation(const std::string& unit, const std::string& formula, Units::UnitsEngine& engine,
                const Units::VariableResolver& resolver);

/// The schema texts in this order, and the build.
Work batch(const std::vector<std::string>& texts, Units::UnitsEngine& engine);

/// In the place of a % stands how many times the text was there before.
std::string repeated(const std::string& text, int count);

/// A text of which two parts are repeated.
struct Row {
  const char* name;
  const char* before;
  const char* middle;
  const char* after;
  const char* head = "";
  const char* tail = "";

  std::string text(int size) const {
    return head + repeated(before, size) + middle + repeated(after, size) + tail;
  }
};
