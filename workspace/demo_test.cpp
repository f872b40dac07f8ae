#include "workspace/demo.h"

#include <cstdlib>

#include "workspace/case_screens.h"
#include "workspace/project_screens.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

// The example project of the program tree, under a program folder of the
// test's own.
class Demo : public StoreTest {
 protected:
  Demo() {
    const char* source = std::getenv("ZELMO_SOURCE_DIR");
    EXPECT_NE(source, nullptr);
    if (source) {
      CopyFolderTree(JoinPath(JoinPath(JoinPath(source, "system"), "tree"), "ZELMOPROJ"), Root());
    }
    CreateFolderTree(ws().MainDirectory);
  }
  std::string Root() { return JoinPath(ws().SystemPath, "ZELMOPROJ"); }
  std::string Example(const std::string& name) {
    return JoinPath(JoinPath(Root(), "Example"), name);
  }
};

TEST_F(Demo, ActivatesOnceThenSaysItIsActive) {
  const std::string site_before = ReadBytes(Example("Case1/Site.inp"));
  ActivateDemoProject(fake.session, main);
  ASSERT_EQ(fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(fake.dialogs.Last().text, "The demo project is successfully activated");
  EXPECT_EQ(fake.dialogs.Last().title, "Project Example");
  EXPECT_EQ(fake.dialogs.Last().style, mb::kInformation);

  const std::string climate = JoinPath(Root(), "StockholmW(SE).cli");
  EXPECT_TRUE(Exists(climate));
  EXPECT_FALSE(Exists(climate + "_Temp"));
  for (const char* name : {"GASTP.INP", "GLASSTP.INP", "OPAQUE.LIB", "WNDTP.LIB"}) {
    EXPECT_TRUE(Exists(Example(name))) << name;
    EXPECT_FALSE(Exists(Example(std::string(name) + "_Temp"))) << name;
  }
  // Only the climate line of the site file changes.
  auto lines = ReadAllLines(Example("Case1/Site.inp"));
  ASSERT_TRUE(lines && lines->size() == 14u);
  EXPECT_EQ((*lines)[4], climate);
  std::string expected = site_before;
  const size_t start = expected.find("C:\\");
  expected.replace(start, expected.find("\r\n", start) - start, climate);
  EXPECT_EQ(ReadBytes(Example("Case1/Site.inp")), expected);
  EXPECT_FALSE(Exists(Example("Case1/SiteX.inp")));
  // The folder is the data folder now, in the store too.
  EXPECT_EQ(ws().LocalPath, Root());
  EXPECT_EQ(fake.settings.values["Zelmo-QRN/Project/LocalPath"], Root());

  fake.dialogs.Clear();
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(), std::vector<std::string>{"The demo project is already active"});
  EXPECT_EQ(fake.dialogs.Last().title, "Project Example");

  // The example opens: lower-case names in the registers reach the folders
  // whatever their case.
  OpenProject project(fake.session, main);
  fake.dialogs.ShowModal(project);
  project.Open();
  EXPECT_EQ(ws().ProjectName, "example");
  // The paths name the folders as they stand, for the programs that get them.
  EXPECT_EQ(ws().ProjectPath, JoinPath(Root(), "Example"));
  EXPECT_TRUE(FileCanOpen(JoinPath(ws().ProjectPath, "Wndtp.LIB")));
  OpenCase open_case(fake.session, main);
  fake.dialogs.ShowModal(open_case);
  open_case.Open();
  EXPECT_EQ(ws().CaseName, "case1");
  EXPECT_EQ(ws().CasePath, Example("Case1"));
  EXPECT_TRUE(FileCanOpen(JoinPath(ws().CasePath, "SITE.INP")));
  EXPECT_EQ(ReadAllBytes(JoinPath(ws().CasePath, "THERMAL.INP")).value_or(""), "XXXXXX\r\n");
}

TEST_F(Demo, WithoutTheExampleNothingHappens) {
  DeleteFile(JoinPath(Root(), "PROJECTS.LIB"));
  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(), std::vector<std::string>{"No demo project found"});
  EXPECT_TRUE(Exists(JoinPath(Root(), "StockholmW(SE).cli_Temp")));
  EXPECT_EQ(ws().LocalPath, dir / "Data");
}

}  // namespace
}  // namespace zelmo::testing
