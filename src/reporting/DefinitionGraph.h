#pragma once

#include <cstddef>
#include <vector>

namespace Schemas {

/// Definitions by number, and which others each needs.
struct DefinitionGraph {
  std::vector<std::vector<std::size_t>> needs;  // of the same graph, and of the right kind
  std::vector<bool> isFaulty;                   // needs what is missing or of the wrong kind
};

/// Why a definition is left out, if it is.
struct LeaveOut {
  enum class Reason { Kept, Faulty, InCircle, NeedsLeftOut };

  Reason reason = Reason::Kept;
  std::size_t needed = 0;  // for the last reason: the first definition that is left out, too
};

/// The smallest set to leave out such that each of the others has all that it needs. It is unique:
/// exactly what is faulty, what is on a circle, and what needs one of these.
std::vector<LeaveOut> findWhatToLeaveOut(const DefinitionGraph& graph);

/// Definitions in order, each needing the next one and the last one the first.
using Circle = std::vector<std::size_t>;

/// Circles that are worth a correction each: without the need that closes a circle, the next one is
/// looked for. Of definitions that lead to each other, at most eight circles.
std::vector<Circle> findCircles(DefinitionGraph graph);

}  // namespace Schemas
