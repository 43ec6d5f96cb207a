#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The text of an index of a bundle, which makes it possible to load a few units without the rest:
/// the program may be started for one number at a time. The first line has the size of the bundle;
/// then come, in byte order,
///
///   name<TAB>NAME<TAB>TYPE ID                 NAME means this unit and no other
///   unit<TAB>TYPE ID<TAB>OFFSET:SIZE ...      where the definitions lie that the unit needs
///
/// Names and type ids with a tab or a line feed are left out.
///
/// @param bundle  its bytes.
/// @throws Failure, ValidationException  the definitions of the bundle cannot be built.
std::string indexOfBundle(const std::string& path, std::string_view bundle);

/// An engine with some units of a bundle and what they need.
struct SomeUnits {
  std::unique_ptr<Units::UnitsEngine> engine;
  std::map<std::string, std::string> typeIds;  // by name
};

/// Loads the units of some names by an index.
/// @return  without an engine if the index cannot tell: it is missing or is not that of the bundle,
///          or does not have one of the names.
SomeUnits loadByIndex(const std::string& indexPath, const std::string& bundlePath,
                      const std::vector<std::string>& names);

}  // namespace tool
