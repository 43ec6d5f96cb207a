#pragma once

#include "model/ShortList.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <vector>

namespace Units {

template <class Record>
struct RecordNode;

/// A stored record that another one depends on, and its exponent there.
template <class Record>
struct ParentPower {
  const RecordNode<Record>* parent;
  int exponent;
};

/// A stored record, and the stored records that it depends on: looked up once, when it is stored,
/// and valid as long as the engine, since records never move and never go. Beside them lie copies
/// of what nearly every operation reads of the record. Nothing that is computed from records is
/// kept here.
template <class Record>
struct RecordNode {
  explicit RecordNode(const Record& stored) : record(stored) {}

  Record record;
};

template <>
struct RecordNode<Factor> {
  explicit RecordNode(const Factor& stored) : record(stored) {}

  Factor record;
  double ownValue = 1.0;                          // its factor without those of its parents
  std::vector<ParentPower<Factor>> parents = {};  // in type id order
};

template <>
struct RecordNode<Unit> {
  explicit RecordNode(const Unit& stored) : record(stored) {}

  Unit record;
  bool isAbsolute = false;
  bool isSimple = false;   // relative, with few parents and all of them primitive
  double ownFactor = 1.0;  // without those of its parents
  ShortList<ParentPower<Unit>, 2> parents = {};  // in type id order; a primitive unit has itself
  std::vector<ParentPower<Factor>> parentFactors = {};
};

}  // namespace Units
