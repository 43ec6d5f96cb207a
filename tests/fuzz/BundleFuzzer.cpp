/// Bundles of any bytes, whole and damaged, from buffers and from files, one after the other on one
/// engine: each has the result of adding its texts one by one, and a damaged one has none.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"
#include "tests/support/Sample.h"

#include <TrelvonUnits/SchemaReport.h>

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

/// Cuts it, or has something else in the place of a few bytes, often of the header.
void damage(Random& random, std::string& bytes) {
  const std::size_t most = random.oneIn(2) ? header.size() + 1 : bytes.size() + 1;
  const std::size_t at = std::min(random.below(most), bytes.size());
  if (random.oneIn(4)) return bytes.resize(at);
  const std::size_t length = random.below(5);
  const std::string byte(1, static_cast<char>(random.below(256)));
  bytes.replace(at, length, random.oneOf(std::vector<std::string>{"", byte, byte, header}));
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

/// What one load says, how often it asks the engine, and what it leaves. The host's fault comes at
/// the text of that number.
template <class Load>
std::string loaded(const Bundle& bundle, Units::HostEngine& engine, const Load& load) {
  std::size_t calls = 0;
  engine.onCall = [&](int) {
    if (calls++ == bundle.faultAt) throw HostFault();
  };
  const std::string said = outcome([&] { load(bundle.bytes, engine); });
  return said + std::to_string(calls) + outcome([&] { return describe(*engine.inner); });
}

/// What the contract says. A NUL ends each text.
void addOneByOne(const std::string& bytes, Units::UnitsEngine& engine) {
  const bool isBundle = bytes.compare(0, header.size(), header) == 0;
  std::vector<std::string> texts = split(isBundle ? bytes.substr(header.size()) : "x", '\0');
  if (!texts.back().empty()) throw std::logic_error("not a schema bundle");
  texts.pop_back();
  for (const std::string& text : texts) try {
      engine.addDefinition(text);
    } catch (const Units::ValidationException&) {
    }
  engine.buildSchemas();
}

/// A report says of each text what became of it silently.
void checkReport(const std::string& bytes) {
  const std::unique_ptr<Units::UnitsEngine> silent(Units::CreateUnitsEngine());
  const std::unique_ptr<Units::UnitsEngine> reported(Units::CreateUnitsEngine());
  std::string failure;
  try {
    Schemas::SchemaBundle::addDefinitionsFromBuffer(bytes, *silent);
  } catch (const std::logic_error& error) {
    failure = error.what();
  }
  try {
    const auto report = Schemas::loadBundle(bytes, "b", *reported, {true, true, true, {}});
    checkEqual(report.getFileCount(Schemas::FileFate::LeftOut) > 0, !failure.empty(), failure);
    for (const Schemas::FileReport& file : report.getFiles())
      if (file.getFate() == Schemas::FileFate::Loaded)
        check(reported->isRegistered(file.getTypeId()) &&
                  (!failure.empty() || silent->isRegistered(file.getTypeId())),
              report.toText());
  } catch (const std::logic_error& error) {
    checkEqual(error.what(), failure, "a report");
  }
}

/// The same sequence of bundles on an engine of each.
class Loads {
 public:
  void load(const Bundle& bundle) {
    const std::string expected = loaded(bundle, byTexts_, addOneByOne);
    const auto buffer = loaded(bundle, byBuffer_, [](const std::string& bytes, auto& engine) {
      Schemas::SchemaBundle::addDefinitionsFromBuffer(ExactText(bytes), engine);
    });
    const auto file = loaded(bundle, byFile_, [](const std::string& bytes, auto& engine) {
      static const FolderTree folder;
      folder.write("bundle", bytes);
      Schemas::SchemaBundle::addDefinitionsFromFile(folder.path("bundle"), engine);
    });
    checkEqual(buffer, expected, "a buffer");
    checkEqual(file, expected, "a file");
    checkReport(bundle.bytes);
  }

 private:
  Units::HostEngine byTexts_, byBuffer_, byFile_;
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
  loads.load(Bundle{header});  // builds what is still pending
}
