#include "tests/support/FolderTree.h"
#include "tests/support/Heap.h"
#include "tests/support/Messages.h"
#include "tests/support/SchemaTexts.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>

namespace Schemas {
namespace {

using std::string_literals::operator""s;

const std::string header = "TrelvonUnits-schema-bundle-1\n";

TEST(SchemaBundle, RefusesFilesThatAreNone) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const FolderTree folder;
  folder.write("bundle", header);
  folder.write("sparse", "{}");
  std::filesystem::resize_file(folder.path("sparse"), std::uintmax_t{5} << 30);
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0644), 0);  // which nobody writes to
  const std::pair<std::string, const char*> rows[] = {
      {folder.path("none"), "failed to open schema bundle"},
      {folder.path("bundle").string() + "\0/none"s, "failed to open schema bundle"},
      {folder.path(), "failed to read schema bundle"},
      {folder.path("pipe"), "not a schema bundle"},
      {"/dev/zero", "not a schema bundle"},
      {folder.path("sparse"), "not a schema bundle"}};
  const long before = heap::liveBytes();
  heap::resetPeak();
  for (const auto& [file, message] : rows)
    EXPECT_EQ(messageOf<std::logic_error>(
                  [&, path = file] { SchemaBundle::addDefinitionsFromFile(path, *engine); }),
              message)
        << file;
  EXPECT_LT(heap::peakBytes() - before, 1 << 20);
}

TEST(SchemaBundle, IsReadFromAPipeWhoseWriterIsSlow) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  std::thread writer([end = ends[1]] {
    for (const std::string& piece :
         {header.substr(0, 5), header.substr(5) + dimension("a"), "\0"s}) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      EXPECT_EQ(::write(end, piece.data(), piece.size()), static_cast<ssize_t>(piece.size()));
    }
    ::close(end);
  });
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  SchemaBundle::addDefinitionsFromFile("/dev/fd/" + std::to_string(ends[0]), *engine);
  writer.join();
  ::close(ends[0]);
  EXPECT_TRUE(engine->isRegistered("a"));
}

}  // namespace
}  // namespace Schemas
