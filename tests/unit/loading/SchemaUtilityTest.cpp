#include "json/JSON.h"
#include "loading/AddOrSkip.h"
#include "tests/support/FolderTree.h"
#include "tests/support/Heap.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Messages.h"

#include <TrelvonUnits/SchemaUtility.h>

#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdarg>
#include <iterator>
#include <new>
#include <set>
#include <utility>
using namespace std::string_literals;

namespace fs = std::filesystem;

namespace {

std::function<void()> beforeOpening;  // of the next file

}  // namespace

/// As the C library has it, but with another program's work in between.
extern "C" int open(const char* path, int flags, ...) {
  if (beforeOpening) std::exchange(beforeOpening, nullptr)();
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return ::openat(AT_FDCWD, path, flags, mode);
}

namespace {

using Units::RecordingEngine;

void load(const std::string& folder, RecordingEngine& engine) {
  Schemas::SchemaUtility::addDefinitionsFromFolder(folder, engine);
}

std::multiset<std::string> textsBelow(const std::string& folder) {
  RecordingEngine engine;
  load(folder, engine);
  EXPECT_EQ(engine.builds, 1);
  return {engine.texts.begin(), engine.texts.end()};
}

long openFiles() {
  return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

/// What a load that fails says, for processes that can only send text.
std::string failureOf(const std::string& folder) {
  RecordingEngine engine;
  try {
    load(folder, engine);
  } catch (const fs::filesystem_error& error) {
    return error.what();
  } catch (const std::logic_error& error) {
    return error.what();
  }
  return "read " + std::to_string(engine.texts.size());
}

TEST(FolderLoading, TakesAnySpellingOfAFolder) {
  const FolderTree tree, elsewhere;
  tree.write("sub/folder.json/a.json", "{}");
  fs::create_directory_symlink(tree.path(), elsewhere.path("root"));
  const std::string root = tree.path();
  for (const std::string& folder :
       {root, root + "//", root + "/./sub/..", elsewhere.path("root").string()})
    EXPECT_EQ(textsBelow(folder), std::multiset<std::string>{"{}"}) << folder;
}

TEST(FolderLoading, ReadsFilesUpToTheirFirstNul) {
  const std::string chunk(65536, 'x');
  for (const std::string& text :
       {""s, "{}\r\n\x1A \xFF"s, chunk.substr(1), chunk, chunk + "y", chunk + chunk + "end"})
    for (const std::string& behind : {""s, "\0"s, "\0{}"s, "\0"s + chunk}) {
      const FolderTree tree;
      tree.write("sub/a.json", text + behind);
      EXPECT_EQ(textsBelow(tree.path()), std::multiset<std::string>{text}) << text.size();
    }
}

TEST(FolderLoading, TakesNoMemoryForWhatItDoesNotRead) {
  static_assert(Schemas::longestSchemaText == JSON::longestText);
  const FolderTree tree;
  tree.write("sub/a.json", "{}");
  fs::resize_file(tree.path("sub/a.json"), std::uintmax_t{5} << 30);
  const long before = heap::liveBytes();
  heap::resetPeak();
  EXPECT_EQ(textsBelow(tree.path()), std::multiset<std::string>{"{}"});
  EXPECT_LT(heap::peakBytes() - before, 1 << 20);
}

TEST(FolderLoading, FindsNoFolderWhereThereIsNone) {
  const FolderTree tree;
  EXPECT_TRUE(textsBelow(tree.path()).empty());  // but builds once
  tree.write("sub/a.json", "{}");
  fs::create_symlink(tree.path("nothing"), tree.path("dangling"));
  const std::string root = tree.path();
  for (const std::string& folder : {""s, root + "/nothing", root + "/sub/a.json",
                                    root + "/dangling", root + "/sub/a.json/b", root + "\0/sub"s}) {
    RecordingEngine engine;
    EXPECT_EQ(messageOf<std::logic_error>([&] { load(folder, engine); }),
              "schema folder not found");
    EXPECT_EQ(engine.texts.size() + static_cast<std::size_t>(engine.builds), 0u);
  }
}

TEST(FolderLoading, DropsNothingButRefusedSchemas) {
  const FolderTree tree;
  for (const char* name : {"a/1.json", "a/2.json", "b/3.json"}) tree.write(name, name);
  const long filesBefore = openFiles();
  RecordingEngine engine;
  engine.onDefinition = [&] {
    EXPECT_EQ(openFiles(), filesBefore + 2);  // of the two folders; the file is closed by now
    throw Units::ValidationException("refused");
  };
  load(tree.path(), engine);
  EXPECT_EQ(engine.texts.size(), 3u);
  EXPECT_EQ(engine.builds, 1);
  engine.onBuild = [] { throw Units::ValidationException("the batch"); };
  EXPECT_EQ(messageOf<Units::ValidationException>([&] { load(tree.path(), engine); }), "the batch");

  engine = RecordingEngine();
  engine.onDefinition = [] { throw Units::UnrecognizedIdentifierException("passes"); };
  EXPECT_EQ(messageOf<Units::UnrecognizedIdentifierException>([&] { load(tree.path(), engine); }),
            "passes");
  engine.onDefinition = [] { throw std::bad_alloc(); };
  EXPECT_THROW(load(tree.path(), engine), std::bad_alloc);
  engine.onDefinition = [] { throw 1; };
  EXPECT_THROW(load(tree.path(), engine), int);
  EXPECT_EQ(engine.texts.size(), 3u);
  EXPECT_EQ(engine.builds, 0);
  EXPECT_EQ(openFiles(), filesBefore);
}

TEST(FolderLoading, AsksForEveryStatusFirst) {
  // Not the names of schema files, and one of them where no file is read.
  for (const char* name : {"loop", "sub/loop.txt"}) {
    const FolderTree tree;
    tree.write("sub/a.json", "{}");
    fs::create_symlink(tree.path(name), tree.path(name));
    const std::string said = failureOf(tree.path());
    EXPECT_NE(said.find(" status: "), std::string::npos) << said;
    EXPECT_NE(said.find("[" + tree.path(name).string() + "]"), std::string::npos) << said;
  }
  EXPECT_NE(failureOf(FolderTree().path(std::string(300, 'x'))).find(" exists: "),
            std::string::npos);
}

TEST(FolderLoading, EndsAtAFileThatBreaksOff) {
  // Regular and opened by its owner, but its first bytes can never be read.
  if (!fs::is_regular_file("/proc/self/mem")) GTEST_SKIP() << "This system has no such file.";
  const FolderTree tree;
  fs::create_directory(tree.path("sub"));
  fs::create_symlink("/proc/self/mem", tree.path("sub/a.json"));
  const long filesBefore = openFiles();
  RecordingEngine engine;
  EXPECT_EQ(messageOf<std::logic_error>([&] { load(tree.path(), engine); }),
            "failed to read schema file");
  EXPECT_EQ(engine.texts.size() + static_cast<std::size_t>(engine.builds), 0u);
  EXPECT_EQ(openFiles(), filesBefore);
}

TEST(FolderLoading, EndsAtAFileThatBecomesAPipe) {
  const FolderTree tree;
  tree.write("sub/a.json", "{}");
  beforeOpening = [file = tree.path("sub/a.json")] {
    fs::remove(file);
    EXPECT_EQ(::mkfifo(file.c_str(), 0644), 0);
  };
  EXPECT_EQ(failureOf(tree.path()), "failed to open schema file");
  EXPECT_FALSE(beforeOpening);
}

TEST(FolderLoading, EndsWhereItHasNoRight) {
  struct Row {
    const char* locked;
    const char* folder;
    const char* failure;
    fs::perms rights = fs::perms::none;
  };
  const Row rows[] = {
      {"top/sub/a.json", "top", "failed to open schema file"},
      {"top/sub/a.txt", "top", "read 1"},
      {"top/direct.json", "top", "read 1"},
      {"top/sub", "top", " recursive_directory_iterator::operator++: "},
      {"top/sub", "top", " status: ", fs::perms(0444)},  // listed, but not more
      {"top", "top", " recursive_directory_iterator::recursive_directory_iterator: "},
      {"top", "top/sub", " exists: "}};
  for (const Row& row : rows) {
    const FolderTree tree;
    for (const char* name : {"top/direct.json", "top/sub/a.txt", "top/sub/a.json"})
      tree.write(name, "{}");
    fs::permissions(tree.path(row.locked), row.rights);
    const std::string said = asNobody([&] { return failureOf(tree.path(row.folder)); });
    fs::permissions(tree.path(row.locked), fs::perms(0755));
    EXPECT_NE(said.find(row.failure), std::string::npos) << row.locked << ": " << said;
  }
}

}  // namespace
