/// Every field of a record in one line, fields parted by tabs, doubles by their bits: two records
/// that are described alike are alike. The units of a symbol or quantity are copies; they are
/// described by their type ids, see `copiesOf`.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <map>
#include <string>
#include <vector>

namespace Units {

std::string bitsOf(double number);
std::string describe(const std::map<std::string, int>& powers);

std::string describe(const Dimension& dimension);
std::string describe(const Factor& factor);
std::string describe(const Unit& unit);
std::string describe(const Symbol& symbol);
std::string describe(const Quantity& quantity);

/// By type id, all records of the engine.
std::map<std::string, std::string> describeAll(const UnitsEngine& engine);

/// The units that symbols and quantities of the engine hold.
std::vector<Unit> copiesOf(const UnitsEngine& engine);

}  // namespace Units
