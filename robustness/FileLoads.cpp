#include "robustness/FileLoads.h"

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
  heap::pause(true);  // where it is first found
  static Open* const open = reinterpret_cast<Open*>(::dlsym(RTLD_NEXT, "fopen"));
  heap::pause(false);
  return open(path, mode);
}

dirent* readdir(DIR* folder) {
  using Read = dirent*(DIR*);
  static Read* const read = reinterpret_cast<Read*>(::dlsym(RTLD_NEXT, "readdir"));
  heap::pause(true);
  return read(folder);
}

}  // extern "C"

#endif

FileLoads::FileLoads() {
  std::string pattern = std::filesystem::temp_directory_path() / "trelvon-XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder to load from");
  root_ = pattern;
  std::filesystem::create_directory(root_ / "sub");
  int number = 0;
  for (const std::string& text : sampleSchemas())
    std::ofstream(root_ / "sub" / (std::to_string(++number) + ".json")) << text;
  std::vector<std::string> texts = sampleSchemas();
  texts.back().insert(0, 100000, ' ');  // longer than what is read at a time
  std::ofstream(root_ / "bundle", std::ios::binary) << bundleOf(texts);
}

FileLoads::~FileLoads() { std::filesystem::remove_all(root_); }

Operation FileLoads::folder() const {
  Operation load = loading("addDefinitionsFromFolder, each file", [root = root_.string()](auto& e) {
    Schemas::SchemaUtility::addDefinitionsFromFolder(root, e);
  });
  load.startsPaused = true;
  return load;
}

Operation FileLoads::bundle() const {
  return loading("addDefinitionsFromFile", [file = (root_ / "bundle").string()](auto& e) {
    Schemas::SchemaBundle::addDefinitionsFromFile(file, e);
  });
}

Operation FileLoads::missingBundle() const {
  return loading("addDefinitionsFromFile, refused", [file = (root_ / "none").string()](auto& e) {
    Schemas::SchemaBundle::addDefinitionsFromFile(file, e);
  });
}
