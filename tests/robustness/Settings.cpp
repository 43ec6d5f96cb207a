/// What a process can set and the library must not heed: locales, the global C++ locale, rounding
/// modes, flushed subnormals, and a C library that sets no `errno`. `Settings FOLDER`: where
/// localedef put its locales.
#include "tests/support/Build.h"
#include "tests/support/Check.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Sample.h"
#include "text/CharConversion.h"

#include <dlfcn.h>
#if defined(__SSE2__)
#include <pmmintrin.h>
#endif
#include <algorithm>
#include <cerrno>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <stdlib.h>
#include <vector>

namespace {

bool setsErrno = true;

double computed(const char* name, double x, double y) {
  using Function = double(double, double);
  const int before = errno;
  const double result = reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name))(x, y);
  if (!setsErrno) errno = before;
  return result;
}

}  // namespace

extern "C" {
double pow(double base, double exponent) {
  static const char* const name = "pow";
  return computed(name, base, exponent);
}
double exp(double exponent) { return computed("exp", exponent, 0); }
}

namespace {

const char* const formulas[] = {
    "1,5 ft",   "1.5 ft",    "1234567.891 in", "1.234,5",      "0.1+0.2",    "5' 6 1/2\"",
    "SIN(1)",   "sin(1)",    "ID+1",           "\xC4\xB1+1",   "i*I",        "pi()",
    "10^29",    "10^31",     "10^400",         "2^-1000",      "2^-1074",    "2^-2000",
    "exp(800)", "exp(-800)", "exp(-740)",      "0.5^1070",     "(-2)^0.5",   "0^0",
    "1e400",    "1e-400",    "0x1.8p3",        "1_000",        "1'000",      "2 degC + 1 degC",
    "ln(0)",    "log(1000)", "(2 ft)^2/1 ft",  "sqrt(2) * $1", "max(1,2)",   "10\xC2\xB0 30' 15\"",
    "inf",      "nan",       "(1 ft)^1e10",    "1e308*10",     "(2^-540)^2", "1.7e-200*1e-200"};

constexpr double infinity = std::numeric_limits<double>::infinity();
const double values[] = {0.0,    -0.0,        0.5,    -5.53125, 1234567.891, 1e15,        1e300,
                         2.5e-7, 99999.99999, 1e-320, infinity, -infinity,   0 * infinity};

void addNumbers(const Units::UnitsEngine& engine, std::string& all) {
  for (const char* symbol : {"ft", "dollar", "x:feetAndInches-1"}) {
    const std::string typeId = symbol;
    for (const double value : values)
      for (unsigned char precision = 0; precision < 14; ++precision) {
        all += outcome([&] { return engine.formatFixedPoint(value, precision, &typeId, true); });
        all += outcome([&] { return engine.formatFractional(value, precision, &typeId); }) + '\n';
      }
  }
}

/// What standard libraries without <charconv> for doubles go through.
void addConversionsByCLibrary(std::string& all) {
  for (const double value : values) Units::byCLibrary::appendFixed(all, std::fabs(value), 12);
  for (const double value : values) all += Units::byCLibrary::shortNumber(value) + '\n';
  for (const char* text : {"1.5e3", "1,5", "1.234.5", "0.000001", ".5"}) {
    const Units::LeadingNumber read = Units::byCLibrary::readDecimal(text);
    all += written(read.value) + ' ' + std::to_string(read.length) + '\n';
  }
}

/// By `convert` and prepared, between every two of these units.
/// @param host  the same engine, as a host's own.
void addConversions(const Units::UnitsEngine& engine, const Units::UnitsEngine& host,
                    std::string& all) {
  const char* const units[] = {"foot",    "perInch",           "gross feet", "inch",
                               "nothing", "less than nothing", "subnormal",  "minus subnormal"};
  std::vector<double> many(std::begin(values), std::end(values));
  while (many.size() < 200) many.push_back(1.0 + static_cast<double>(many.size()) / 7.0);
  std::vector<double> converted(many.size());
  for (const char* from : units)
    for (const char* to : units)
      for (const Units::UnitsEngine* preparing : {&engine, &host}) {
        const Units::PreparedConversion prepared(*preparing, from, to);
        prepared.convert(many.data(), converted.data(), many.size());
        for (std::size_t i = 0; i < many.size(); ++i) {
          const std::string right = written(engine.convert(many[i], from, to));
          if (i < std::size(values)) all += right + '\n';
          check(written(prepared(many[i])) == right && written(converted[i]) == right,
                "a prepared conversion of ", many[i], " from ", from, " to ", to);
        }
      }
}

/// Everything that reads or writes numbers or looks at letters.
std::string everything() {
  const Units::HostEngine::Inner engine = makeEngine();
  Schemas::SchemaBundle::addDefinitionsFromBuffer(bundleOf(sampleSchemas()), *engine);
  engine->addFactor(Units::Factor("I", Units::FactorComponent(1234567.891)));
  engine->addFactor(Units::Factor("\xC4\xB0", Units::FactorComponent(1e-7)));
  engine->addFactor(Units::Factor("i", Units::FactorComponent(0.1)));
  std::string all = outcome([&] {
    engine->addDefinition(schema("read", "factor", {value("factor", "1234.5678e-3")}));
    engine->addDefinition(schema("none", "factor", {value("factor", "1,5")}));
  });
  engine->buildSchemas();
  all += describe(*engine) + written(engine->getFactor("read").getFactorComponent().getFactor());
  for (const char* formula : formulas)
    all += outcome([&] { return engine->evaluateExpressionInUnit("foot", formula); }) + '\n';
  engine->addUnit(derivedUnit("gross feet", {{"foot", 1}}, {0.1, {{"gross", 1}, {"i", -3}}}));
  for (const auto& [unit, factor] : {std::pair("nothing", 0.0),
                                     {"less than nothing", -0.0},
                                     {"subnormal", 1.2345e-310},
                                     {"minus subnormal", -0x1p-1074}})
    engine->addUnit(derivedUnit(unit, {{"inch", 1}}, factor));
  addConversions(*engine, Units::HostEngine(engine), all);
  addNumbers(*engine, all);
  addConversionsByCLibrary(all);
  return all;
}

struct Grouping : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\1"; }
  std::string do_truename() const override { return "wahr"; }
};

