#pragma once

#include "model/RecordContents.h"
#include "registry/KindRegistry.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace Units {

/// The progress of a depth-first search at a record.
enum class VisitState { OnPath, Finished };

template <class Record>
using VisitStates = std::unordered_map<const Record*, VisitState>;

/// Checks the ancestors of a record of the current build: a depth-first search over parents in type
/// id order. It stops at stored records, which were checked when they were stored.
///
/// Each record is visited once per build, for all roots together. The first error is the same as if
/// every root were searched from scratch: a record is finished only after all of its ancestors are,
/// without an error. None of them is missing or rejected by `parentsOf`, whatever path leads to it,
/// and none of them is on the current path, since records on the path are not finished.
///
/// @param parentsOf  returns the parents of a record, by type id; may throw to reject it.
/// @param states     of this build and kind of record.
/// @throws ValidationException  a parent is neither stored nor in the build, or is on the path to
///                              itself.
template <class Record, class ParentsOf>
void checkAncestry(const std::string& root, const KindRegistry<Record>& registry,
                   const ParentsOf& parentsOf, VisitStates<Record>& states) {
  using Parent = ParentList::const_iterator;
  struct Step {
    VisitState* state;
    Parent next;
    Parent end;
  };
  std::vector<Step> path;
  const auto visit = [&](const std::string& id) {
    if (registry.objects.find(id)) return;
    const Record* const built = registry.built.find(id);
    if (!built) throw ValidationException("Parent " + id + " has an unexpected type.");
    const auto [state, isFirst] = states.try_emplace(built, VisitState::OnPath);
    if (!isFirst && state->second == VisitState::Finished) return;
    if (!isFirst)
      throw ValidationException("A schema identifies its descendant " + id +
                                " as one of its parents.");
    const ParentList& parents = parentsOf(*built);
    path.push_back({&state->second, parents.begin(), parents.end()});
  };
  visit(root);
  while (!path.empty()) {
    Step& step = path.back();
    if (step.next != step.end) {
      visit((step.next++)->first);
    } else {
      *step.state = VisitState::Finished;
      path.pop_back();
    }
  }
}

}  // namespace Units
