/// Inputs that are known to break libraries of this kind, each with the answer that it must get.
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <vector>

#include "tests/robustness/Findings.h"
#include "tests/robustness/HostEngine.h"
#include "tests/robustness/Sample.h"
#include "tests/support/FolderTree.h"

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

void expect(const std::string& input, const std::string& result, const std::string& right) {
  check(result == right, input.substr(0, 60) + ": " + result.substr(0, 200) + ", not " + right);
}

std::string added(Units::UnitsEngine& engine, const std::string& text) {
  return outcome([&] { return engine.addDefinition(text), std::string("added"); });
}

void tryTexts() {
  const auto refusal = [](std::size_t offset, const char* reason) {
    return "ValidationException: JSON parsing error at offset " + std::to_string(offset) + ": " +
           reason;
  };
  const std::size_t deep = 1000000;
  const std::pair<std::string, std::string> rows[] = {
      {"]", refusal(0, "Invalid value.")},
      {"}", refusal(0, "Invalid value.")},
      {":", refusal(0, "Invalid value.")},
      {",", refusal(0, "Invalid value.")},
      {"", refusal(0, "The document is empty.")},
      {"\0{}"s, refusal(0, "The document is empty.")},
      {std::string(deep, '['), refusal(deep, "Invalid value.")},
      {std::string(deep, '{'), refusal(1, "Missing a name for object member.")},
      {std::string(deep, '[') + std::string(deep, ']'),
       "ValidationException: Schema must specify a typeid string."},
      {"\"\\ud800\"", refusal(1, "The surrogate pair in string is invalid.")},
      {"1e999999999999", refusal(0, "Number too big to be stored in double.")}};
  const Engine engine = makeEngine();
  for (const auto& [text, right] : rows) expect(text, added(*engine, text), right);
}

void tryNumbers() {
  const std::pair<const char*, double> rows[] = {{"0.11111111111e-2147483639", 0.0},
                                                 {"1e-99999999999999999999", 0.0},
                                                 {"0e308", 0.0},
                                                 {"-1.5e-2147483648", -0.0},
                                                 {"1e0000000000000003", 1000.0},
                                                 {"18446744073709551616", 18446744073709551616.0}};
  for (const auto& [number, value] : rows) {
    const Engine engine = makeEngine();
    expect(number, added(*engine, schema("f", "factor", "{'id':'factor','value':"s + number + "}")),
           "added");
    engine->buildSchemas();
    expect(number, bits(engine->getFactor("f").getFactorComponent().getFactor()), bits(value));
  }
}

Units::Unit derived(const std::string& typeId, const std::map<std::string, int>& parents) {
  return Units::Unit(typeId, "n", Units::System::Metric, Units::DerivedUnitComponent(parents, {}));
}

/// Exponents stay at the ends of 32 bits, so that no sum or product comes out as another dimension.
void tryExponents() {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  const Engine engine = sampleEngine();
  engine->addUnit(derived("most", {{"inch", most}}));
  engine->addUnit(derived("least", {{"inch", least}}));
  engine->addUnit(derived("product", {{"most", 65536}}));
  engine->addUnit(derived("negative", {{"most", least}}));
  engine->addUnit(derived("sum", {{"most", 1}, {"inch", 1}}));
  engine->addSymbol(Units::Symbol("s", engine->getUnit("most"),
                                  Units::PrefixOrSuffix("m", Units::Placement::Suffix, true)));
  struct Row {
    const char* from;
    const char* to;
    bool converts;
  };
  for (const Row& row :
       {Row{"product", "most", true}, Row{"sum", "most", true}, Row{"negative", "least", true},
        Row{"least", "most", false}, Row{"product", "foot", false}, Row{"sum", "foot", false}})
    check(engine->canConvert(row.from, row.to) == row.converts,
          std::string("exponents of ") + row.from + " and " + row.to);
  for (const char* formula : {"(1 m)^2", "(1 m)^1e20", "1 m * 1 m", "1 m / (1 m)^-1e9"})
    expect(formula,
           outcome([&] { return bits(engine->evaluateExpressionInUnit("most", formula)); }),
           bits(1));
  expect("(1 m)^2 in feet",
         outcome([&] { return bits(engine->evaluateExpressionInUnit("foot", "(1 m)^2")); }),
         "ParseException: Unable to parse expression.");
}

/// No figure is too large for a renderer; what is infinite or no number stays recognisable.
void tryRenderers() {
  const Engine engine = sampleEngine();
  const std::string composite = "x:feetAndInches-1";
  for (const double value : {0x1p63, 0x1p64, 1e19, 1e300, 1.7976931348623157e308, infinity,
                             noNumber, -0x1p64, -infinity, 5e-324}) {
    for (const std::string* symbol : {static_cast<const std::string*>(nullptr), &composite})
      for (unsigned char precision = 0; precision < 10; ++precision) {
        const std::string fixed = engine->formatFixedPoint(value, precision, symbol, true);
        const std::string fraction = engine->formatFractional(value, precision, symbol);
        check(!fixed.empty() && fixed.size() < 400 && !fraction.empty() && fraction.size() < 400,
              "the text of " + std::to_string(value));
      }
    if (!(std::fabs(value) < 0x1p63) || std::isnan(value)) {
      const std::string fixed = engine->formatFixedPoint(value, 0, nullptr, true);
      expect("formatFractional of " + fixed, engine->formatFractional(value, 0, nullptr), fixed);
    }
  }
}

