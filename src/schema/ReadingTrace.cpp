#include "schema/ReadingTrace.h"

namespace Units {

ReadingTrace::Path ReadingTrace::last() const {
  Path path = last_;
  if (member != noMember) path.push_back({ReadingStep::Kind::Element, {}, member});
  return path;
}

void ReadingTrace::note(std::size_t sharedSteps, std::initializer_list<ReadingStep> steps) {
  last_.resize(sharedSteps);
  for (const ReadingStep& step : steps)
    last_.push_back({step.kind, std::string(step.name), step.number});
  member = noMember;
  if (last_.size() == 1) members_.push_back(last_.front().name);
  if (last_.back().kind == ReadingStep::Kind::Value) constants_.push_back(last_[1].name);
}

}  // namespace Units
