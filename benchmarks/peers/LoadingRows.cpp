/// The cost of startup: loading schema texts, folders and bundles, and the memory of definitions.
#include "benchmarks/SchemaTexts.h"
#include "benchmarks/peers/Turns.h"

#include <malloc.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace peers {

namespace {

std::shared_ptr<Units::UnitsEngine> loadFolders(const std::string& folder = TRELVON_SCHEMAS) {
  std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  Schemas::SchemaUtility::addDefinitionsFromFolder(folder, *engine);
  return engine;
}

/// A pack refers to those before it. The files of codes that lie in packs are no definitions.
std::vector<std::string> packs() {
  std::vector<std::string> folders;
  for (const char* const pack : {"/core", "/symbols", "/aliases", "/legacy", "/gauge", "/cgs"})
    folders.push_back(std::string(TRELVON_SCHEMAS) + pack);
  return folders;
}

std::shared_ptr<Units::UnitsEngine> loadPacks() {
  std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const std::string& pack : packs())
    Schemas::SchemaUtility::addDefinitionsFromFolder(pack, *engine);
  return engine;
}

std::size_t countIn(const Units::UnitsEngine& engine) {
  return engine.getDimensions().size() + engine.getFactors().size() + engine.getUnits().size() +
         engine.getSymbols().size() + engine.getQuantities().size();
}

Side loading(Texts texts) {
  const auto count = static_cast<double>(texts.size());
  check(countIn(*load(texts)) == texts.size(), "loading texts omits definitions");
  return {[texts = std::move(texts)] { return load(texts); }, count};
}

Side rapidJson(const Texts& texts) {
  return {[texts] {
            for (const std::string& text : texts) {
              rapidjson::Document document;
              document.Parse(text.c_str());
              keep(&document);
            }
            return Leftover();
          },
          static_cast<double>(texts.size())};
}

Sides textsAgainstRapidJson() {
  const Texts texts = readCatalog();
  return {loading(texts), rapidJson(texts)};
}

/// Units that are defined in chains of ten.
Texts manyTexts(int count) {
  const auto name = [](int number) {
    return "company.unit:ours" + std::to_string(number) + "-1.0.0";
  };
  Texts texts = {R"({"typeid":")" + name(0) +
                 R"(","inherits":["vellamor.unit:unit.primitive-1.0.0"],"constants":[)"
                 R"({"id":"name","value":"ours"},{"id":"unitSystem","value":"Metric"}]})"};
  for (int number = 1; number < count; ++number)
    texts.push_back(R"({"typeid":")" + name(number) +
                    R"(","inherits":["vellamor.unit:unit.derived-1.0.0"],"constants":[)"
                    R"({"id":"name","value":"ours"},{"id":"unitSystem","value":"Metric"},)"
                    R"({"id":"factor","value":2.5},{"id":"parentUnits","value":{")" +
                    name(number % 10 == 0 ? 0 : number - 1) + R"(":1}}]})");
  return texts;
}

Sides fromFolders(const std::string& folder) {
  const Texts texts = readTexts(folder);
  check(countIn(*loadFolders(folder)) == texts.size(), "loading folders omits definitions");
  return {{[folder] { return loadFolders(folder); }},
          {[folder] { return std::make_shared<Texts>(readTexts(folder)); }}};
}

/// The whole catalog.
Side fromABundle(const Texts& texts) {
  std::string bundle = "TrelvonUnits-schema-bundle-1\n";
  for (const std::string& text : texts) bundle.append(text).push_back('\0');
  const auto load = [bundle] {
    std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, *engine);
    return engine;
  };
  check(countIn(*load()) == texts.size(), "loading a bundle omits definitions");
  return {load, static_cast<double>(texts.size())};
}

Sides withReport(bool lint) {
  const auto load = [lint] {
    std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    const auto report = Schemas::loadFolders(packs(), *engine, {lint, false, true, {}});
    check(report.getErrorCount() == 0, "the catalog has errors");
    return engine;
  };
  check(countIn(*load()) == countIn(*loadPacks()), "loading with a report omits definitions");
  return {{load}, {[] { return loadPacks(); }}};
}

