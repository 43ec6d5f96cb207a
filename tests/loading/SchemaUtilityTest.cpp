#include <TrelvonUnits/SchemaUtility.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <set>
#include <utility>

#include "tests/loading/FolderTree.h"
#include "tests/loading/RecordingEngine.h"
#include "tests/support/Messages.h"

using namespace std::string_literals;

namespace fs = std::filesystem;

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

TEST(FolderLoading, ReadsExactlyTheSchemaFilesBelowSubfolders) {
  const FolderTree tree;
  const FolderTree elsewhere;
  for (const char* read : {"sub/b.json", "sub/a.json", "sub/e.x.json", "sub/ .json", "sub/..json",
                           "sub/deep/er/f.json", "sub/folder.json/g.json", ".hidden/h.json"})
    tree.write(read, read);
  for (const char* passedOver : {"a.json", "sub/c.JSON", "sub/.json", "sub/readme.txt", "sub/json",
                                 "sub/d.json.bak", "sub/d.json~", "readme.txt"})
    tree.write(passedOver, passedOver);
  elsewhere.write("l.json", "behind a link to a file");
  elsewhere.write("sub/m.json", "behind a link to a folder");
  fs::create_symlink(elsewhere.path("l.json"), tree.path("sub/link.json"));
  fs::create_symlink(elsewhere.path("l.json"), tree.path("direct.json"));
  fs::create_symlink(elsewhere.path("nothing"), tree.path("sub/dangling.json"));
  fs::create_directory_symlink(elsewhere.path(), tree.path("sub/links"));
  fs::create_directory_symlink(tree.path(), elsewhere.path("root"));
  ASSERT_EQ(::mkfifo(tree.path("sub/pipe.json").c_str(), 0644), 0);  // opening it would block

  const std::multiset<std::string> expected = {"sub/b.json",
                                               "sub/a.json",
                                               "sub/e.x.json",
                                               "sub/ .json",
                                               "sub/..json",
                                               "sub/deep/er/f.json",
                                               "sub/folder.json/g.json",
                                               ".hidden/h.json",
                                               "behind a link to a file"};
  const std::string root = tree.path();
  for (const std::string& folder : {root, root + "/", root + "//", root + "/.", root + "/sub/..",
                                    root + "/./sub/../", elsewhere.path("root").string()})
    EXPECT_EQ(textsBelow(folder), expected) << folder;
}

TEST(FolderLoading, ReadsFilesUpToTheirFirstNul) {
  const std::string chunk(65536, 'x');
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"{}\r\n\x1A \xFF", "{}\r\n\x1A \xFF"},
      {"\0{}"s, ""},
      {"{}\0{}\0"s, "{}"},
      {chunk.substr(1), chunk.substr(1)},
      {chunk, chunk},
      {chunk + "y", chunk + "y"},
      {chunk + chunk, chunk + chunk},
      {chunk.substr(1) + "\0z"s, chunk.substr(1)},
      {chunk + "\0z"s, chunk},
      {chunk + "y\0"s + chunk + chunk, chunk + "y"},
      {chunk + chunk + chunk + "end", chunk + chunk + chunk + "end"}};
  for (const auto& [bytes, text] : rows) {
    const FolderTree tree;
    tree.write("sub/a.json", bytes);
    EXPECT_EQ(textsBelow(tree.path()), std::multiset<std::string>{text}) << bytes.size();
  }
}

