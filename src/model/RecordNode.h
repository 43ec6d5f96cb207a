#pragma once

#include "model/ShortList.h"

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <vector>

namespace Units {

template <class Record>
struct RecordNode;

/// A stored parent of a record, and its exponent.
template <class Record>
struct ParentPower {
  const RecordNode<Record>* parent;
  int exponent;
};

/// A stored record with pointers to its stored parents and copies of the fields that nearly every
/// operation reads. Parents are looked up once, when the record is stored. The pointers are valid
/// for the engine's lifetime, since records are never moved or removed. Nothing computed from
/// records is cached here.
template <class Record>
struct RecordNode {
  explicit RecordNode(const Record& stored) : record(stored) {}

  Record record;
};

template <>
struct RecordNode<Factor> {
  explicit RecordNode(const Factor& stored) : record(stored) {}

  Factor record;
  double ownValue = 1.0;                          // excludes the parents' factors
  std::vector<ParentPower<Factor>> parents = {};  // in type id order
};

template <>
struct RecordNode<Unit> {
  explicit RecordNode(const Unit& stored) : record(stored) {}

  Unit record;
  bool isAbsolute = false;
  bool isSimple = false;                         // relative; has few parents, all primitive
  double ownFactor = 1.0;                        // excludes the parents' factors
  ShortList<ParentPower<Unit>, 2> parents = {};  // in type id order; a primitive unit is its own
  std::vector<ParentPower<Factor>> parentFactors = {};
};

}  // namespace Units
