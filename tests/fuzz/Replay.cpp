/// Runs a fuzz target without a fuzzer: every kept input, then as many made ones as it is told,
/// always the same. Half of those are random bytes, most of them after one of the marks by which
/// targets tell choices from texts; half are kept inputs with something changed.
///
///   fuzz_formula CORPUS COUNT
#include "tests/support/Random.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

Input current;

/// Leaves the input that ended the run for a second look, and for the corpus.
void keepCurrent(int) {
  std::ofstream("failed-input", std::ios::binary)
      .write(reinterpret_cast<const char*>(current.data()),
             static_cast<std::streamsize>(current.size()));
}

void run(Input input) {
  current = std::move(input);
  current.shrink_to_fit();
  LLVMFuzzerTestOneInput(current.data(), current.size());
}

std::vector<Input> readFolder(const std::string& folder) {
  std::set<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.insert(entry.path());
  std::vector<Input> inputs;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

Input randomBytes(Random& random, std::size_t count) {
  Input made(count);
  for (std::uint8_t& byte : made) byte = static_cast<std::uint8_t>(random.below(256));
  return made;
}

Input marked(Random& random) {
  Input made = randomBytes(random, 1 + random.below(512));
  if (!random.oneIn(8)) made.front() = random.oneIn(2) ? '#' : '%';
  return made;
}

Input changed(Random& random, Input made) {
  for (std::size_t count = random.below(4) + 1; count > 0; --count) {
    const auto from = made.begin() + static_cast<std::ptrdiff_t>(random.below(made.size() + 1));
    const auto end = from + std::min<std::ptrdiff_t>(made.end() - from, random.between(0, 7));
    const Input piece = random.oneIn(3) ? randomBytes(random, random.below(4)) : Input(from, end);
    const auto place = random.oneIn(2) ? made.erase(from, end) : from;
    made.insert(random.oneIn(2) ? place : made.end(), piece.begin(), piece.end());
  }
  return made;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << argv[0] << " CORPUS COUNT\n";
    return 2;
  }
  std::signal(SIGABRT, keepCurrent);
  const std::vector<Input> kept = readFolder(argv[1]);
  for (const Input& input : kept) run(input);
  Random random(1);
  const unsigned long count = std::strtoul(argv[2], nullptr, 10);
  for (unsigned long made = 0; made < count; ++made) {
    const bool isNew = random.oneIn(2) || kept.empty();
    run(isNew ? marked(random) : changed(random, random.oneOf(kept)));
  }
  std::cout << kept.size() << " kept inputs, " << count << " made ones\n";
  return 0;
}
