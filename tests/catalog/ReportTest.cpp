#include <TrelvonUnits/SchemaReport.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

std::string reportOn(const std::vector<std::string>& packs, bool lint) {
  std::vector<std::string> folders;
  for (const std::string& pack : packs) folders.push_back(TRELVON_SCHEMAS_DIR "/" + pack);
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const auto report = Schemas::loadFolders(folders, *engine, {lint, false, true, {}});
  return report.getFindings().empty() ? "" : report.toText();
}

TEST(Catalog, HasNoFindings) {
  EXPECT_EQ(reportOn({"core", "symbols", "aliases", "legacy", "gauge", "cgs"}, true), "");
}

/// Of whole loads lints ask more than a single pack has.
TEST(Catalog, HasPacksThatNeedOnlyTheCore) {
  for (const char* const pack : {"symbols", "aliases", "legacy", "gauge", "cgs"})
    EXPECT_EQ(reportOn({"core", pack}, false), "");
}

}  // namespace
