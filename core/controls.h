// The controls of a screen model: small typed values named as the system
// names them. A view shows them and forwards its widgets' events; the model
// never sees a widget.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zelmo {

class Form;

enum class ControlKind {
  kLabel,
  kTextBox,
  kButton,
  kCheckBox,
  kOption,
  kList,
  kCombo,
  kFrame,
  kMenu,
  kGrid,
  kPicture,
  kSpin
};

// Colours as the system gives them: red + 256 * green + 65536 * blue.
inline constexpr int Rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
inline constexpr int kDefaultColor = -1;

// Keys forwarded to KeyPress handlers: the character's code for a typed
// character (8 backspace, 13 return, 27 escape), or one of the movement keys
// below, which lie outside the character range.
namespace keys {
inline constexpr int kBack = 8;
inline constexpr int kTab = 9;
inline constexpr int kReturn = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpecial = 0x10000;
inline constexpr int kPageUp = kSpecial + 33;
inline constexpr int kPageDown = kSpecial + 34;
inline constexpr int kEnd = kSpecial + 35;
inline constexpr int kHome = kSpecial + 36;
inline constexpr int kLeft = kSpecial + 37;
inline constexpr int kUp = kSpecial + 38;
inline constexpr int kRight = kSpecial + 39;
inline constexpr int kDown = kSpecial + 40;
inline constexpr int kDelete = kSpecial + 46;
}  // namespace keys

class Control {
 public:
  Control(Form* form, std::string name, ControlKind kind);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }
  ControlKind kind() const { return kind_; }
  Form* form() const { return form_; }

  // Asks for the focus after the current event.
  void SetFocus();
  // Selects the whole text, as a field does when it takes the focus.
  void SelectAll();

  std::string caption;  // labels, buttons, frames, menus, check and option boxes
  std::string text;     // text boxes and the edit part of combo boxes
  bool enabled = true;
  bool visible = true;
  std::string tool_tip;
  int fore_color = kDefaultColor;
  int back_color = kDefaultColor;
  // Text boxes.
  int max_length = 0;  // 0: no limit
  char password_char = 0;
  bool locked = false;
  bool multi_line = false;
  int sel_start = 0;
  int sel_length = 0;
  // Check boxes (0 or 1) and option buttons (checked or not).
  int value = 0;
  // List and combo boxes.
  std::vector<std::string> items;
  int list_index = -1;
  std::string SelectedItem() const;
  void Clear() {
    items.clear();
    list_index = -1;
  }
  void AddItem(const std::string& item) { items.push_back(item); }
  void RemoveItem(int index);
  // Geometry in twips; 0 leaves it to the view.
  int left = 0, top = 0, width = 0, height = 0;
  // Help context number of the control's topic, 0 for the screen's.
  int help_context = 0;

  // Events. A view calls them after it has put the widget's new state into
  // the control (text, value, list index).
  std::function<void()> on_click;
  std::function<void()> on_dbl_click;
  std::function<void()> on_change;
  std::function<void()> on_got_focus;
  std::function<void()> on_lost_focus;
  // A key typed into the control; the handler may set it to 0 to swallow it.
  std::function<void(int& key)> on_key_press;

 private:
  Form* form_;
  std::string name_;
  ControlKind kind_;
};

struct Label : Control {
  Label(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kLabel) {}
};
struct TextBox : Control {
  TextBox(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kTextBox) {}
};
struct Button : Control {
  Button(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kButton) {}
};
struct CheckBox : Control {
  CheckBox(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kCheckBox) {}
};
struct OptionButton : Control {
  OptionButton(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kOption) {}
};
struct ListBox : Control {
  ListBox(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kList) {}
};
struct ComboBox : Control {
  ComboBox(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kCombo) {}
};
struct Frame : Control {
  Frame(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kFrame) {}
};
struct MenuItem : Control {
  MenuItem(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kMenu) {}
};
struct Picture : Control {
  Picture(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kPicture) {}
};
// A pair of arrows beside a field: `value` runs from `min` to `max`, and a
// click on an arrow puts the new value and fires on_change.
struct SpinButton : Control {
  SpinButton(Form* f, std::string n, int low, int high)
      : Control(f, std::move(n), ControlKind::kSpin), min(low), max(high) {
    value = low;
  }
  int min;
  int max;
};

// A flexible grid: rows and columns counted from 0, the fixed rows and
// columns first (row 0 is the header line), a current cell, a top visible
// row, a selected range and a free text tag.
class Grid : public Control {
 public:
  Grid(Form* f, std::string n) : Control(f, std::move(n), ControlKind::kGrid) {}

  int rows() const { return static_cast<int>(cells_.size()); }
  int cols() const { return cols_; }
  void SetRows(int rows);
  void SetCols(int cols);
  std::string& Cell(int row, int col);
  const std::string& Cell(int row, int col) const;
  void AddRow(const std::string& tab_text = "");
  void RemoveRow(int row);

  int fixed_rows = 1;
  int fixed_cols = 0;
  int row = 0;  // current cell
  int col = 0;
  int top_row = 1;
  int row_sel = 0;  // the other corner of the selection
  int col_sel = 0;
  std::string tag;
  std::vector<int> col_widths;     // twips; 0 leaves it to the view; below 15 hides
  std::vector<bool> col_centered;  // columns whose cells are centred
  // The background of single cells, as CellBackColor sets it on the
  // current cell; kDefaultColor where none was given.
  int CellBackColor(int row, int col) const;
  void SetCellBackColor(int row, int col, int color);
  bool editable = false;  // cells take typed text
  // A cell changed by the user (the cell already holds the new text).
  std::function<void(int row, int col)> on_cell_changed;
  // A drag of the mouse over several cells has ended: `row`, `col` hold the
  // cell it started on and `row_sel`, `col_sel` the cell it ended on.
  std::function<void()> on_sel_change;

 private:
  std::vector<std::vector<std::string>> cells_;
  int cols_ = 0;
  std::map<std::pair<int, int>, int> back_colors_;
};

// A screen model: a window with its controls.
class Form {
 public:
  explicit Form(std::string name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& name() const { return name_; }
  // Runs once before the screen is shown. A load that fails unloads the form
  // and it is not shown.
  virtual void Load() {}
  // The user closes the window by its close box; the default unloads.
  virtual void QueryUnload() { Unload(); }
  void Unload() { unloaded = true; }

  Control* Find(const std::string& name) const;
  const std::vector<Control*>& controls() const { return controls_; }
  void Register(Control* control) { controls_.push_back(control); }

  std::string caption;
  int left = 0, top = 0, width = 0, height = 0;  // twips
  bool resizable = false;
  // Set by CenterForm: the window is centred by the size it is shown at.
  bool centered = false;
  bool unloaded = false;
  // Set by a screen that has agreed to close and goes once its work (a run
  // of the modules) has stopped.
  bool closing = false;
  int help_context = 0;
  // The control that asked for the focus in the last event, or empty.
  std::string focus;
  // Shows the model as it stands in the middle of an event that takes long
  // (a run of the modules); set by the view while it shows the form.
  std::function<void()> refresh;
  // The button pressed by Enter and by Escape, by name.
  std::string default_button;
  std::string cancel_button;

 private:
  std::string name_;
  std::vector<Control*> controls_;
};

}  // namespace zelmo
