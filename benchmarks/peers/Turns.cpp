#include "benchmarks/peers/Turns.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ctime>

namespace peers {

namespace {

constexpr double kRoundNanoseconds = 3e7;  // one round of one side; much longer than a clock tick

/// Measures CPU time, which does not include the time of other programs on the machine.
double nanosecondsOf(const Side& side, std::size_t calls) {
  std::vector<Leftover> leftovers(calls);
  const std::clock_t start = std::clock();
  for (Leftover& leftover : leftovers) leftover = side.call();
  return static_cast<double>(std::clock() - start) * (1e9 / CLOCKS_PER_SEC);
}

std::size_t callsOfARound(const Side& side) {
  std::size_t calls = 1;
  nanosecondsOf(side, calls);  // warms the caches
  double taken = nanosecondsOf(side, calls);
  for (; taken < kRoundNanoseconds / 8; taken = nanosecondsOf(side, calls)) calls *= 2;
  return std::max<std::size_t>(
      1, static_cast<std::size_t>(kRoundNanoseconds / taken * static_cast<double>(calls)));
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

Reached takeTurns(const Sides& sides, int rounds) {
  if (sides.counted) return *sides.counted;
  const std::size_t ourCalls = callsOfARound(sides.ours);
  const std::size_t theirCalls = callsOfARound(sides.theirs);
  const double ourPieces = static_cast<double>(ourCalls) * sides.ours.pieces;
  const double theirPieces = static_cast<double>(theirCalls) * sides.theirs.pieces;
  std::vector<double> ours, theirs, ratios;
  for (int round = 0; round < rounds; ++round) {
    ours.push_back(nanosecondsOf(sides.ours, ourCalls) / ourPieces);
    theirs.push_back(nanosecondsOf(sides.theirs, theirCalls) / theirPieces);
    ratios.push_back(ours.back() / theirs.back());
  }
  const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
  return {median(ratios), median(ours), median(theirs), "ns", *least, *most};
}

void check(bool isRight, const std::string& what) {
  if (!isRight) throw std::logic_error("Wrong result: " + what);
}

void checkNear(double ours, double theirs, double tolerance, const std::string& what) {
  check(std::abs(ours - theirs) <= tolerance * std::abs(theirs),
        what + ": " + std::to_string(ours) + " and " + std::to_string(theirs));
}

}  // namespace peers
