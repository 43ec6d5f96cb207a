#pragma once

#include "model/RecordContents.h"
#include "registry/KindRegistry.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace Units {

/// How far the states of one build have come with a record.
enum class VisitState { OnPath, Finished };

template <class Record>
using VisitStates = std::unordered_map<const Record*, VisitState>;

/// Walks from a record of the running build depth first over its parents, in type id order. Ends at
/// stored records, which passed this when they were stored.
///
/// Each record is walked once in a build, for all roots together, with the same first fault as a
/// walk that begins anew at every root: a record is finished when all that it rests on is, without
/// a fault. No parent below it is missing or refused by `parentsOf`, which no path changes; and
/// none lies on the path to it, since a record on the path is under way, while those below are
/// finished.
///
/// @param parentsOf  gives the parents of a record, by type id; may refuse it by an exception.
/// @param states      of this build, among records of this kind.
/// @throws ValidationException  a parent is neither stored nor in the build, or is on the path that
///                              leads to it.
template <class SchemaData, class Record, class ParentsOf>
void checkAncestry(const std::string& root, const KindRegistry<SchemaData, Record>& registry,
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
