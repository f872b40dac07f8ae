// For the tests of the project and case stores: a program folder with its
// library files, an empty data folder, the main window and a fake session.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/start_form.h"

namespace zelmo::testing {

class StoreTest : public ::testing::Test {
 protected:
  StoreTest() {
    Workspace& ws = fake.ws();
    ws.SystemPath = dir / "Program";
    ws.MainDirectory = JoinPath(ws.SystemPath, "TGZELMO");
    ws.ThermalDirectory = JoinPath(ws.SystemPath, "TZELMO");
    ws.LocalPath = dir / "Data";
    CreateFolderTree(ws.ThermalDirectory);
    CreateFolderTree(ws.LocalPath);
    // The program's library files in another case than the program asks
    // for: a new project must reach them all the same.
    for (const char* name : {"gastp.inp", "Glasstp.INP", "WNDTP.LIB", "opaque.lib"}) {
      WriteBytes(JoinPath(ws.MainDirectory, name), std::string(name) + "\r\n");
    }
    // As the start leaves it.
    main.SetButtonsForMenu(main.LPN, true);
  }

  Workspace& ws() { return fake.ws(); }
  std::string Data(const std::string& name) { return JoinPath(ws().LocalPath, name); }
  std::string Projects() { return ReadBytes(Data("PROJECTS.LIB")); }
  // A registered project with its folder, as New Project leaves it.
  void AddProject(const std::string& name, const std::string& directory) {
    AppendLine(Data("PROJECTS.LIB"), name + "\t" + directory);
    CreateFolder(Data(directory));
  }
  // A project made current as Open Project does it.
  void OpenAs(const std::string& name, const std::string& directory) {
    ws().ProjectName = name;
    ws().ProjectPath = Data(directory);
  }
  // A case of the current project with its THERMAL.INP.
  void AddCase(const std::string& name, const std::string& headline,
               const std::string& flags = "XXXXXX") {
    AppendLine(JoinPath(ws().ProjectPath, "CASES.LIB"), name + " - " + headline);
    WriteBytes(JoinPath(JoinPath(ws().ProjectPath, name), "THERMAL.INP"), flags + "\r\n");
  }
  std::string InProject(const std::string& name) { return JoinPath(ws().ProjectPath, name); }
  std::string Cases() { return ReadBytes(InProject("CASES.LIB")); }
  // The entries of a folder, for "nothing was created".
  std::vector<std::string> Listing(const std::string& folder) {
    std::vector<std::string> names = SubFolders(folder);
    for (const auto& file : FilesWithExtension(folder, "")) names.push_back(file);
    return names;
  }

  // Open on the list item at `index` refuses it as a damaged line of
  // `list_file`, naming the file and the line.
  template <class OpenScreen>
  void ExpectOpenRefusesDamagedLine(int index, const std::string& list_file) {
    auto& damaged = Show<OpenScreen>();
    damaged.List1.list_index = index;
    try {
      damaged.Open();
      ADD_FAILURE() << index;
    } catch (const FileError& error) {
      EXPECT_EQ(error.path(), list_file);
      EXPECT_EQ(error.line(), index + 1);
    }
  }

  // A screen of the stores, shown as its menu entry shows it.
  template <class Screen>
  Screen& Show() {
    shown.push_back(std::make_unique<Screen>(fake.session, main));
    fake.dialogs.ShowModal(*shown.back());
    return static_cast<Screen&>(*shown.back());
  }

  TempDir dir;
  FakeSession fake;
  StartForm main{fake.session};
  std::vector<std::unique_ptr<Form>> shown;
};

}  // namespace zelmo::testing
