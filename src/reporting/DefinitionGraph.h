#pragma once

#include <cstddef>
#include <vector>

namespace Schemas {

/// Definitions by number, and the other definitions that each needs.
struct DefinitionGraph {
  std::vector<std::vector<std::size_t>> needs;  // of the same graph, and of the right kind
  std::vector<bool> isFaulty;                   // needs what is missing or of the wrong kind
};

/// Why a definition is left out, if it is.
struct LeaveOut {
  enum class Reason { Kept, Faulty, InCircle, NeedsLeftOut };

  Reason reason = Reason::Kept;
  std::size_t needed = 0;  // for the last reason: the first needed definition that is left out
};

/// The smallest set to leave out so that all others have what they need. It is unique: all
/// definitions that are faulty, on a circle, or need one of these.
std::vector<LeaveOut> findWhatToLeaveOut(const DefinitionGraph& graph);

/// Definitions in order, each needing the next one and the last one the first.
using Circle = std::vector<std::size_t>;

/// Circles that each need a correction of their own: the next one is searched without the need that
/// closes the one before. At most eight among definitions that lead to each other.
std::vector<Circle> findCircles(DefinitionGraph graph);

}  // namespace Schemas
