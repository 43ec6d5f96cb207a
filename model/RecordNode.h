#pragma once

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <vector>

namespace Units {

template <class Record>
struct RecordNode;

/// A stored record that another one rests on, and to which power.
template <class Record>
struct ParentPower {
  const RecordNode<Record>* parent;
  int exponent;
};

/// A stored record, and the stored records that it rests on: looked up once, when it is stored, and
/// right for ever, since records never move and never go. Nothing that is computed from them is
/// kept here.
template <class Record>
struct RecordNode {
  const Record* record;
};

template <>
struct RecordNode<Factor> {
  const Factor* record;
  std::vector<ParentPower<Factor>> parents = {};  // in type id order
};

template <>
struct RecordNode<Unit> {
  const Unit* record;
  std::vector<ParentPower<Unit>> parents = {};  // in type id order; a primitive unit has itself
  std::vector<ParentPower<Factor>> parentFactors = {};
  bool isSimple = false;  // relative, with few parents and all of them primitive
};

}  // namespace Units
