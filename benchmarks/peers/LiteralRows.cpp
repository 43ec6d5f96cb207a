/// Parses a literal with its unit. No public operation does only that, so this calls the module
/// `text` directly.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"
#include "model/SymbolTexts.h"
#include "text/ValueText.h"

#include <array>

namespace peers {

namespace {

struct Literal {
  const char* text;
  double value;
  const char* unit;  // in the spelling of UDUNITS-2
};

constexpr std::array<Literal, 12> literals = {{{"12.5 kg", 12.5, "kg"},
                                               {"3 m", 3, "m"},
                                               {"250 mm", 250, "mm"},
                                               {"1e3 Pa", 1000, "Pa"},
                                               {"0.75 kN", 0.75, "kN"},
                                               {"101.325 kPa", 101.325, "kPa"},
                                               {"7.25 W", 7.25, "W"},
                                               {"16 A", 16, "A"},
                                               {"2.75 m/s", 2.75, "m/s"},
                                               {"998.2 kg/m3", 998.2, "kg/m3"},
                                               {"4.2e-3 V", 4.2e-3, "V"},
                                               {"1500 J", 1500, "J"}}};

struct Symbols {
  Units::RecordStore<Units::Symbol> records{catalog().getSymbols()};
  Units::SymbolTexts texts{records};
};

double read(const char* literal, const Symbols& symbols) {
  double value = 0;
  const Units::Symbol* symbol = nullptr;
  check(Units::parseValueText(literal, &value, &symbol, symbols.texts) && symbol != nullptr,
        literal);
  return value;
}

Sides againstUdunits() {
  const auto udunits = std::make_shared<Udunits>();
  const auto symbols = std::make_shared<const Symbols>();
  for (const Literal& literal : literals) {
    check(read(literal.text, *symbols) == literal.value, literal.text);
    checkNear(udunits->valueOf(literal.text, literal.unit), literal.value, 1e-12, literal.text);
  }
  return {{[symbols] {
             for (const Literal& literal : literals) keep(read(literal.text, *symbols));
             return Leftover();
           },
           literals.size()},
          {[udunits] {
             for (const Literal& literal : literals) udunits->read(literal.text);
             return Leftover();
           },
           literals.size()}};
}

}  // namespace

std::vector<Row> allRows() {
  return {{"parsing a literal with its unit", "UDUNITS-2", Bound::Faster, 2.5, 4, againstUdunits}};
}

}  // namespace peers