void tryFactors() {
  for (const double factor : {infinity, -infinity, noNumber}) {
    const Engine engine = sampleEngine();
    engine->addFactor(Units::Factor("new", Units::FactorComponent(factor)));
    const std::string said = outcome([&] { return engine->getDefinition("new"); });
    check(said.find("ValidationException: ") == 0, "a factor that no JSON can hold: " + said);
    engine->addUnit(Units::Unit(
        "over", "n", Units::System::Metric,
        Units::DerivedUnitComponent({{"inch", 1}}, Units::FactorComponent(1, {{"new", -2}}))));
    engine->convert(1, "over", "foot");
    engine->addUnit(Units::Unit("above", "n", Units::System::Metric,
                                Units::AbsoluteUnitComponent("inch", factor)));
    const std::string written = outcome([&] { return engine->getDefinition("above"); });
    check(written.find("ValidationException: ") == 0,
          "an offset that no JSON can hold: " + written);
  }
}

void tryBytes() {
  for (const std::string& bytes :
       {"a\0b"s, "\0"s, "\xFF\xFE"s, "\xC3"s, "\xED\xA0\x80"s, "\xF5\x80\x80\x80"s, "\x80"s}) {
    const Engine engine = sampleEngine();
    const Units::PrefixOrSuffix shown(bytes, Units::Placement::Suffix, true);
    engine->addUnit(Units::Unit(bytes, bytes, Units::System::Metric,
                                Units::DerivedUnitComponent({{"inch", 1}}, {})));
    engine->addSymbol(Units::Symbol("s" + bytes, engine->getUnit(bytes), shown));
    engine->addQuantity(Units::Quantity("q" + bytes, bytes, {engine->getUnit(bytes)}));
    check(engine->isRegistered(bytes) && engine->getUnit(bytes).getName() == bytes, "an id");
    check(engine->convert(2, bytes, "inch") == 2, "a conversion by an id of any bytes");
    const std::string symbol = "s" + bytes;
    check(engine->formatFixedPoint(2, 0, &symbol, false) == "2 " + bytes, "a symbol's text");
    for (const std::string& formula : {"2 " + bytes, "(2) " + bytes, bytes, bytes + "(2)"})
      outcome([&] { return bits(engine->evaluateExpressionInUnit(bytes, formula)); });
    expect(bytes,
           outcome([&] { return bits(engine->evaluateExpressionInUnit("inch", "2 " + bytes)); }),
           bits(2));
    describe(*engine);
  }
}

class Folder {
 public:
  Folder() { fs::create_directory(tree_.path("sub")); }

  fs::path path(const std::string& name) const { return tree_.path("sub") / name; }

  std::string load(HostEngine& engine) const {
    try {
      Schemas::SchemaUtility::addDefinitionsFromFolder(tree_.path(), engine);
    } catch (const fs::filesystem_error&) {
      return "filesystem_error";
    } catch (const std::logic_error& error) {
      return error.what();
    }
    return std::to_string(keys(engine.inner->getDimensions()).size() / 3) + " dimensions";
  }

 private:
  FolderTree tree_;
};

void tryFolders() {
  const auto write = [](const Folder& folder, int number) {
    const std::string typeId = "d" + std::to_string(number);
    std::ofstream(folder.path(typeId + ".json")) << schema(typeId, "dimension", "");
  };
  struct Row {
    const char* name;
    void (*make)(const Folder&);
    const char* right;
  };
  const Row rows[] = {
      {"a FIFO", [](const Folder& f) { ::mkfifo(f.path("p.json").c_str(), 0644); }, "1 dimensions"},
      {"a link to nothing",
       [](const Folder& f) { fs::create_symlink("nothing", f.path("l.json")); }, "1 dimensions"},
      {"a loop of links", [](const Folder& f) { fs::create_symlink("l.json", f.path("l.json")); },
       "filesystem_error"},
      {"a file that cannot be read",
       [](const Folder& f) { fs::create_symlink("/proc/self/mem", f.path("m.json")); },
       "failed to read schema file"},
      {"a link to its own folder",
       [](const Folder& f) { fs::create_directory_symlink(".", f.path("again")); }, "1 dimensions"},
      {"a folder named as a file", [](const Folder& f) { fs::create_directory(f.path("f.json")); },
       "1 dimensions"}};
  for (const Row& row : rows) {
    const Folder folder;
    write(folder, 1);
    row.make(folder);
    HostEngine engine;
    expect(row.name, folder.load(engine), row.right);
  }

  // The first that is read takes all the others with it, which the walk may have seen already.
  const Folder folder;
  for (int number = 1; number < 10; ++number) write(folder, number);
  HostEngine engine;
  engine.onCall = [&](int) {
    for (int number = 1; number < 10; ++number)
      fs::remove(folder.path("d" + std::to_string(number) + ".json"));
  };
  expect("files that vanish", folder.load(engine), "1 dimensions");
}

}  // namespace

int main() {
  tryTexts();
  tryNumbers();
  tryExponents();
  tryRenderers();
  tryFactors();
  tryBytes();
  tryFolders();
  return verdict();
}
