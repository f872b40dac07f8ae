// For the tests of the program's start and settings: a program tree as the
// installer leaves it, with a data folder beside its folders, and the main
// window started on it.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"

namespace zelmo::testing {

class ProgramTree : public ::testing::Test {
 public:
  ProgramTree() {
    for (const char* folder : {"TGZELMO", "TZELMO", "FELT", "DIAGRAM", "data"}) {
      CreateFolderTree(dir / folder);
    }
  }
  void Store(const std::string& key, const std::string& value) {
    fake.settings.values["Zelmo-QRN/Project/" + key] = value;
  }
  // The paths of the tree and its data folder, as a start stores them.
  void StoreTree() {
    Store("SystemPath", dir.path());
    Store("LocalPath", data);
  }
  void Start(const std::string& program = "Tgzelmo") { StartUp(fake.session, main, dir / program); }

  // The commands a user can reach: a menu entry whose menus are all
  // enabled, and an enabled label of the panel.
  std::set<std::string> Usable() {
    std::set<std::string> usable;
    std::map<const MenuItem*, const MenuItem*> parents;
    for (const auto& node : main.MenuTree()) parents[node.item] = node.parent;
    for (const auto& node : main.MenuTree()) {
      bool reachable = true;
      for (const MenuItem* walk = node.item; walk; walk = parents[walk]) {
        reachable = reachable && walk->enabled && walk->visible;
      }
      if (reachable) usable.insert(node.item->name());
    }
    for (const Control* control : main.controls()) {
      if (control->kind() == ControlKind::kLabel && control->on_click && control->enabled) {
        usable.insert(control->name());
      }
    }
    return usable;
  }
  // The commands a user can always reach once the data folder is there.
  static constexpr const char* kAlways =
      "M_File M_EditSystemFile M_ClimaticDataFiles M_Downloadclimaticdatafiles "
      "M_Copyclimaticdatafiles M_ConvertV20 M_ActivetaDemo M_CloseZelmo M_Project M_NewProject "
      "M_view M_HelpMain M_AboutZelmo M_Support M_Help M_MainForm M_HelpInfo LPN ";
  static std::set<std::string> Names(const std::string& words) {
    const Strings list = Words(words);
    return {list.begin(), list.end()};
  }

  TempDir dir;
  std::string data = dir / "data";
  FakeSession fake;
  StartForm main{fake.session};
};

}  // namespace zelmo::testing
