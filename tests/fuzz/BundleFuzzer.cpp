/// Bundles of any bytes, whole and damaged, from buffers and from files, one after the other on one
/// engine: each has the result of adding its texts one by one, and a damaged one has none.
#include "schema/Definitions.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/StoredIds.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"

#include <limits>

namespace {

const std::string header = "TrelvonUnits-schema-bundle-1\n";

struct Bundle {
  std::string bytes;
  std::size_t faultAt = std::numeric_limits<std::size_t>::max();  // counted from 0
};

/// The host's own; of the class that ours are derived from.
struct HostFault : std::logic_error {
  HostFault() : std::logic_error("fault") {}
};

void damage(Random& random, std::string& bytes) {
  const std::size_t most = random.oneIn(2) ? header.size() + 1 : bytes.size() + 1;
  const std::size_t at = std::min(random.below(most), bytes.size());
  switch (random.below(4)) {
    case 0:
      return bytes.resize(at);
    case 1:
      return void(bytes.insert(at, 1, static_cast<char>(random.below(256))));
    case 2:
      return void(bytes.erase(at, 1 + random.below(4)));
    default:
      bytes.insert(at, header);
  }
}

Bundle makeBundle(Random& random, Units::RandomDefinitions& definitions) {
  Bundle made{header};
  const std::size_t count = random.below(10);
  for (std::size_t number = 0; number < count; ++number)
    made.bytes.append(random.oneIn(8) ? "{}" : definitions.nextText()).push_back('\0');
  const std::size_t chunk = 65536 + random.below(4) - 2;  // about what is read at a time
  if (random.oneIn(8) && made.bytes.size() < chunk)
    made.bytes.insert(header.size(), chunk - made.bytes.size(), ' ');
  if (random.oneIn(4)) damage(random, made.bytes);
  if (random.oneIn(4)) made.faultAt = random.below(count + 1);
  return made;
}

/// An engine as loaders see it, over registries that can be looked into.
class Host : public Units::RecordingEngine {
 public:
  Units::Registries registries;

  Host() {
    onDefinition = [this] {
      if (texts.size() - 1 == faultAt_) throw HostFault();
      Units::addDefinition(texts.back(), registries);
    };
    onBuild = [this] { Units::buildSchemas(registries); };
  }

  /// What one load says, and what it leaves. A fault comes at the text of that number.
  template <class Load>
  std::string load(const Bundle& bundle, const Load& load) {
    texts.clear();
    builds = 0;
    faultAt_ = bundle.faultAt;
    std::string all = outcome([&] { load(bundle.bytes); }) + std::to_string(builds) + " builds\n";
    for (const std::string& text : texts) all += text + '\n';
    const auto& pending = registries.pendingTypeIds;
    return all + written(storedIds(registries)) +
           written(std::set<std::string>(pending.begin(), pending.end()));
  }

  std::string records() const {
    std::string all;
    for (const std::string& typeId : storedIds(registries))
      all += definitionOf(typeId, registries) + written(Units::getDependencies(typeId, registries));
    return all;
  }

 private:
  std::size_t faultAt_ = 0;
};

/// What the contract says. A NUL ends each text.
void addOneByOne(const std::string& bytes, Host& host) {
  const bool isBundle = bytes.compare(0, header.size(), header) == 0;
  std::vector<std::string> texts = split(isBundle ? bytes.substr(header.size()) : "x", '\0');
  if (!texts.back().empty()) throw std::logic_error("not a schema bundle");
  texts.pop_back();
  for (const std::string& text : texts) try {
      host.addDefinition(text);
    } catch (const Units::ValidationException&) {
    }
  host.buildSchemas();
}

/// The same sequence of bundles on an engine of each.
class Loads {
 public:
  void load(const Bundle& bundle) {
    const std::string expected =
        byTexts_.load(bundle, [&](const std::string& bytes) { addOneByOne(bytes, byTexts_); });
    const auto buffer = byBuffer_.load(bundle, [&](const std::string& bytes) {
      Schemas::SchemaBundle::addDefinitionsFromBuffer(ExactText(bytes), byBuffer_);
    });
    const auto file = byFile_.load(bundle, [&](const std::string& bytes) {
      static const FolderTree folder;
      folder.write("bundle", bytes);
      Schemas::SchemaBundle::addDefinitionsFromFile(folder.path("bundle"), byFile_);
    });
    checkEqual(buffer, expected, "a buffer");
    checkEqual(file, expected, "a file");
  }

  /// Builds what is still pending.
  void finish() {
    load(Bundle{header});
    checkEqual(byBuffer_.records(), byTexts_.records(), "records from a buffer");
    checkEqual(byFile_.records(), byTexts_.records(), "records from a file");
  }

 private:
  Host byTexts_, byBuffer_, byFile_;
};

}  // namespace

void fuzz(Random& random) {
  Loads loads;
  if (random.takes('#')) {
    Units::RandomDefinitions definitions(random);
    for (int count = 0; count < 4; ++count) loads.load(makeBundle(random, definitions));
  } else {
    const Bundle bundle{(random.takes('%') ? header : "") + random.rest()};
    loads.load(bundle);
    loads.load(bundle);  // all of its type ids are taken
  }
  loads.finish();
}
