#pragma once

#include "prepared/ExactQuotient.h"
#include "prepared/LinearSteps.h"

#include <cstddef>

// The source for each kind of processor defines TRELVON_TARGET, the attribute of all functions that
// use its instructions, and then `Lanes`, which names these instructions (see Avx2Loops.cpp). Every
// function here is a template of `Lanes`, so no two of these sources share one.
namespace Units {

/// The steps of a conversion in every lane of a vector.
template <class Lanes>
struct LaneSteps {
  using Doubles = typename Lanes::Doubles;

  TRELVON_TARGET LaneSteps(const LinearSteps& steps, const Divisor& by, double scale)
      : fromOffset(Lanes::all(steps.fromOffset)),
        fromFactor(Lanes::all(steps.fromFactor)),
        toFactor(Lanes::all(by.divisor)),
        toOffset(Lanes::all(steps.toOffset)),
        scaledFactor(Lanes::all(steps.fromFactor * scale)),
        scaledDivisor(Lanes::all(by.divisor * scale)),
        high(Lanes::all(by.high / scale)),
        low(Lanes::all(by.low / scale)) {}

  Doubles fromOffset, fromFactor, toFactor, toOffset;
  Doubles scaledFactor, scaledDivisor, high, low;
};

/// Where ranges are checked, primitive values, the divisor and its reciprocal are scaled by a power
/// of two, which cancels out. Then two bits show that a primitive value is from 2^-255 to 2^257:
/// the first of its exponent is 0, and the second is 1. No step under- or overflows then.
constexpr double scaleOf(Division division) {
  return division == Division::Product ? 1.0 : 0x1p-256;
}

/// Four vectors, whose range is checked at once.
template <class Lanes>
struct Block {
  static constexpr std::size_t size = 4 * Lanes::width;

