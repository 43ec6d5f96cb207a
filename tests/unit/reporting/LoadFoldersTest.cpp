#include "tests/support/FolderTree.h"
#include "tests/support/Heap.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Messages.h"
#include "tests/support/SchemaTexts.h"

#include <TrelvonUnits/SchemaReport.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <utility>

namespace fs = std::filesystem;

namespace {

using namespace Schemas;
using Engine = std::unique_ptr<Units::UnitsEngine>;

Engine makeEngine() { return Engine(Units::CreateUnitsEngine()); }

/// What was found, and what became of the files, in short: "circle a/b.json; a/b.json left out".
std::string summary(const SchemaReport& report, const FolderTree& tree) {
  const std::size_t root = tree.path().string().size();
  std::string all;
  for (const Finding& finding : report.getFindings())
    all += finding.getId() + ' ' +
           (finding.getFile().empty() ? "-" : finding.getFile().substr(root)) + "; ";
  for (const FileReport& file : report.getFiles())
    if (file.getFate() != FileFate::Loaded)
      all += file.getPath().substr(root) + ' ' + std::to_string(static_cast<int>(file.getFate())) +
             "; ";
  return all;
}

struct Load {
  const char* name;
  std::map<std::string, std::string> files;
  ReportOptions options;
  const char* expected;
  std::set<std::string> stored;  // of a, b, c, d
};

ReportOptions leavingOut() { return {false, true, true, {}}; }

class Loads : public testing::TestWithParam<Load> {};

TEST_P(Loads, GiveAReportAndFillTheEngine) {
  const FolderTree tree;
  fs::create_directories(tree.path("1"));
  fs::create_directories(tree.path("2"));
  for (const auto& [file, text] : GetParam().files) tree.write(file, text);
  const Engine engine = makeEngine();
  engine->addDimension(Units::Dimension("before"));
  const SchemaReport report =
      loadFolders({tree.path("1"), tree.path("2")}, *engine, GetParam().options);
  EXPECT_EQ(summary(report, tree), GetParam().expected) << report.toText();
  for (const std::string id : {"a", "b", "c", "d"})
    EXPECT_EQ(engine->isRegistered(id), GetParam().stored.count(id) != 0) << id;
}

INSTANTIATE_TEST_SUITE_P(
    Reporting, Loads,
    testing::Values(
        Load{"Sound",
             {{"1/x/a.json", dimension("a")}, {"2/x/b.json", dimensional("b", "a")}},
             {false},
             "",
             {"a", "b"}},
        Load{"OneErrorLoadsNothing",
             {{"1/x/a.json", dimension("a")}, {"2/x/b.json", dimensional("b", "none")}},
             {false},
             "missing-reference 2/x/b.json; 1/x/a.json 1; 2/x/b.json 2; ",
             {}},
        Load{"TheRestIsLoaded",
             {{"1/x/a.json", dimension("a")}, {"2/x/b.json", dimensional("b", "none")}},
             leavingOut(),
             "missing-reference 2/x/b.json; 2/x/b.json 2; ",
             {"a"}},
        Load{"LaterFoldersAreNotKnown",
             {{"1/x/b.json", dimensional("b", "a")}, {"2/x/a.json", dimension("a")}},
             leavingOut(),
             "missing-reference 1/x/b.json; 1/x/b.json 2; ",
             {"a"}},
        Load{"TheFirstOfTwoClaimsCountsEvenIfItIsLeftOut",
             {{"1/x/1.json", factor("a", Ids{"none"})}, {"1/x/2.json", dimension("a")}},
             leavingOut(),
             "missing-reference 1/x/1.json; typeid-taken 1/x/2.json; 1/x/1.json 2; 1/x/2.json 3; ",
             {}},
        Load{"WhatIsLeftOutIsFreeForLaterFolders",
             {{"1/x/1.json", factor("a", Ids{"none"})}, {"2/x/2.json", dimension("a")}},
             leavingOut(),
             "missing-reference 1/x/1.json; 1/x/1.json 2; ",
             {"a"}},
        Load{"TakenByTheEngine",
             {{"1/x/1.json", dimension("before")}},
             leavingOut(),
             "typeid-taken 1/x/1.json; 1/x/1.json 3; ",
             {}},
        Load{"WrongKindInTheEngine",
             {{"1/x/1.json", factor("a", Ids{"before"})}},
             leavingOut(),
             "wrong-kind 1/x/1.json; 1/x/1.json 2; ",
             {}},
        Load{"CircleAndWhatNeedsIt",
             {{"1/x/a.json", factor("a", Ids{"b"})},
              {"1/x/b.json", factor("b", Ids{"c"})},
              {"1/x/c.json", factor("c", Ids{"b"})},
              {"1/x/d.json", factor("d", Ids{})}},
             leavingOut(),
             "circle 1/x/b.json; 1/x/a.json 2; 1/x/b.json 2; 1/x/c.json 2; ",
             {"d"}},
        Load{"CirclesThatTouch",
             {{"1/x/a.json", factor("a", Ids{"b"})},
              {"1/x/b.json", factor("b", Ids{"a", "c"})},
              {"1/x/c.json", factor("c", Ids{"b", "c"})}},
             leavingOut(),
             "circle 1/x/a.json; circle 1/x/b.json; circle 1/x/c.json; 1/x/a.json 2; 1/x/b.json 2; "
             "1/x/c.json 2; ",
             {}},
        Load{"AllowsWhatIsNotThere",
             {{"1/x/a.json",
               quoted("{'typeid':'a','inherits':[':dimension-1.'],'allow':['symbol-space']}")}},
             {},
             "unused-allowance 1/x/a.json; ",
             {"a"}},
        Load{"EachMissingReferenceOnce",
             {{"1/x/a.json", quantity("a", {"y", "z", "y"})}},
             leavingOut(),
             "missing-reference 1/x/a.json; missing-reference 1/x/a.json; "
             "1/x/a.json 2; ",
             {}},
        Load{"EndsWithTheFirstError",
             {{"1/x/a.json", dimension("a")}, {"1/x/b.json", "{"}, {"1/x/c.json", "["}},
             {true, true, false, {}},
             "json 1/x/b.json; 1/x/a.json 1; 1/x/b.json 3; 1/x/c.json 6; ",
             {}},
        Load{"EndsWithTheFirstReference",
             {{"1/x/a.json", dimensional("a", "y")},
              {"1/x/b.json", dimensional("b", "y")},
              {"2/x/c.json", dimension("c")}},
             {true, true, false, {}},
             "missing-reference 1/x/a.json; 1/x/a.json 2; 1/x/b.json 2; 2/x/c.json 6; ",
             {}},
        Load{"OtherNames",
             {{"1/a.json", dimension("a")},
              {"1/codes.json", ""},
              {"1/x/b.JSON", ""},
              {"1/x/.json", ""},
              {"1/x/c.txt", ""},
              {"1/x/d.json", dimension("d") + std::string("\0x", 2)}},
             {},
             "top-folder 1/a.json; file-name 1/x/.json; file-name 1/x/b.JSON; "
             "text-after-nul 1/x/d.json; 1/a.json 5; 1/x/.json 5; 1/x/b.JSON 5; ",
             {"d"}},
        Load{"LintsOfOtherNamesAreNotWanted",
             {{"1/a.json", ""}, {"1/x/b.JSON", ""}},
             {false},
             "1/a.json 5; 1/x/b.JSON 5; ",
             {}},
        Load{"VariableNamesOfAHost",
             {{"1/x/a.json", primitive("a")},
              {"1/x/b.json", symbol("b", "a", "w")},
              {"1/x/c.json", symbol("c", "a", "wide")},
              {"1/x/d.json", quantity("d", {"a"})}},
             {true, false, true, std::vector<std::string>{"wide"}},
             "symbol-hides-variable 1/x/c.json; ",
             {"a", "b", "c", "d"}}),
    [](const auto& row) { return row.param.name; });

TEST(LoadFolders, ReportsWhatTheLoaderBreaksOffAt) {
  const FolderTree tree, outside;
  outside.write("a.json", dimension("a"));
  outside.write("secret/b.json", dimension("b"));
  tree.write("x/sound.json", dimension("sound"));
  tree.write("x/closed.json", dimension("closed"));
  tree.write("y/z.json", dimension("z"));
  fs::create_symlink(outside.path("a.json"), tree.path("x/link.json"));
  fs::create_symlink(outside.path("nothing"), tree.path("x/dead.json"));
  fs::create_symlink("loop.json", tree.path("x/loop.json"));
  fs::create_symlink("/proc/self/mem", tree.path("x/mem.json"));
  fs::create_directory_symlink(outside.path(), tree.path("x/folder"));
  fs::permissions(tree.path("x/closed.json"), fs::perms::none);
  fs::permissions(tree.path("y"), fs::perms::none);
  const std::string expected =
      "link x/dead.json; link x/folder; link x/link.json; no-status x/loop.json; link x/mem.json; "
      "cannot-read x/mem.json; x/dead.json 5; x/folder 5; x/loop.json 4; x/mem.json 4; ";
  const auto load = [&] {
    return summary(loadFolders({tree.path()}, *makeEngine(), {true, true, true, {}}), tree);
  };
  const std::string seen = asNobody(load);
  fs::permissions(tree.path("y"), fs::perms::all);
  fs::permissions(tree.path("x/closed.json"), fs::perms::all);
  EXPECT_EQ(load(), expected);
  EXPECT_EQ(seen.find("cannot-open x/closed.json; link x/dead.json; "), 0u) << seen;
  EXPECT_NE(seen.find("cannot-list y; "), std::string::npos) << seen;
}

TEST(LoadFolders, ReportsAFileThatEndsEarly) {
  const char* const shorter = "/sys/kernel/uevent_seqnum";  // has fewer bytes than its size
  if (!fs::exists(shorter)) GTEST_SKIP();
  const FolderTree tree;
  fs::create_directories(tree.path("x"));
  fs::create_symlink(shorter, tree.path("x/a.json"));
  EXPECT_EQ(summary(loadFolders({tree.path()}, *makeEngine(), {false}), tree),
            "ends-early x/a.json; x/a.json 4; ");
}

TEST(LoadFolders, ReadsFilesAsItFindsThem) {
  const FolderTree tree;
  for (const char* const file : {"x/a.json", "x/gone.json", "x/grown.json"})
    tree.write(file, dimension(file));
  Units::HostEngine engine;
  engine.onCall = [&](int call) {
    if (call != 1) return;
    fs::remove(tree.path("x/gone.json"));
    tree.write("x/grown.json", dimension("grown") + std::string(200000, ' '));
  };
  const auto report = loadFolders({tree.path()}, engine, {false, true, true, {}});
  EXPECT_EQ(summary(report, tree), "cannot-open x/gone.json; x/gone.json 4; ");
  EXPECT_TRUE(engine.inner->isRegistered("grown"));
}

TEST(LoadFolders, WantsFolders) {
  const FolderTree tree;
  tree.write("x/a.json", dimension("a"));
  const Engine engine = makeEngine();
  for (const fs::path& none : {tree.path("none"), tree.path("x/a.json")})
    EXPECT_EQ(messageOf<std::logic_error>([&] {
                loadFolders({tree.path(), none}, *engine, {});
              }),
              "schema folder not found: " + none.string());
  EXPECT_FALSE(engine->isRegistered("a"));
}

TEST(LoadFolders, ReportsWhatOnlyTheEngineKnows) {
  const FolderTree tree;
  tree.write("x/a.json", factor("a", Ids{"pending"}));
  const Engine engine = makeEngine();
  engine->addDefinition(dimension("pending"));
  const SchemaReport report = loadFolders({tree.path()}, *engine, {});
  EXPECT_EQ(summary(report, tree), "engine-refuses -; x/a.json 1; ");
  EXPECT_EQ(report.toText().find("-: error: Parent pending has an unexpected type. [engine-"), 0u);
  EXPECT_FALSE(engine->isRegistered("pending"));
}

TEST(LoadFolders, GivesAllOfAFinding) {
  const FolderTree tree;
  tree.write("x/1.json", factor("a", Ids{"b"}));
  tree.write("x/2.json", factor("b", Ids{"a"}));
  const SchemaReport report = SchemaReport(loadFolders({tree.path()}, *makeEngine(), {}));
  const Finding circle = report.getFindings().at(0);
  EXPECT_EQ(circle.getSentence(), "A schema identifies its descendant a as one of its parents.");
  EXPECT_EQ(circle.getAdvice(), "Break the circle at one of its references.");
  std::string all;
  for (const RelatedPlace& place : circle.getRelatedPlaces())
    all += place.getFile().substr(tree.path().string().size()) + ' ' +
           std::to_string(place.getBegin().column) + '-' + std::to_string(place.getEnd().column) +
           ": " + place.getSentence() + ' ';
  EXPECT_EQ(all, "x/1.json 109-112: a needs b. x/2.json 109-112: b needs a. ");
  const FileReport file = report.getFiles().at(1);
  EXPECT_EQ(file.getTypeId() + ": " + file.getReason(), "b: is part of a circle of definitions");
  EXPECT_EQ(report.getErrorCount(), 1u);
  EXPECT_EQ(report.getWarningCount(), 0u);
}

TEST(LoadFolders, NamesWhatIsNearAndOfTheRightKind) {
  const FolderTree tree;
  tree.write("1/x/a.json", dimension("meters"));
  tree.write("2/x/b.json", symbol("b", "meter", "m"));
  const auto findings =
      loadFolders({tree.path("1"), tree.path("2")}, *makeEngine(), {false}).getFindings();
  EXPECT_EQ(findings.at(0).getAdvice(), "Add a unit with that type id.");
  EXPECT_EQ(findings.at(0).getBegin().column, 121u);
  tree.write("2/x/b.json", "{\"typeid\":1}");
  const auto refused = loadFolders({tree.path("2")}, *makeEngine(), {false}).getFindings();
  EXPECT_EQ(refused.at(0).getBegin().column, 11u);
}

TEST(CheckText, MultipliesFactorsWithTheirParents) {
  const Engine engine = makeEngine();
  engine->addFactor(Units::Factor("large", Units::FactorComponent(1e300)));
  for (const auto& [power, sentence] :
       std::map<int, std::string>{{2, "Combined with its parents, the factor is infinite."},
                                  {-2, "Combined with its parents, the factor is 0."}})
    EXPECT_EQ(checkText(factor("a", Powers{{"large", power}}), "t", *engine)
                  .getFindings()
                  .at(0)
                  .getSentence(),
              sentence);
}

TEST(CheckText, KnowsWhatPeopleWriteInsteadOfJson) {
  for (const auto& [text, advice] : std::initializer_list<std::pair<const char*, const char*>>{
           {"{\"a\":1 , }", "Remove the comma before it."},
           {"{ // a", "Remove the comment: JSON has no comments."},
           {"{'a':1}", "Write strings in double quotes."},
           {"\xEF\xBB\xBF{}", "Save it without a byte order mark."},
           {"{\"a\"}", ""}})
    EXPECT_EQ(checkText(text, "t", *makeEngine()).getFindings().at(0).getAdvice(), advice) << text;
}

TEST(LoadFolders, LetsNothingReachATerminal) {
  const FolderTree tree;
  tree.write("x/\x1B[2J\n\xFF\xC2\x9B.json", "{\"typeid\":\"\xFF\",\"inherits\":[]}");
  const auto report = loadFolders({tree.path()}, *makeEngine(), {});
  EXPECT_NE(report.toText().find("x/\\x1B[2J\\x0A\\xFF\\xC2\\x9B.json:1:26: error: "),
            std::string::npos)
      << report.toText();
  EXPECT_NE(report.toJson().find("x/\\u001B[2J\\n\\\\xFF\\\\xC2\\\\x9B.json"), std::string::npos)
      << report.toJson();
  EXPECT_NE(report.toSarif().find("/x/%1B%5B2J%0A%FF%C2%9B.json"), std::string::npos)
      << report.toSarif();
}

struct Checked {
  const char* name;
  std::string text;
  const char* expected;
};

class Texts : public testing::TestWithParam<Checked> {};

/// Findings with their places in lines, and columns in bytes and code points.
TEST_P(Texts, AreCheckedAgainstAnEngine) {
  const Engine engine = makeEngine();
  engine->addUnit(
      Units::Unit("m", "meter", Units::System::Metric, Units::PrimitiveUnitComponent()));
  engine->addDefinition(absolute("scale", "m", "7"));
  engine->addDefinition(derived("n", Ids{"m"}, Ids{"g"}));
  engine->addDefinition(derived("o", Powers{{"n", 2}}));
  engine->addDefinition(factor("g", Ids{"f"}));
  engine->addDefinition(factor("f", Ids{}));
  engine->buildSchemas();
  std::string all;
  for (const Finding& finding : checkText(GetParam().text, "t", *engine).getFindings()) {
    const TextPosition begin = finding.getBegin(), end = finding.getEnd();
    all += finding.getId() + ' ' + std::to_string(begin.line) + ':' + std::to_string(begin.column) +
           '(' + std::to_string(begin.columnPoint) + ")-" + std::to_string(end.line) + ':' +
           std::to_string(end.column) + "; ";
  }
  EXPECT_EQ(all, GetParam().expected);
  EXPECT_FALSE(engine->isRegistered("a"));
}

INSTANTIATE_TEST_SUITE_P(
    Reporting, Texts,
    testing::Values(
        Checked{"Sound", dimension("a"), ""}, Checked{"Nothing", "", "json 1:1(1)-1:1; "},
        Checked{"ColumnsOfBytesAndCodePoints", "{\"\xC2\xB5\xFF\":\n\"\xC2\xB5\" \xC2\xB5}",
                "json 2:6(5)-2:8; "},
        Checked{"LastOfTwoMembers",
                quoted("{'typeid':'a','inherits':[':factor.derived-1.'],'constants':[\n{'value':"
                       "{'y':1,'y':0},'id':'parentFactors'}]}"),
                "zero-exponent 2:21(21)-2:22; "},
        Checked{"LastOfTwoReferences",
                quoted("{'typeid':'a','inherits':[':symbol-1.'],'constants':[\n{'id':'unit','value'"
                       ":{'typeid':'m','typeid':'n'}}],'typeid':':feetAndInches-1'}"),
                "layout-unknown 1:11(11)-1:14; "},
        Checked{"FirstFaultyElement",
                quoted("{'typeid':'a','inherits':[':quantity-1.'],'constants':[{'id':'name','value'"
                       ":'n'},\n{'id':'units','value':[{'typeid':'m'},{'typeid':''},1]}]}"),
                "reference-empty 2:39(39)-2:40; "},
        Checked{"NothingToRefuseInAPropertyWithoutValue",
                quoted("{'typeid':'a','inherits':[':dimension-1.'],'properties':[{'id':'p'},1]}"),
                "property-not-object 1:69(69)-1:70; "},
        Checked{"Itself", factor("a", Ids{"a"}), "circle 1:109(109)-1:112; "},
        Checked{"ScaleInTheEngine", derived("a", Ids{"scale"}),
                "scale-as-parent 1:168(168)-1:175; "},
        Checked{"ByteOrderMark", "\xFF\xFE{", "json 1:1(1)-1:2; "},
        Checked{"TextBehindANul", dimension("a") + std::string("\0 ", 2),
                "text-after-nul 1:60(60)-1:60; "},
        Checked{
            "MembersOfConstants",
            quoted("{'typeid':'a','inherits':[':factor-1.'],'properties':[{'id':'p'}],\n"
                   "'constants':[{'id':'factor','value':2,'typedValue':3,'unit':4}],'allow':1}"),
            "unread-constant 1:61(61)-1:64; unread-member 2:39(39)-2:51; "
            "unread-member 2:54(54)-2:60; unused-allowance 2:73(73)-2:74; "},
        Checked{"WithAParentOfTheEngine", derived("a", Ids{"n"}, Ids{"g"}), ""},
        Checked{"CancelsParentsOfTheEngine", derived("a", Powers{{"m", -1}, {"n", 1}}),
                "canceling-powers 1:167(167)-1:168; "},
        Checked{"PowersThatFitOnceTheyAreAddedUp",
                derived("a", Powers{{"m", 2147483647}, {"n", 1}, {"o", -1}}), ""},
        Checked{"AllowsWhatTheLoadDoesNotShow",
                quoted("{'typeid':'a','inherits':[':dimension-1.'],'allow':['symbol-space']}"),
                "unused-allowance 1:53(53)-1:67; "},
        Checked{
            "IdsEndAtANul",
            quoted("{'typeid':'a','inherits':[':factor-1.'],'constants':[{'id':'factor\\u0000x',"
                   "\n'value':'2'}]}"),
            "number-expected 2:9(9)-2:12; "},
        Checked{"AScaleHasASymbol", symbol("a", "scale", "hh"), ""}),
    [](const auto& row) { return row.param.name; });

/// Fails each allocation of an action once, from where it calls its argument. The action must throw
/// std::bad_alloc, or give the same: there is other memory for the exceptions that it catches itself.
template <class Action>
void failEach(const Action& action) {
  const std::string expected = action([] {});
  long index = 0;
  do {
    const long before = heap::liveBlocks();
    bool isSame = true;
    try {
      isSame = action([&] { heap::fail(index, false); }) == expected;
    } catch (const std::bad_alloc&) {
    }
    heap::succeed();
    const long after = heap::liveBlocks();
    EXPECT_TRUE(isSame) << index;
    EXPECT_EQ(after, before) << index;
    ++index;
  } while (heap::hasFailed());
  EXPECT_GT(index, 50);
}

TEST(Reports, LeaveNothingBehindWhenAnAllocationFails) {
  const Engine engine = makeEngine();
  engine->addDefinition(primitive("m"));
  engine->buildSchemas();
  for (const std::string& text : {symbol("a", "m", "2"), derived("a", Ids{"n"}), std::string("{")})
    failEach([&](const auto& begin) {
      begin();
      return checkText(text, "t", *engine).toSarif();
    });
}

/// The walk itself is the standard library's, which may end the process.
TEST(Reports, LoadNothingWhenAnAllocationFails) {
  const FolderTree tree;
  tree.write("x/a.json", dimension("a"));
  tree.write("x/b.json", dimension("b"));
  failEach([&](const auto& begin) {
    Units::HostEngine engine;
    engine.onCall = [&](int call) {
      if (call == 1) begin();
    };
    const Units::UnitsEngine& filled = *engine.inner;
    try {
      return loadFolders({tree.path()}, engine, {}).toText();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(filled.isRegistered("a"), filled.isRegistered("b"));
      EXPECT_EQ(filled.isRegistered("a"), filled.getDimensions().size() == 2);
      throw;
    }
  });
}

}  // namespace
