/// Batches of schemas, built and asked for. What a build says or stores is the same whatever the
/// order of adding; what it refuses leaves nothing behind, and what it stores is consistent.
#include "tests/fuzz/EngineProperties.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/RandomDefinitions.h"
#include "tests/support/Sample.h"

#include <vector>

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t mostSchemas = 15;  // so that many batches are sound

/// Texts as they stand. Two NULs, or as many texts as a batch may have, end a batch.
std::vector<Texts> batchesOf(const std::string& bytes) {
  std::vector<Texts> batches(1);
  for (const std::string& text : split(bytes, '\0')) {
    batches.back().push_back(text);
    if (text.empty() || batches.back().size() == mostSchemas) batches.emplace_back();
    if (batches.size() == 4) break;
  }
  return batches;
}

std::vector<Texts> make(Random& random) {
  Units::RandomDefinitions definitions(random);
  std::vector<Texts> batches(3);
  for (Texts& batch : batches)
    for (std::size_t count = 0; count < mostSchemas; ++count) {
      batch.push_back(definitions.nextText());
      if (random.oneIn(64)) {  // a byte that does not belong there
        std::string& text = batch.back();
        text[random.below(text.size())] = static_cast<char>(random.below(256));
      }
    }
  return batches;
}

/// All that is stored, or why it has no text: a number at the edge is read as infinite.
std::string described(const Units::UnitsEngine& engine) {
  return validated([&] { return describe(engine); });
}

/// Those that the engine takes.
Texts add(const Texts& batch, Units::UnitsEngine& engine) {
  Texts accepted;
  for (const std::string& text : batch)
    if (!isRefusal(validated([&] { return engine.addDefinition(text); }))) accepted.push_back(text);
  return accepted;
}

}  // namespace

void fuzz(Random& random) {
  const std::vector<Texts> batches = random.takes('#') ? make(random) : batchesOf(random.rest());
  Units::UnitsEngineImpl forwards, backwards, atOnce;
  Texts stored;
  for (const Texts& batch : batches) {
    const std::string before = described(forwards);
    const Texts accepted = add(batch, forwards);
    check(add({accepted.rbegin(), accepted.rend()}, backwards).size() == accepted.size(),
          "a schema is taken in one order alone");
    const std::string said = validated([&] { forwards.buildSchemas(); });
    checkEqual(validated([&] { backwards.buildSchemas(); }), said, "a build backwards");
    if (said.empty())
      stored.insert(stored.end(), accepted.begin(), accepted.end());
    else
      checkEqual(described(forwards), before, said);
    checkEqual(described(backwards), described(forwards), "what is stored backwards");
  }
  checkEqual(add(stored, atOnce).size(), stored.size(), "what is taken at once");
  atOnce.buildSchemas();
  checkEqual(described(atOnce), described(forwards), "what is stored at once");
  checkEngine(atOnce);
}
