/// Bundles of any bytes, whole and damaged, from buffers and from files, one after the other on one
/// engine: each has the result of adding its texts one by one, and a damaged one has none.
#include <cstdint>
#include <fstream>
#include <limits>
#include <optional>
#include <vector>

#include "schema/Definitions.h"
#include "tests/fuzz/Choices.h"
#include "tests/fuzz/Demand.h"
#include "tests/fuzz/RandomSchemas.h"
#include "tests/fuzz/StoredIds.h"
#include "tests/support/FolderTree.h"
#include "tests/unit/loading/RecordingEngine.h"

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

/// Bytes that follow, or choices: of texts, of what damages them, of a host's own fault.
class RandomBundles {
 public:
  explicit RandomBundles(Choices& choices) : choices_(choices), schemas_(choices) {}

  Bundle next() {
    Bundle made{header};
    const std::size_t count = choices_.below(10);
    for (std::size_t number = 0; number < count; ++number)
      made.bytes.append(choices_.oneIn(8) ? "{}" : schemas_.next()).push_back('\0');
    if (choices_.oneIn(8)) fillChunk(made.bytes);
    if (choices_.oneIn(4)) damage(made.bytes);
    if (choices_.oneIn(4)) made.faultAt = choices_.below(count + 1);
    return made;
  }

 private:
  /// About as many bytes as a file is read by at a time.
  void fillChunk(std::string& bytes) {
    const std::size_t size = 65536 + choices_.below(4) - 2;
    if (bytes.size() < size) bytes.insert(header.size(), size - bytes.size(), ' ');
  }

  void damage(std::string& bytes) {
    const std::size_t most = choices_.oneIn(2) ? header.size() + 1 : bytes.size() + 1;
    const std::size_t at = std::min(choices_.below(most), bytes.size());
    switch (choices_.below(4)) {
      case 0:
        return bytes.resize(at);
      case 1:
        bytes.insert(at, 1, static_cast<char>(choices_.below(256)));
        return;
      case 2:
        bytes.erase(at, 1 + choices_.below(4));
        return;
      default:
        bytes.insert(at, header);
    }
  }

  Choices& choices_;
  RandomSchemas schemas_;
};

/// The texts of a bundle, byte by byte; nothing where it is none.
std::optional<std::vector<std::string>> split(const std::string& bytes) {
  if (bytes.compare(0, header.size(), header) != 0) return std::nullopt;
  std::vector<std::string> texts(1);
  for (std::size_t at = header.size(); at < bytes.size(); ++at) {
    if (bytes[at] == '\0')
      texts.emplace_back();
    else
      texts.back() += bytes[at];
  }
  if (!texts.back().empty()) return std::nullopt;
  texts.pop_back();
  return texts;
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

  /// What one load says. A fault comes at the text of that number.
  template <class Load>
  std::string outcome(const Bundle& bundle, const Load& load) {
    texts.clear();
    builds = 0;
    faultAt_ = bundle.faultAt;
    try {
      load(bundle.bytes);
    } catch (const Units::ValidationException& refused) {
      return std::string("refused: ") + refused.what();
    } catch (const std::logic_error& error) {
      return error.what();
    }
    return "loaded";
  }

 private:
  std::size_t faultAt_ = 0;
};

/// What the contract says.
void addOneByOne(const std::string& bytes, Host& host) {
  const auto texts = split(bytes);
  if (!texts) throw std::logic_error("not a schema bundle");
  for (const std::string& text : *texts)
    messageOrNone<Units::ValidationException>([&] { host.addDefinition(text); });
  host.buildSchemas();
}

template <class Kind>
std::vector<std::string> pendingOf(const Kind& kind) {
  std::vector<std::string> typeIds;
  for (const auto& [typeId, data] : kind.pending) typeIds.push_back(typeId);
  return typeIds;
}

void demandSame(const Host& got, const Host& expected) {
  demand(got.texts == expected.texts, got.texts.size(), " texts, not ", expected.texts.size());
  demand(got.builds == expected.builds, got.builds, " builds");
  const auto& a = got.registries;
  const auto& b = expected.registries;
  demand(storedIds(a) == storedIds(b), "what is registered");
  demand(a.pendingTypeIds == b.pendingTypeIds, "what is pending");
  demand(pendingOf(a.dimensions) == pendingOf(b.dimensions), "pending dimensions");
  demand(pendingOf(a.factors) == pendingOf(b.factors), "pending factors");
  demand(pendingOf(a.units) == pendingOf(b.units), "pending units");
  demand(pendingOf(a.symbols) == pendingOf(b.symbols), "pending symbols");
  demand(pendingOf(a.quantities) == pendingOf(b.quantities), "pending quantities");
}

void demandSameRecords(const Units::Registries& got, const Units::Registries& expected) {
  for (const std::string& typeId : storedIds(expected)) {
    demandEqual(definitionOf(typeId, got), definitionOf(typeId, expected), typeId);
    demand(Units::getDependencies(typeId, got) == Units::getDependencies(typeId, expected), typeId);
  }
}

/// The same row of bundles on an engine of each.
class Loads {
 public:
  void load(const Bundle& bundle) {
    const std::string expected =
        byTexts_.outcome(bundle, [&](const std::string& bytes) { addOneByOne(bytes, byTexts_); });
    const auto buffer = byBuffer_.outcome(bundle, [&](const std::string& bytes) {
      Schemas::SchemaBundle::addDefinitionsFromBuffer(ExactText(bytes), byBuffer_);
    });
    const auto file = byFile_.outcome(bundle, [&](const std::string& bytes) {
      static const FolderTree folder;
      folder.write("bundle", bytes);
      Schemas::SchemaBundle::addDefinitionsFromFile(folder.path("bundle"), byFile_);
    });
    demandEqual(buffer, expected, "a buffer");
    demandEqual(file, expected, "a file");
    demandSame(byBuffer_, byTexts_);
    demandSame(byFile_, byTexts_);
  }

  /// Builds what is still pending.
  void finish() {
    load(Bundle{header});
    demandSameRecords(byBuffer_.registries, byTexts_.registries);
    demandSameRecords(byFile_.registries, byTexts_.registries);
  }

 private:
  Host byTexts_, byBuffer_, byFile_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  Loads loads;
  if (choices.takes('#')) {
    RandomBundles bundles(choices);
    for (int count = 0; count < 4; ++count) loads.load(bundles.next());
  } else {
    const Bundle bundle{(choices.takes('%') ? header : "") + choices.rest()};
    loads.load(bundle);
    loads.load(bundle);  // all of its type ids are taken
  }
  loads.finish();
  return 0;
}
