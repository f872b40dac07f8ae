#include "core/controls.h"

#include <algorithm>

#include "core/fields.h"

namespace zelmo {

Control::Control(Form* form, std::string name, ControlKind kind)
    : form_(form), name_(std::move(name)), kind_(kind) {
  if (form_) form_->Register(this);
}

void Control::SetFocus() {
  if (form_) form_->focus = name_;
}

void Control::SelectAll() {
  sel_start = 0;
  sel_length = static_cast<int>(text.size());
}

std::string Control::SelectedItem() const {
  if (list_index < 0 || list_index >= static_cast<int>(items.size())) return {};
  return items[list_index];
}

void Control::RemoveItem(int index) {
  if (index < 0 || index >= static_cast<int>(items.size())) return;
  items.erase(items.begin() + index);
  if (list_index >= static_cast<int>(items.size())) list_index = static_cast<int>(items.size()) - 1;
}

void Grid::SetRows(int rows) {
  cells_.resize(std::max(rows, 0), std::vector<std::string>(cols_));
  if (row >= this->rows()) row = std::max(this->rows() - 1, 0);
}

void Grid::SetCols(int cols) {
  cols_ = std::max(cols, 0);
  for (auto& r : cells_) r.resize(cols_);
  col_widths.resize(cols_, 0);
}

std::string& Grid::Cell(int r, int c) {
  static std::string sink;
  if (r < 0 || r >= rows() || c < 0 || c >= cols_) {
    sink.clear();
    return sink;
  }
  return cells_[r][c];
}

const std::string& Grid::Cell(int r, int c) const {
  static const std::string empty;
  if (r < 0 || r >= rows() || c < 0 || c >= cols_) return empty;
  return cells_[r][c];
}

int Grid::CellBackColor(int r, int c) const {
  auto found = back_colors_.find({r, c});
  return found == back_colors_.end() ? kDefaultColor : found->second;
}

void Grid::SetCellBackColor(int r, int c, int color) {
  if (color == kDefaultColor) {
    back_colors_.erase({r, c});
  } else {
    back_colors_[{r, c}] = color;
  }
}

void Grid::AddRow(const std::string& tab_text) {
  cells_.emplace_back(cols_);
  if (tab_text.empty()) return;
  auto fields = SplitTabs(tab_text);
  for (int c = 0; c < cols_ && c < static_cast<int>(fields.size()); ++c)
    cells_.back()[c] = fields[c];
}

void Grid::RemoveRow(int r) {
  if (r < 0 || r >= rows()) return;
  cells_.erase(cells_.begin() + r);
  if (row >= rows()) row = std::max(rows() - 1, 0);
  // The colours go with their cells.
  std::map<std::pair<int, int>, int> moved;
  for (const auto& [cell, color] : back_colors_) {
    if (cell.first != r) moved[{cell.first > r ? cell.first - 1 : cell.first, cell.second}] = color;
  }
  back_colors_ = std::move(moved);
}

Form::Form(std::string name) : name_(std::move(name)) {}

Control* Form::Find(const std::string& name) const {
  for (Control* control : controls_) {
    if (control->name() == name) return control;
  }
  return nullptr;
}

}  // namespace zelmo
