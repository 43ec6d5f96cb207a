#pragma once

#include <TrelvonUnits/UnitCodes.h>

#include <string>
#include <vector>

namespace tool {

/// The codes of a mapping file.
/// @throws Failure  it cannot be read, or is faulty.
Units::UnitCodes readCodes(const std::string& path);

/// The codes of the folders that have a mapping file, which is `codes.json` directly in them.
/// @throws Failure  one of them cannot be read, or is faulty.
Units::UnitCodes codesOfFolders(const std::vector<std::string>& folders);

}  // namespace tool
