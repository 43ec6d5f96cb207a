/// A small engine of every kind of definition, and all that an engine can be asked about itself.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using Engine = std::unique_ptr<Units::UnitsEngine>;

/// Schema texts; ' stands for ".
std::string quoted(std::string text);
std::string schema(const std::string& typeId, const std::string& kind,
                   const std::string& constants);

/// The constants that every unit has.
inline const std::string named = "{'id':'name','value':'n'},{'id':'unitSystem','value':'Metric'}";

/// Definitions of every kind that rest on one another.
const std::vector<std::string>& sampleSchemas();
const std::vector<std::string>& sampleTypeIds();

std::string bundleOf(const std::vector<std::string>& texts);
inline std::string sampleBundle() { return bundleOf(sampleSchemas()); }

Engine makeEngine();                         ///< Empty.
void addSample(Units::UnitsEngine& engine);  ///< All of `sampleSchemas`, pending.
Engine sampleEngine();                       ///< With `sampleSchemas` built.

/// Everything stored, by listing, definition and dependencies, and which of `sampleTypeIds`, "new"
/// and "waiting" are taken.
std::string describe(const Units::UnitsEngine& engine);

/// What an action gives, or the class and message of what it throws. Lets std::bad_alloc pass.
template <class Action>
std::string outcome(const Action& action) {
  try {
    return action();
  } catch (const Units::ValidationException& error) {
    return std::string("ValidationException: ") + error.what();
  } catch (const Units::ParseException& error) {
    return std::string("ParseException: ") + error.what();
  } catch (const std::logic_error& error) {
    return std::string("logic_error: ") + error.what();
  }
}

/// A double to the bit.
std::string bits(double value);

template <class Map>
std::string keys(const Map& map) {
  std::string all;
  for (const auto& entry : map) all += entry.first + " ";
  return all;
}
