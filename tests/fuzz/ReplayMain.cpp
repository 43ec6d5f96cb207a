/// Runs a door without a fuzzer: every kept input, then as many made ones as it is told, always the
/// same. Half of those are mere bytes, most of them behind one of the marks by which doors tell
/// choices from texts; half are kept inputs with something changed.
///
///   fuzz_formula CORPUS COUNT
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
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
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<Input> inputs;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

class Inputs {
 public:
  explicit Inputs(const std::vector<Input>& kept) : kept_(kept) {}

  Input next() { return below(2) == 0 || kept_.empty() ? marked() : changed(); }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  Input bytes(std::size_t count) {
    Input made(count);
    for (std::uint8_t& byte : made) byte = static_cast<std::uint8_t>(random_());
    return made;
  }

  Input marked() {
    Input made = bytes(1 + below(512));
    if (below(8) != 0) made.front() = below(2) == 0 ? '#' : '%';
    return made;
  }

  Input changed() {
    Input made = kept_[below(kept_.size())];
    for (std::size_t count = below(4) + 1; count > 0; --count) {
      const auto from = made.begin() + static_cast<std::ptrdiff_t>(below(made.size() + 1));
      const auto length =
          std::min<std::ptrdiff_t>(made.end() - from, static_cast<std::ptrdiff_t>(below(8)));
      const Input piece(from, from + length);
      const Input fresh = below(3) == 0 ? bytes(below(4)) : piece;
      const auto end = below(2) == 0 ? made.erase(from, from + length) : from;
      made.insert(below(2) == 0 ? end : made.end(), fresh.begin(), fresh.end());
    }
    return made;
  }

  const std::vector<Input>& kept_;
  std::mt19937_64 random_{1};
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << argv[0] << " CORPUS COUNT\n";
    return 2;
  }
  std::signal(SIGABRT, keepCurrent);
  const std::vector<Input> kept = readFolder(argv[1]);
  for (const Input& input : kept) run(input);
  Inputs inputs(kept);
  const unsigned long count = std::strtoul(argv[2], nullptr, 10);
  for (unsigned long made = 0; made < count; ++made) run(inputs.next());
  std::cout << kept.size() << " kept inputs, " << count << " made ones\n";
  return 0;
}
