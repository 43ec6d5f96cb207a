#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The schema files that the folder loader reads, in byte order of their paths: those named *.json
/// at any depth below the top level.
/// @throws Failure  it is no folder, or it cannot be listed.
std::vector<std::string> schemaFiles(const std::string& folder);

/// @throws Failure  the file cannot be read.
std::string readFile(const std::string& path);

/// @throws Failure  there is something at the path.
void refuseToReplace(const std::string& path);

/// Writes a file beside its place and then renames it, so that it appears whole or not at all. The
/// folder is made if it is missing. A device or pipe is written into.
/// @param mayReplace  whether an older file may stand in its place.
/// @throws Failure  it cannot be written, or it is there already.
void writeFile(const std::string& given, std::string_view content, bool mayReplace);

/// Calls a function for each text of a bundle.
/// @throws Failure  it is no bundle.
void forEachBundled(const std::string& path, std::string_view bundle,
                    const std::function<void(std::string_view)>& action);

}  // namespace tool