TEST(FolderLoading, FindsNoFolderWhereThereIsNone) {
  const FolderTree tree;
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

TEST(FolderLoading, BuildsOnceWhateverItFinds) {
  const FolderTree tree;
  EXPECT_TRUE(textsBelow(tree.path()).empty());
  tree.write("direct.json", "{}");
  EXPECT_TRUE(textsBelow(tree.path()).empty());
}

TEST(FolderLoading, DropsNothingButRefusedSchemas) {
  const FolderTree tree;
  for (const char* name : {"a/1.json", "a/2.json", "b/3.json"}) tree.write(name, name);
  const long filesBefore = openFiles();

  RecordingEngine engine;
  engine.onDefinition = [&] {
    for (const auto& handle : fs::directory_iterator("/proc/self/fd")) {
      std::error_code closed;  // the handle that lists them
      EXPECT_NE(fs::read_symlink(handle, closed).extension(), ".json");
    }
    throw Units::ValidationException("refused");
  };
  load(tree.path(), engine);
  EXPECT_EQ(engine.texts.size(), 3u);
  EXPECT_EQ(engine.builds, 1);
  EXPECT_EQ(openFiles(), filesBefore);

  engine.builds = 0;
  engine.onBuild = [] { throw Units::ValidationException("the batch"); };
  EXPECT_EQ(messageOf<Units::ValidationException>([&] { load(tree.path(), engine); }), "the batch");
  EXPECT_EQ(engine.builds, 1);

  engine.builds = 0;
  engine.texts.clear();
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

TEST(FolderLoading, FillsAnEngineInAnyOrder) {
  const auto factor = [](const std::string& typeId, const std::string& base,
                         const std::string& more) {
    return "{\"typeid\":\"" + typeId + "\",\"inherits\":[\"" + base +
           "\"],\"constants\":[{\"id\":\"factor\",\"value\":2}" + more + "]}";
  };
  const std::string plain = "x:factor-1.0.0";
  const std::string parents = ",{\"id\":\"parentFactors\",\"value\":{\"z\":1}}";
  const FolderTree tree;
  tree.write("a/derived.json", factor("a", "x:factor.derived-1.0.0", parents));
  tree.write("a/z.json", factor("z", plain, ""));
  tree.write("b/again.json", factor("z", plain, ""));
  tree.write("b/bad.json", "no JSON");
  tree.write("b/unknown.json", factor("u", "x:nothing-1.0.0", ""));
  tree.write("direct.json", factor("d", plain, ""));

  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  engine->addDefinition(factor("pending", plain, ""));
  Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), *engine);
  std::string stored;
  for (const auto& [typeId, record] : engine->getFactors()) stored += typeId + " ";
  EXPECT_EQ(stored, "a pending z ");
  EXPECT_FALSE(engine->isRegistered("u") || engine->isRegistered("d"));

  tree.write("c/orphan.json", factor("o", "x:factor.derived-1.0.0",
                                     ",{\"id\":\"parentFactors\",\"value\":{\"none\":1}}"));
  EXPECT_THROW(Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), *engine),
               Units::ValidationException);
  EXPECT_EQ(engine->getFactors().size(), 3u);
  EXPECT_FALSE(engine->isRegistered("o"));
}

TEST(FolderLoading, AsksForEveryStatusFirst) {
  // Not the names of schema files, and one of them where no file is read.
  for (const char* name : {"loop", "sub/loop.txt"}) {
    const FolderTree tree;
    tree.write("sub/a.json", "{}");
    fs::create_symlink(tree.path(name), tree.path(name));
    RecordingEngine engine;
    try {
      load(tree.path(), engine);
      ADD_FAILURE() << "passed over " << name;
    } catch (const fs::filesystem_error& error) {
      EXPECT_EQ(error.code(), std::errc::too_many_symbolic_link_levels);
      EXPECT_EQ(error.path1(), tree.path(name));
      EXPECT_NE(std::string(error.what()).find(" status: "), std::string::npos) << error.what();
    }
    EXPECT_EQ(engine.builds, 0);
  }
  const FolderTree tree;
  fs::create_symlink(tree.path("loop"), tree.path("loop"));
  EXPECT_NE(failureOf(tree.path("loop")).find(" exists: "), std::string::npos);
  EXPECT_NE(failureOf(tree.path(std::string(300, 'x'))).find(" exists: "), std::string::npos);
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

TEST(FolderLoading, EndsWhereItHasNoRight) {
  struct Row {
    const char* locked;  // without any right
    const char* folder;
    const char* failure;
  };
  const Row rows[] = {
      {"top/sub/a.json", "top", "failed to open schema file"},
      {"top/sub/a.txt", "top", "read 1"},
      {"top/direct.json", "top", "read 1"},
      {"top/sub", "top", " recursive_directory_iterator::operator++: "},
      {"top", "top", " recursive_directory_iterator::recursive_directory_iterator: "},
      {"top", "top/sub", " exists: "}};
  for (const Row& row : rows) {
    const FolderTree tree;
    for (const char* name : {"top/direct.json", "top/sub/a.txt", "top/sub/a.json"})
      tree.write(name, "{}");
    fs::permissions(tree.path(row.locked), fs::perms::none);
    const std::string said = asNobody([&] { return failureOf(tree.path(row.folder)); });
    fs::permissions(tree.path(row.locked), fs::perms(0755));
    EXPECT_NE(said.find(row.failure), std::string::npos) << row.locked << ": " << said;
  }
}

}  // namespace