  typename Lanes::Doubles vectors[4];
};

template <class Lanes>
TRELVON_TARGET inline Block<Lanes> load(const double* values) {
  Block<Lanes> block;
  for (std::size_t i = 0; i < 4; ++i) block.vectors[i] = Lanes::load(values + i * Lanes::width);
  return block;
}

/// (fromOffset + value) * factor. Offsets of 0 and -0 matter only if the value is 0 or -0.
template <class Lanes, bool hasOffsets>
TRELVON_TARGET inline Block<Lanes> primitivesOf(Block<Lanes> values, typename Lanes::Doubles factor,
                                                const LaneSteps<Lanes>& steps) {
  for (auto& vector : values.vectors)
    if constexpr (hasOffsets)
      vector = (steps.fromOffset + vector) * factor;
    else
      vector = vector * factor;
  return values;
}

/// Divides scaled primitive values.
template <class Lanes, Division division>
TRELVON_TARGET inline void divide(Block<Lanes>& primitives, const LaneSteps<Lanes>& steps) {
  for (auto& vector : primitives.vectors) {
    if constexpr (division == Division::Product) {
      vector = vector * steps.high;
      continue;
    }
    const auto quotient = Lanes::fma(vector, steps.high, vector * steps.low);
    const auto remainder = Lanes::fnma(steps.scaledDivisor, quotient, vector);
    vector =
        division == Division::TwoProducts ? quotient : Lanes::fma(remainder, steps.high, quotient);
  }
}

template <class Lanes, bool hasOffsets, bool isStreamed>
TRELVON_TARGET inline void store(double* converted, const Block<Lanes>& quotients,
                                 const LaneSteps<Lanes>& steps) {
  for (std::size_t i = 0; i < 4; ++i) {
    auto vector = quotients.vectors[i];
    if constexpr (hasOffsets) vector = vector - steps.toOffset;
    if constexpr (isStreamed)
      Lanes::stream(converted + i * Lanes::width, vector);
    else
      Lanes::store(converted + i * Lanes::width, vector);
  }
}

/// Whether all primitive values are 0 or in range.
template <class Lanes>
TRELVON_TARGET inline bool areInRangeOrZero(const Block<Lanes>& values, Block<Lanes> primitives,
                                            const LaneSteps<Lanes>& steps) {
  for (std::size_t i = 0; i < 4; ++i)
    primitives.vectors[i] =
        Lanes::replaceZeros(steps.fromOffset + values.vectors[i], primitives.vectors[i]);
  return Lanes::areInRange(primitives.vectors);
}

/// Converts any blocks. Zeros are common, and their quotients are right, but to look for them in
/// every block would take longer than the rest.
template <class Lanes, Division division>
TRELVON_TARGET TRELVON_NOT_INLINED void convertAny(const double* values, double* converted,
                                                   std::size_t count,
                                                   const LaneSteps<Lanes>& allSteps) {
  const LaneSteps<Lanes> steps = allSteps;  // in registers: results do not overwrite them
  for (std::size_t done = 0; done < count; done += Block<Lanes>::size) {
    const auto original = load<Lanes>(values + done);
    auto block = primitivesOf<Lanes, true>(original, steps.scaledFactor, steps);
    if (division == Division::Product || areInRangeOrZero<Lanes>(original, block, steps)) {
      divide<Lanes, division>(block, steps);
    } else {
      block = primitivesOf<Lanes, true>(original, steps.fromFactor, steps);
      for (auto& vector : block.vectors) vector = vector / steps.toFactor;
    }
    store<Lanes, true, false>(converted + done, block, steps);
  }
}

/// Converts blocks up to one with values out of range, or up to the last. Each block is loaded
/// before the results of the one before it are stored: at addresses with the same last bits, loads
/// wait for stores.
/// @return  the number of values in the converted blocks.
template <class Lanes, Division division, bool hasOffsets, bool isStreamed>
TRELVON_TARGET std::size_t convertInRange(const double* values, double* converted,
                                          std::size_t count, const LaneSteps<Lanes>& allSteps) {
  constexpr std::size_t size = Block<Lanes>::size;
  constexpr bool isChecked = division != Division::Product;
  constexpr bool appliesOffsets = hasOffsets || !isChecked;  // an offset of 0 may meet a 0
  const LaneSteps<Lanes> steps = allSteps;
  auto next = load<Lanes>(values);
  std::size_t done = 0;
  for (; count - done > size; done += size) {
    auto block = primitivesOf<Lanes, appliesOffsets>(next, steps.scaledFactor, steps);
    if (isChecked && !Lanes::areInRange(block.vectors)) break;
    next = load<Lanes>(values + done + size);
    divide<Lanes, division>(block, steps);
    store<Lanes, appliesOffsets, isStreamed>(converted + done, block, steps);
  }
  return done;
}

/// Converts all whole blocks.
/// @return  the number of values in these blocks.
template <class Lanes, Division division, bool hasOffsets, bool isStreamed>
TRELVON_TARGET std::size_t convertBlocks(const double* values, double* converted, std::size_t count,
                                         const LaneSteps<Lanes>& steps) {
  constexpr std::size_t size = Block<Lanes>::size, mostUnusual = 16 * size;
  count -= count % size;
  for (std::size_t done = 0; done < count;) {
    done += convertInRange<Lanes, division, hasOffsets, isStreamed>(values + done, converted + done,
                                                                    count - done, steps);
    const std::size_t unusual = count - done < mostUnusual ? count - done : mostUnusual;
    convertAny<Lanes, division>(values + done, converted + done, unusual, steps);
    done += unusual;
  }
  if constexpr (isStreamed) Lanes::endStream();  // before other threads learn of the results
  return count;
}

template <class Lanes, Division division>
TRELVON_TARGET std::size_t convertBy(const double* values, double* converted, std::size_t count,
                                     const LinearSteps& linear, const Divisor& by,
                                     bool isStreamed) {
  const LaneSteps<Lanes> steps(linear, by, scaleOf(division));
  const auto convert = linear.hasOffsets()
                           ? (isStreamed ? convertBlocks<Lanes, division, true, true>
                                         : convertBlocks<Lanes, division, true, false>)
                           : (isStreamed ? convertBlocks<Lanes, division, false, true>
                                         : convertBlocks<Lanes, division, false, false>);
  return convert(values, converted, count, steps);
}

/// Converts whole blocks in one of the proven ways.
/// @param isStreamed  whether to write past the cache. `converted` is aligned to a vector then.
/// @return  the number of values in these blocks.
template <class Lanes>
TRELVON_TARGET std::size_t convertInLanes(const double* values, double* converted,
                                          std::size_t count, const LinearSteps& steps,
                                          const Divisor& by, bool isStreamed) {
  constexpr auto byProduct = convertBy<Lanes, Division::Product>;
  constexpr auto byTwoProducts = convertBy<Lanes, Division::TwoProducts>;
  constexpr auto byCorrection = convertBy<Lanes, Division::Corrected>;
  const auto convert = by.division == Division::Product       ? byProduct
                       : by.division == Division::TwoProducts ? byTwoProducts
                                                              : byCorrection;
  return convert(values, converted, count, steps, by, isStreamed);
}

}  // namespace Units
