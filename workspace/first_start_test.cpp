// A user's first start of an installed program: the tree has no marker and
// is never written; the user's data folder is made under his home with the
// example project, and the example is activated there.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/demo.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"

// The data folder of a platform without drive letters lies in HOME.
#ifndef _WIN32
namespace zelmo::testing {
namespace {

const std::string kKey = "Zelmo-QRN/Project/";

// HOME points at a folder of the test's own while it lives.
class FirstStart : public ::testing::Test {
 protected:
  FirstStart() {
    if (const char* home = std::getenv("HOME")) old_home_ = home;
    setenv("HOME", home.path().c_str(), 1);
    const char* source = std::getenv("ZELMO_SOURCE_DIR");
    EXPECT_NE(source, nullptr);
    if (source) CopyFolderTree(JoinPath(JoinPath(source, "system"), "tree"), program.path());
  }
  ~FirstStart() override { setenv("HOME", old_home_.c_str(), 1); }

  // Every file of the program tree with its bytes, to see that none changed.
  std::string TreeBytes() {
    std::string all;
    for (const char* name :
         {"ZELMOPROJ/PROJECTS.LIB", "ZELMOPROJ/StockholmW(SE).cli_Temp",
          "ZELMOPROJ/Example/Case1/Site.inp", "ZELMOPROJ/Example/OPAQUE.LIB_Temp"}) {
      all += name + std::string(":") + ReadBytes(program / name);
    }
    return all;
  }

  TempDir home;
  TempDir program;
  FakeSession fake;
  std::string old_home_;
};

TEST_F(FirstStart, TheDataFolderIsMadeInTheHomeWithTheExampleAndActivatedThere) {
  const std::string tree = TreeBytes();
  StartForm main(fake.session);
  StartUp(fake.session, main, program / "Tgzelmo");
  const std::string data = home / "ZELMOPROJ";
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_EQ(fake.ws().LocalPath, data);
  EXPECT_EQ(fake.ws().SystemPath, program.path());
  EXPECT_EQ(fake.settings.values[kKey + "LocalPath"], data);
  EXPECT_EQ(fake.settings.values[kKey + "SystemPath"], program.path());
  EXPECT_EQ(ReadBytes(JoinPath(data, "PROJECTS.LIB")),
            ReadBytes(program / "ZELMOPROJ/PROJECTS.LIB"));
  EXPECT_TRUE(main.M_OpenProject.enabled);

  ActivateDemoProject(fake.session, main);
  EXPECT_EQ(fake.dialogs.Texts(),
            std::vector<std::string>{"The demo project is successfully activated"});
  EXPECT_TRUE(Exists(JoinPath(data, "StockholmW(SE).cli")));
  EXPECT_TRUE(Exists(JoinPath(data, "Example/OPAQUE.LIB")));
  EXPECT_EQ(TreeBytes(), tree);

  // A later start of the same user takes what he stored and copies nothing.
  WriteBytes(JoinPath(data, "PROJECTS.LIB"), "mine\tmine\r\n");
  FakeSession again;
  again.settings.values = fake.settings.values;
  StartForm next(again.session);
  StartUp(again.session, next, program / "Tgzelmo");
  EXPECT_EQ(ReadBytes(JoinPath(data, "PROJECTS.LIB")), "mine\tmine\r\n");
  EXPECT_EQ(again.ws().LocalPath, data);
}

}  // namespace
}  // namespace zelmo::testing
#endif
