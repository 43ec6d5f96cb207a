#pragma once

#include <string>
#include <vector>

namespace Schemas {

/// Something below a folder that a report must mention.
struct FolderEntry {
  enum class Kind {
    SchemaFile,    // loaders read it
    TopFile,       // it would be read in a subfolder
    OtherName,     // it would be read if its extension were exact
    LinkedFolder,  // loaders do not follow it
    DeadLink,      // named as a schema file
    NoStatus,      // loaders stop here
    Unlisted,      // a folder that cannot be listed, or not to its end
  };

  std::string path;
  Kind kind;
  bool isLink = false;
  std::string problem;  // of the system, for the last two
};

/// Walks through a folder as the folder loader does, but continues where that one stops with an
/// error.
///
/// @return  in byte order of paths.
std::vector<FolderEntry> walkFolder(const std::string& folder);

}  // namespace Schemas
