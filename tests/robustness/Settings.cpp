/// What a process can set and the library must not heed: locales, the global C++ locale, rounding
/// modes, flushed subnormals, and a C library that sets no `errno`. `Settings FOLDER`: where
/// localedef put its locales.
#include <dlfcn.h>
#include <stdlib.h>

#if defined(__SSE2__)
#include <pmmintrin.h>
#endif

#include <cerrno>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Sample.h"
#include "tests/support/Build.h"
#include "text/CharConversion.h"

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

const double values[] = {0.0,
                         -0.0,
                         0.5,
                         -5.53125,
                         1234567.891,
                         1e15,
                         1e300,
                         2.5e-7,
                         99999.99999,
                         1e-320,
                         std::numeric_limits<double>::infinity(),
                         -std::numeric_limits<double>::infinity(),
                         std::numeric_limits<double>::quiet_NaN()};

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
  for (const char* text : {"1.5e3", "1,5", "1.234.5", "0.000001", ".5"}) {
    const Units::LeadingNumber read = Units::byCLibrary::readDecimal(text);
    all += bits(read.value) + ' ' + std::to_string(read.length) + '\n';
  }
}

/// A prepared conversion gives what `convert` gives, whatever both run under.
void addConversions(const Units::UnitsEngine& engine, std::string& all) {
  for (const auto& [from, to] : {std::pair("foot", "perInch"),
                                 {"gross feet", "inch"},
                                 {"inch", "gross feet"},
                                 {"inch", "nothing"},
                                 {"inch", "less than nothing"},
                                 {"inch", "subnormal"},
                                 {"minus subnormal", "inch"},
                                 {"celsius", "celsius"}}) {
    const Units::PreparedConversion prepared(engine, from, to);
    double converted[std::size(values)];
    prepared.convert(values, converted, std::size(values));
    for (std::size_t i = 0; i < std::size(values); ++i) {
      const double right = engine.convert(values[i], from, to);
      all += bits(right) + '\n';
      check(std::isnan(right)
                ? std::isnan(prepared(values[i])) && std::isnan(converted[i])
                : bits(prepared(values[i])) == bits(right) && bits(converted[i]) == bits(right),
            "a prepared conversion of " + bits(values[i]) + " from " + from + " to " + to);
    }
  }
}

/// Everything that reads or writes numbers or looks at letters.
std::string everything() {
  const Engine engine = makeEngine();
  Schemas::SchemaBundle::addDefinitionsFromBuffer(sampleBundle(), *engine);
  engine->addFactor(Units::Factor("I", Units::FactorComponent(1234567.891)));
  engine->addFactor(Units::Factor("\xC4\xB0", Units::FactorComponent(1e-7)));
  engine->addFactor(Units::Factor("i", Units::FactorComponent(0.1)));
  std::string all = outcome([&] {
    engine->addDefinition(schema("read", "factor", "{'id':'factor','value':1234.5678e-3}"));
    engine->addDefinition(schema("none", "factor", "{'id':'factor','value':1,5}"));
    return std::string();
  });
  engine->buildSchemas();
  all += describe(*engine) + bits(engine->getFactor("read").getFactorComponent().getFactor());
  for (const char* formula : formulas)
    all += outcome([&] { return bits(engine->evaluateExpressionInUnit("foot", formula)); }) + '\n';
  engine->addUnit(
      Units::Unit("gross feet", "n", Units::System::Metric,
                  Units::DerivedUnitComponent(
                      {{"foot", 1}}, Units::FactorComponent(0.1, {{"gross", 1}, {"i", -3}}))));
  for (const auto& [unit, factor] : {std::pair("nothing", 0.0),
                                     {"less than nothing", -0.0},
                                     {"subnormal", 1.2345e-310},
                                     {"minus subnormal", -0x1p-1074}})
    engine->addUnit(
        Units::Unit(unit, "n", Units::System::Metric,
                    Units::DerivedUnitComponent({{"inch", 1}}, Units::FactorComponent(factor))));
  addConversions(*engine, all);
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

int differences(const std::string& a, const std::string& b) {
  std::size_t place = 0;
  while (place < a.size() && place < b.size() && a[place] == b[place]) ++place;
  const std::size_t from = place < 60 ? 0 : place - 60;
  if (a != b) std::printf("  %s\n  %s\n", a.substr(from, 120).c_str(), b.substr(from, 120).c_str());
  return a != b;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string plain = everything();
  if (count > 1) ::setenv("LOCPATH", arguments[1], 1);
  for (const char* name : {"de_DE.UTF-8", "fa_IR.UTF-8", "tr_TR.UTF-8"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) {
      report(std::string("not on this machine: ") + name);
      continue;
    }
    check(differences(plain, everything()) == 0, std::string("the locale ") + name);
#if !defined(TRELVON_TESTS_SANITIZED)  // glibc's newlocale leaks its copy of LOCPATH
    std::locale::global(std::locale(name));
    check(differences(plain, everything()) == 0, std::string("the global locale ") + name);
    std::locale::global(std::locale::classic());
#endif
    std::setlocale(LC_ALL, "C");
    report(name);
  }
  std::locale::global(std::locale(std::locale::classic(), new Grouping));
  check(differences(plain, everything()) == 0, "a global locale with grouping");
  std::locale::global(std::locale::classic());

#if defined(__SSE2__)
  for (const unsigned flags :
       {_MM_FLUSH_ZERO_ON, _MM_DENORMALS_ZERO_ON, _MM_FLUSH_ZERO_ON | _MM_DENORMALS_ZERO_ON}) {
    const unsigned before = _mm_getcsr();
    _mm_setcsr(before | flags);
    const std::size_t length = everything().size();
    _mm_setcsr(before);
    report("subnormals flushed, " + std::to_string(flags) + ": " + std::to_string(length) +
           " bytes");
    check(differences(plain, everything()) == 0, "after subnormals were flushed");
  }
#endif

  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    const std::size_t length = everything().size();
    std::fesetround(FE_TONEAREST);
    report("rounding mode " + std::to_string(mode) + ": " + std::to_string(length) + " bytes");
    check(differences(plain, everything()) == 0, "after another rounding mode");
  }

  setsErrno = false;
  check(differences(plain, everything()) == 0, "a C library that sets no errno");
  report(std::to_string(plain.size()) + " bytes compared");
  return verdict();
}
