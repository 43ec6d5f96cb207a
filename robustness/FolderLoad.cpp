#include "robustness/FolderLoad.h"

#include <dirent.h>
#include <dlfcn.h>
#include <stdlib.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "robustness/Heap.h"

#if !defined(TRELVON_ROBUSTNESS_SANITIZED)

extern "C" {

std::FILE* fopen(const char* path, const char* mode) {
  using Open = std::FILE*(const char*, const char*);
  static Open* const open = reinterpret_cast<Open*>(::dlsym(RTLD_NEXT, "fopen"));
  std::FILE* const file = open(path, mode);
  heap::pause(false);
  return file;
}

dirent* readdir(DIR* folder) {
  using Read = dirent*(DIR*);
  static Read* const read = reinterpret_cast<Read*>(::dlsym(RTLD_NEXT, "readdir"));
  heap::pause(true);
  return read(folder);
}

}  // extern "C"

#endif

FolderLoad::FolderLoad() {
  std::string pattern = std::filesystem::temp_directory_path() / "trelvon-XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder to load from");
  root_ = pattern;
  std::filesystem::create_directory(root_ / "sub");
  int number = 0;
  for (const std::string& text : sampleSchemas())
    std::ofstream(root_ / "sub" / (std::to_string(++number) + ".json")) << text;
}

FolderLoad::~FolderLoad() { std::filesystem::remove_all(root_); }

Operation FolderLoad::operation() const {
  Operation load;
  load.name = "addDefinitionsFromFolder, each file";
  load.start = makeEngine;
  load.run = [root = root_.string()](Units::UnitsEngine& engine) {
    Schemas::SchemaUtility::addDefinitionsFromFolder(root, engine);
    return std::string();
  };
  load.leavesPending = true;
  load.startsPaused = true;
  return load;
}
