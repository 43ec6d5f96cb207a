/// A folder of schema files, whose loading fails from the reading of an opened file on: the
/// standard library's walk over folders, which has it opened, may end the process where an
/// allocation of its own fails.
#pragma once

#include <filesystem>

#include "robustness/Build.h"
#include "robustness/Operations.h"

class FolderLoad {
 public:
#if defined(TRELVON_ROBUSTNESS_SANITIZED)
  static constexpr bool canFail = false;  // the sanitizer opens files itself
#else
  static constexpr bool canFail = true;
#endif

  FolderLoad();
  ~FolderLoad();
  FolderLoad(const FolderLoad&) = delete;

  Operation operation() const;

 private:
  std::filesystem::path root_;
};
