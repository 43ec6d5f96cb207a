/// The sample as a folder of schema files and as a bundle in a file. The loading of the folder
/// fails from the opening of a file on: the standard library's walk over folders, which comes
/// before, may end the process where an allocation of its own fails.
#pragma once

#include "tests/robustness/Operations.h"
#include "tests/support/Build.h"
#include "tests/support/FolderTree.h"

class FileLoads {
 public:
#if defined(TRELVON_TESTS_SANITIZED)
  static constexpr bool folderCanFail = false;  // the sanitizer opens files itself
#else
  static constexpr bool folderCanFail = true;
#endif

  FileLoads();

  Operation folder() const;
  Operation bundle() const;
  Operation missingBundle() const;

 private:
  FolderTree tree_;
};
