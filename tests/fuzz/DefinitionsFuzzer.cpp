/// Batches of schemas, built and asked for. What a build says or stores is what a plain walk over
/// the batch says, whatever the order of adding; what it stores is consistent.
#include "engine/UnitsEngineImpl.h"
#include "schema/Definitions.h"
#include "tests/fuzz/EngineProperties.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/ReferenceBuild.h"
#include "tests/fuzz/StoredIds.h"
#include "tests/support/RandomDefinitions.h"

#include <vector>

namespace {

using Units::Registries;
using Texts = std::vector<std::string>;

constexpr std::size_t mostSchemas = 15;  // the plain walk is exponential

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

class Builder {
 public:
  void build(const Texts& batch) {
    const Texts accepted = add(batch);
    for (auto text = accepted.rbegin(); text != accepted.rend(); ++text)
      addDefinition(*text, backwards_);

    const std::string expected = validated([&] { ReferenceBuild(forwards_).check(); });
    std::set<std::string> ids = storedIds(forwards_);
    if (expected.empty()) {
      ids.insert(forwards_.pendingTypeIds.begin(), forwards_.pendingTypeIds.end());
      stored_.insert(stored_.end(), accepted.begin(), accepted.end());
    }
    for (Registries* registries : {&forwards_, &backwards_}) {
      checkEqual(validated([&] { buildSchemas(*registries); }), expected, "a build");
      check(storedIds(*registries) == ids && registries->pendingTypeIds.empty(),
            "what is registered after \"", expected, '"');
    }
  }

  /// All that was built, at once.
  void checkAll() const {
    Units::UnitsEngineImpl engine;
    for (const std::string& text : stored_) engine.addDefinition(text);
    engine.buildSchemas();
    for (const std::string& id : storedIds(forwards_)) {
      const std::string definition = validated([&] { return engine.getDefinition(id); });
      checkEqual(definition, definitionOf(id, forwards_), id);
      checkEqual(definition, definitionOf(id, backwards_), id);
      check(engine.getDependencies(id) == getDependencies(id, backwards_), id);
    }
    checkEngine(engine);
  }

 private:
  Texts add(const Texts& batch) {
    Texts accepted;
    for (const std::string& text : batch) {
      const std::size_t pending = forwards_.pendingTypeIds.size();
      const std::string refusal = validated([&] { addDefinition(text, forwards_); });
      if (refusal.empty())
        accepted.push_back(text);
      else
        check(forwards_.pendingTypeIds.size() == pending, "a refused schema leaves a trace");
    }
    return accepted;
  }

  Registries forwards_;
  Registries backwards_;
  Texts stored_;
};

}  // namespace

void fuzz(Random& random) {
  const std::vector<Texts> batches = random.takes('#') ? make(random) : batchesOf(random.rest());
  Builder builder;
  for (const Texts& batch : batches) builder.build(batch);
  builder.checkAll();
}
