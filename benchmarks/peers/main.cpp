/// Alternates each benchmark with its baseline and prints a table.
///   peers [PART OF A BENCHMARK'S NAME]
#include "benchmarks/peers/Turns.h"

#include <cstdio>
#include <exception>

namespace {

constexpr int kRounds = 9;

std::string limit(peers::Bound bound, double times) {
  char text[64];
  std::snprintf(text, sizeof text, bound == peers::Bound::Faster ? "%.3g times faster" : "%.3g",
                times);
  return text;
}

std::string rangeOf(double least, double most) {
  char text[64];
  std::snprintf(text, sizeof text, "%.3g to %.3g", least, most);
  return text;
}

std::string quantity(double amount, std::string unit) {
  for (const char* larger : {"\xC2\xB5s", "ms"})
    if (unit != "bytes" && amount >= 1000) {
      amount /= 1000;
      unit = larger;
    }
  char text[64];
  std::snprintf(text, sizeof text, unit == "bytes" ? "%.0f " : "%.3g ", amount);
  return text + unit;
}

void print(const peers::Row& row) {
  std::string reached, range, ours, theirs;
  try {
    const peers::Reached result = peers::takeTurns(row.prepare(), kRounds);
    const bool isFaster = row.bound == peers::Bound::Faster;
    const double ratio = isFaster ? 1 / result.ratio : result.ratio;
    const auto meets = [&](double times) { return isFaster ? ratio >= times : ratio <= times; };
    reached = limit(row.bound, ratio) + (meets(row.goal)     ? ", goal"
                                         : meets(row.target) ? ", target"
                                                             : ", MISSED");
    range = isFaster ? rangeOf(1 / result.mostRatio, 1 / result.leastRatio)
                     : rangeOf(result.leastRatio, result.mostRatio);
    ours = quantity(result.ours, result.unit);
    theirs = quantity(result.theirs, result.unit);
  } catch (const peers::Skipped& reason) {
    reached = std::string("skipped: ") + reason.what();
  }
  std::printf("| %s | %s | %s | %s | %s | %s | %s | %s |\n", row.work.c_str(), row.against.c_str(),
              limit(row.bound, row.target).c_str(), limit(row.bound, row.goal).c_str(),
              reached.c_str(), range.c_str(), ours.c_str(), theirs.c_str());
  std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
  const std::string part = count > 1 ? arguments[1] : "";
  std::puts(
      "| benchmark | baseline | target | goal | result | range | ours | theirs |\n"
      "|-|-|-|-|-|-|-|-|");
  try {
    for (const peers::Row& row : peers::allRows())
      if (row.work.find(part) != std::string::npos) print(row);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
