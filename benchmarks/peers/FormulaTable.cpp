#include "benchmarks/peers/FormulaTable.h"

namespace peers {

// 7 to 200 characters long: plain numbers, sums of lengths, and typical engineering formulas.
const std::array<Formula, 32> formulas = {{
    {"2.5 * 4", nullptr, nullptr},
    {"12.5 ft", "meter", "m"},
    {"(1 + 2) / 8", nullptr, nullptr},
    {"2 ft + 3 in", "meter", "m"},
    {"3.75 kg + 250 g", "kilogram", "kg"},
    {"sqrt(16) * 2.25", nullptr, nullptr},
    {"1.5 m * 2.25 m", "squareMeter", "m^2"},
    {"90 km / 1.5 h", "meterPerSecond", "m/s"},
    {"sqrt(2 m^2 * 8 m^2)", "squareMeter", "m^2"},
    {"(2.5 m)^3 / (5 min)", "cubicMeterPerSecond", "m^3/s"},
    {"12 mm + 3.5 cm - 0.004 m", "meter", "m"},
    {"3 kN / (0.25 m * 0.4 m)", "pascal", "Pa"},
    {"(12.5 + 3) * 2 / 0.7 - 1e-3", nullptr, nullptr},
    {"1.5 kN * 2 m / 3 + 4 N * 1 m", "newtonMeter", "N*m"},
    {"sin(0.5) * 10 kg * 9.80665 m / 1 s^2", "newton", "N"},
    {"2 * (3 ft + 6 in) + 2 * (4 ft + 3 in)", "foot", "ft"},
    {"80 kg / ((1.78 m) * (1.78 m)) * 1 m^2", "kilogram", "kg"},
    {"0.5 * 1200 kg * (25 m / 1 s) ^ 2 / 1000", "joule", "J"},
    {"exp(-0.35) * 120 W + (1 - exp(-0.35)) * 80 W", "watt", "W"},
    {"4 * 3.14159265 * (6.5 cm)^2 * 0.003 m * 7850 kg / 1 m^3", "kilogram", "kg"},
    {"230 V * 16 A * 0.95 * 8 h / 1000 + 1.2 kW * 30 min", "joule", "J"},
    {"(101325 Pa + 1000 kg/m^3 * 9.80665 m/s^2 * 12 m) / 1000", "kilopascal", "kPa"},
    {"(1.25 * (3.5 kN/m) + 1.5 * (2.0 kN/m)) * (6 m)^2 / 8", "newtonMeter", "N*m"},
    {"0.5 * 1.2 kg/m^3 * (30 m/s)^2 * 2.2 m^2 * 0.3 + 0.012 * 1500 kg * 9.80665 m/s^2", "newton",
     "N"},
    {"5 * (6 kN/m) * (4500 mm)^4 / (384 * (210000 N/mm^2) * (8356 cm^4))", "millimeter", "mm"},
    {"sqrt((12 m)^2 + (5 m)^2) + sqrt((3 ft)^2 + (4 ft)^2) + sqrt((8 in)^2 + (15 in)^2)", "meter",
     "m"},
    {"(2.5 m * 3.2 m - 2 * 0.9 m * 2.1 m - 3 * 1.2 m * 1.4 m) * 0.35 m + 1.75 m^2 * 24 cm",
     "cubicMeter", "m^3"},
    {"((3.2 - 1.1) * (4.7 + 2.6) / (1.9 * 0.8) + 5.5 ^ 2 - sqrt(42.25)) * ((7 - 2.5) / 3 + 1) - "
     "17.25",
     nullptr, nullptr},
    {"1 m + 2 m + 3 m + 4 m + 5 cm + 6 cm + 7 cm + 8 cm + 9 mm + 10 mm + 11 mm + 12 mm + 1 ft + 2 "
     "ft + "
     "3 in + 4 in",
     "meter", "m"},
    {"(0.42 * 4186 J/(1 kg) * (18.5 kg) * (62 - 21.5) + 0.24 * 900 J/(1 kg) * (3.2 kg) * (62 - "
     "21.5)) "
     "/ (2200 J / 1 s) / 0.92",
     "second", "s"},
    {"(1.35 * (25 kN/m^3 * 0.2 m + 1.5 kN/m^2) + 1.5 * 3.0 kN/m^2) * 5.4 m * (7.2 m)^2 / 8 "
     "+ 1.35 * (25 kN/m^3 * 0.3 m * 0.4 m) * (7.2 m)^2 / 8",
     "newtonMeter", "N*m"},
    {"(12.5 ft + 3.25 in) * (8 ft + 6 in) * 2 + (10 ft + 9 in) * (8 ft + 6 in) * 2 "
     "- 3 * (3 ft + 4 in) * (4 ft + 2 in) - 2 * (2 ft + 8 in) * (6 ft + 8 in) "
     "+ 4.5 * (1 ft + 6 in) * (2 ft + 3 in) + 2 ft * 3 ft",
     "squareFoot", "ft^2"},
}};

}  // namespace peers
