#include "tools/trelvon/Codes.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/ShownText.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace tool {

Units::UnitCodes readCodes(const std::string& path) {
  try {
    return Units::UnitCodes::fromText(readFile(path));
  } catch (const std::logic_error& error) {
    throw Failure(Status::Files, shown(path) + ": " + shown(error.what()));
  }
}

Units::UnitCodes codesOfFolders(const std::vector<std::string>& folders) {
  std::vector<Units::UnitCodes> all(1);
  for (const std::string& folder : folders) {
    const std::string path = (std::filesystem::path(folder) / "codes.json").string();
    std::error_code unknown;
    if (std::filesystem::exists(path, unknown)) all.push_back(all.back().with(readCodes(path)));
  }
  return all.back();
}

}  // namespace tool