/// Says from where on something else came out.
void compare(const std::string& setting) {
  static const std::string plain = everything();
  const std::string other = everything();
  std::size_t same = 0;
  while (same < std::min(plain.size(), other.size()) && plain[same] == other[same]) ++same;
  check(other == plain, setting, "\n  ", plain.substr(same, 60), "\n  ", other.substr(same, 60));
}

}  // namespace

int main(int count, char** arguments) {
  compare("the second run");
  if (count > 1) ::setenv("LOCPATH", arguments[1], 1);
  for (const char* name : {"de_DE.UTF-8", "fa_IR.UTF-8", "tr_TR.UTF-8"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) {
      report("not on this machine: ", name);
      continue;
    }
    compare(std::string("the locale ") + name);
#if !defined(TRELVON_TESTS_SANITIZED)  // glibc's newlocale leaks its copy of LOCPATH
    std::locale::global(std::locale(name));
    compare(std::string("the global locale ") + name);
    std::locale::global(std::locale::classic());
#endif
    std::setlocale(LC_ALL, "C");
    report(name);
  }
  std::locale::global(std::locale(std::locale::classic(), new Grouping));
  compare("a global locale with grouping");
  std::locale::global(std::locale::classic());

  // Results may differ, but nothing else goes wrong, and nothing is left behind.
  std::fenv_t usual;
  std::fegetenv(&usual);
  const auto survive = [&](int setting) {
    report("arithmetic ", setting, ": ", everything().size(), " bytes");
    std::fesetenv(&usual);
    compare("after another arithmetic");
  };
#if defined(__SSE2__)
  for (const unsigned flags :
       {_MM_FLUSH_ZERO_ON, _MM_DENORMALS_ZERO_ON, _MM_FLUSH_ZERO_ON | _MM_DENORMALS_ZERO_ON}) {
    _mm_setcsr(_mm_getcsr() | flags);
    survive(static_cast<int>(flags));
  }
#endif
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    survive(mode);
  }

  setsErrno = false;
  compare("a C library that sets no errno");
  return verdict();
}
