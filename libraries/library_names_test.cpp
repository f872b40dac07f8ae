// A name typed or pasted into the editor of a library keeps no control
// character: a TAB or a line break in it would split the record in the file
// or start another one.
#include <gtest/gtest.h>

#include <functional>

#include "libraries/gas_screen.h"
#include "libraries/library_test_case.h"
#include "libraries/moveins_screen.h"
#include "libraries/opaque_screen.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

// One library: its editor given a name and valid values, then the screen
// saved. A new record is the file's last line.
struct Library {
  const char* file;
  const char* missing;  // the message for a name with nothing left
  void (*add)(LibraryCase&, const std::string& name);
  const char* head;  // the record's text before its name
  const char* tail;  // and behind it
};

// The library's screen adds one record through its editor, which `fill`
// answers, and is closed with OK.
template <typename Screen, typename Editor>
void AddThrough(LibraryCase& c, const char* editor_name, void (Screen::*add)(),
                std::function<void(Editor&)> fill) {
  c.fake.dialogs.screens[editor_name] = [fill](Form& form) {
    auto& editor = static_cast<Editor&>(form);
    fill(editor);
    editor.Ok();
  };
  Screen screen(c.fake.session);
  screen.Load();
  (screen.*add)();
  screen.Ok();
}

void AddMaterial(LibraryCase& c, const std::string& name) {
  AddThrough<OpaqueMtrl, AddOpaque>(c, "AddOpaque", &OpaqueMtrl::Add, [name](AddOpaque& e) {
    e.Mtrl.text = name, e.Conduct.text = e.Heat.text = e.Density.text = "1";
  });
}

void AddGas(LibraryCase& c, const std::string& name) {
  AddThrough<Gases, Addgas>(c, "Addgas", &Gases::AddGas, [name](Addgas& e) {
    e.namegas.text = name;
    for (int i = 1; i < kGasFields; ++i) e.Inputs()[i]->text = "1";
  });
}

void AddCurtain(LibraryCase& c, const std::string& name) {
  AddThrough<MoveIns, AddMoveIns>(c, "AddMoveIns", &MoveIns::Add, [name](AddMoveIns& e) {
    e.NAmeMI.text = name, e.Solar.text = "30", e.Absorp.text = "40", e.RValue.text = "0.25";
  });
}

TEST(LibraryNames, NoControlCharacterReachesAnyLibraryFile) {
  const Library libraries[] = {
      {"OPAQUE.LIB", "Name must be set\r", AddMaterial, "48\t", "\t1\t1\t1\r\n"},
      {"GASTP.INP", "Name is missing\r", AddGas, "", "\t1\t1\t1\t1\t1\t1\t1\t1\t\r\n"},
      {"MOVEINS.LIB", "Name is missing\r", AddCurtain, "1\t", "\t30\t40\t0.25\r\n"},
  };
  const struct {
    const char* typed;
    const char* kept;  // empty: refused
  } names[] = {
      {"Mineral\twool", "Mineralwool"},
      {"Thin\r\n2\tInjected\t0\t0\t1", "Thin2Injected001"},
      {"\tFelt\n", "Felt"},
      {"Cork", "Cork"},
      {"\t\r\n", ""},
  };
  for (const Library& library : libraries) {
    for (const auto& name : names) {
      LibraryCase c;
      c.Put("OPAQUE.LIB", testing::Materials(47));
      const std::string file = c.Path(library.file);
      const std::string before = testing::Exists(file) ? c.Bytes(library.file) : "";
      library.add(c, name.typed);
      const std::string after = testing::Exists(file) ? c.Bytes(library.file) : "";
      const std::string context = std::string(library.file) + " / " + name.kept;
      if (*name.kept == 0) {
        EXPECT_EQ(c.fake.dialogs.Texts(), testing::Strings{library.missing}) << context;
        EXPECT_EQ(after, before) << context;
        continue;
      }
      EXPECT_TRUE(c.fake.dialogs.messages.empty()) << context;
      const std::string line = library.head + std::string(name.kept) + library.tail;
      ASSERT_GE(after.size(), line.size()) << context;
      EXPECT_EQ(after.substr(0, after.size() - line.size()), before) << context;
      EXPECT_EQ(after.substr(after.size() - line.size()), line) << context;
    }
  }
}

}  // namespace
}  // namespace zelmo
