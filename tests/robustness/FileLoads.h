/// The sample as a folder of schema files and as a bundle in a file. Allocations of the folder load
/// fail only after a file is opened: before that the standard library walks over folders, which may
/// end the process where one of its own allocations fails.
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
  Operation bundle(const std::string& name = "bundle") const;

 private:
  FolderTree tree_;
};
