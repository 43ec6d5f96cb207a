#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The schema files that the folder loader reads, in byte order of their paths: those named *.json
/// at any depth below the top level.
/// @throws Failure  it is not a folder, or it cannot be listed.
std::vector<std::string> schemaFiles(const std::string& folder);

/// @throws Failure  the file cannot be read.
std::string readFile(const std::string& path);

/// @throws Failure  something exists at the path.
void refuseToReplace(const std::string& path);

/// Writes a file under another name and then renames it, so that it appears complete or not at all.
/// Creates the folder if it is missing. Writes directly to a device or pipe.
/// @param mayReplace  whether an existing file may be replaced.
/// @throws Failure  it cannot be written, or it already exists.
void writeFile(const std::string& given, std::string_view content, bool mayReplace);

/// Calls a function for each text of a bundle.
/// @throws Failure  it is no bundle.
void forEachBundled(const std::string& path, std::string_view bundle,
                    const std::function<void(std::string_view)>& action);

}  // namespace tool
