#pragma once

#include "model/ShortList.h"

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
/// right for ever, since records never move and never go. Beside them lie copies of what nearly
/// every operation reads of the record. Nothing that is computed from records is kept here.
template <class Record>
struct RecordNode {
  const Record* record;
};

template <>
struct RecordNode<Factor> {
  const Factor* record;
  double ownValue = 1.0;                          // its factor without those of its parents
  std::vector<ParentPower<Factor>> parents = {};  // in type id order
};

template <>
struct RecordNode<Unit> {
  const Unit* record;
  bool isAbsolute = false;
  bool isSimple = false;   // relative, with few parents and all of them primitive
  double ownFactor = 1.0;  // without those of its parents
  ShortList<ParentPower<Unit>, 2> parents = {};  // in type id order; a primitive unit has itself
  std::vector<ParentPower<Factor>> parentFactors = {};
};

}  // namespace Units
