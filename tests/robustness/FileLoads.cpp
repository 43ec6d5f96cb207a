#include "tests/robustness/FileLoads.h"

#include "tests/support/Heap.h"

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

#if !defined(TRELVON_TESTS_SANITIZED)

extern "C" {

int fstat(int descriptor, struct stat* status) noexcept {
  using Ask = int(int, struct stat*);
  heap::pause(true);  // where it is first found
  static Ask* const ask = reinterpret_cast<Ask*>(::dlsym(RTLD_NEXT, "fstat"));
  heap::pause(false);
  return ask(descriptor, status);
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
  std::vector<std::string> texts = sampleSchemas();
  for (std::size_t number = 0; number < texts.size(); ++number)
    tree_.write("sub/" + std::to_string(number) + ".json", texts[number]);
  texts.back().insert(0, 100000, ' ');  // longer than what is read at a time
  tree_.write("bundle", bundleOf(texts));
}

Operation FileLoads::folder() const {
  Operation load =
      loading("addDefinitionsFromFolder, each file", [root = tree_.path().string()](auto& e) {
        Schemas::SchemaUtility::addDefinitionsFromFolder(root, e);
      });
  load.startsPaused = true;
  return load;
}

Operation FileLoads::bundle(const std::string& name) const {
  return loading("addDefinitionsFromFile of " + name, [file = tree_.path(name).string()](auto& e) {
    Schemas::SchemaBundle::addDefinitionsFromFile(file, e);
  });
}
