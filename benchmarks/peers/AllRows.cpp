#include "benchmarks/peers/Turns.h"

namespace peers {

std::vector<Row> allRows() {
  std::vector<Row> all;
  for (const auto group :
       {conversionRows, preparedRows, formulaRows, textRows, loadingRows, namingRows})
    for (Row& row : group()) all.push_back(std::move(row));
  return all;
}

}  // namespace peers