Sides memory() {
  const Texts texts = readCatalog();
  const auto inUse = [] {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
  };
  const double before = inUse();
  const auto engine = load(texts);
  const double bytes = (inUse() - before) / static_cast<double>(texts.size());
  return {{}, {}, Reached{bytes / 1000, bytes, 1000, "bytes"}};
}

struct Resident {
  double process;  // bytes per definition
  double growth;
};

/// What a new process needs that loads a folder.
Resident residentWith(const std::string& folder) {
  std::FILE* const output = popen((TRELVON_RESIDENT " " + folder).c_str(), "r");
  check(output != nullptr, "the program that measures resident memory does not start");
  Resident measured = {};
  const int read = std::fscanf(output, "%lf %lf", &measured.process, &measured.growth);
  check(pclose(output) == 0 && read == 2, "the program that measures resident memory fails");
  return measured;
}

/// Measured in some processes, since how much of the shared libraries is resident varies.
Sides resident(double Resident::*kind, const std::string& folder = TRELVON_SCHEMAS "/core") {
  constexpr double before = 4009;  // bytes, of the whole process, when this row was first measured
  std::vector<double> bytes;
  for (int time = 0; time < 9; ++time) bytes.push_back(residentWith(folder).*kind);
  std::sort(bytes.begin(), bytes.end());
  const double median = bytes[bytes.size() / 2];
  return {{},
          {},
          Reached{median / before, median, before, "bytes", bytes.front() / before,
                  bytes.back() / before}};
}

}  // namespace

std::vector<Row> loadingRows() {
  return {
      {"loading and building schema texts", "RapidJSON parsing the same bytes", Bound::AtMost, 2.8,
       2.2, textsAgainstRapidJson},
      {"loading 100,000 schemas, per schema", "1,000 schemas", Bound::AtMost, 4, 2.5,
       [] {
         return Sides{loading(manyTexts(100000)), loading(manyTexts(1000))};
       }},
      {"loading the core pack from folders", "only reading the same files", Bound::AtMost, 1.8, 1.4,
       [] { return fromFolders(TRELVON_SCHEMAS "/core"); }},
      {"loading the whole catalog from folders", "only reading the same files", Bound::AtMost, 1.8,
       1.4, [] { return fromFolders(TRELVON_SCHEMAS); }},
      {"loading the whole catalog from a bundle", "RapidJSON parsing the same bytes", Bound::AtMost,
       3, 2,
       [] {
         const Texts texts = readCatalog();
         return Sides{fromABundle(texts), rapidJson(texts)};
       }},
      {"loading the whole catalog from a bundle", "from folders", Bound::AtMost, 1, 0.5,
       [] {
         const Texts texts = readCatalog();
         const auto count = static_cast<double>(texts.size());
         return Sides{fromABundle(texts), {[] { return loadFolders(); }, count}};
       }},
      {"loading the whole catalog with a report", "from folders", Bound::AtMost, 1.5, 1.25,
       [] { return withReport(false); }},
      {"loading the whole catalog with lints", "from folders", Bound::AtMost, 3, 2,
       [] { return withReport(true); }},
      {"memory per definition", "1,000 bytes", Bound::AtMost, 0.8, 0.5, memory},
      {"resident memory per definition, core pack, whole process", "4,009 bytes", Bound::AtMost,
       0.7, 0.5, [] { return resident(&Resident::process); }},
      {"resident memory per definition, core pack, growth by loading", "4,009 bytes", Bound::AtMost,
       0.7, 0.5, [] { return resident(&Resident::growth); }},
      {"resident memory per definition, whole catalog, growth by loading", "4,009 bytes",
       Bound::AtMost, 0.7, 0.5, [] { return resident(&Resident::growth, TRELVON_SCHEMAS); }},
  };
}

}  // namespace peers
