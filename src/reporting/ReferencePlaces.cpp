#include "reporting/ReferencePlaces.h"

namespace Schemas {

using StepKind = Units::ReadingStep::Kind;

const ReferencePlaces::Children& ReferencePlaces::childrenOf(const char* constant) {
  const auto [entry, isNew] = children_.try_emplace(constant);
  if (!isNew) return entry->second;
  const std::size_t value = valueAt(places_, {{StepKind::Member, "constants", 0},
                                              {StepKind::Property, constant, 0},
                                              {StepKind::Value, "", 0}});
  for (std::size_t child = places_.element(value, 0); child != TextPlaces::none;
       child = places_.value(child).next) {
    entry->second.byName[places_.value(child).name] = child;
    entry->second.byNumber.push_back(child);
  }
  return entry->second;
}

Extent ReferencePlaces::at(const Reference& reference) {
  const Children& children = childrenOf(reference.constant);
  switch (reference.form) {
    case Reference::Form::Power:
      return nameOf(places_, children.byName.at(reference.typeId));
    case Reference::Form::Single:
      return extentOf(places_, children.byName.at("typeid"));
    case Reference::Form::Listed:
      break;
  }
  const std::size_t listed = children.byNumber.at(reference.number);
  return extentOf(places_, places_.lastMember(listed, "typeid"));
}

}  // namespace Schemas
