#pragma once

#include "formula/Expression.h"
#include "formula/KnownVariables.h"
#include "formula/NodeArena.h"

#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/Unit.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Units {

struct Parameter;

/// A place in a formula that refers to a parameter. All that refer to the same one are linked.
struct Reference {
  Parameter* to;
  std::size_t offset;         // in the formula
  Parameter* from = nullptr;  // this and the links are set while the definition is in use
  Reference* previous = nullptr;
  Reference* next = nullptr;
};

/// A formula as it was read.
struct Definition {
  std::string formula;
  std::string unitTypeId;                      // empty if it has no unit of its own
  const Unit* unit = nullptr;                  // in the engine
  FormulaReason reason = FormulaReason::Done;  // why it could not be read
  NodeArena arena;                             // of the tree, which refers to values of parameters
  std::unique_ptr<Expression> root;            // null if it could not be read
  std::vector<Reference> references;           // in reading order
};

enum class ParameterState {
  Due,  // must be evaluated, and so must all parameters that refer to it
  HasValue,
  Undefined,
  Missing,  // refers to undefined names
  Cyclic,   // depends on itself
  Refused,  // could not be read or evaluated
  Blocked,  // refers to a parameter that has no value
};

/// A name that is defined or referred to.
struct Parameter {
  const std::string* name = nullptr;       // the key in the map
  std::unique_ptr<Definition> definition;  // null if it is only referred to
  Reference* referrers = nullptr;
  ParameterState state = ParameterState::Due;
  FormulaReason reason = FormulaReason::Done;  // if it is refused
  VariableValue value;
  double inOwnUnit = 0;  // the value in its own unit, if it has one; otherwise like `value`
  const Parameter* cause = nullptr;  // of a blocked one: the parameter that has no value by itself

  // Marks of walks, so that these need no memory.
  std::size_t order = 0;  // of the first visit, by the clock of the table
  std::size_t lowest =
      0;  // the earliest order that is reached; of a cyclic one, the cycles' number
  std::size_t nextReference = 0;
  Parameter* caller = nullptr;
  Parameter* below = nullptr;  // on the stack of a walk
};

/// In byte order of names. A parameter stays where it is.
using ParameterMap = std::map<std::string, Parameter, std::less<>>;

}  // namespace Units
