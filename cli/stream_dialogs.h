// The Dialogs port of the command line: what a screen would show in a box
// goes out as one line, "<title>: <text>", and a question takes its safe
// answer.
#pragma once

#include <functional>
#include <string>

#include "core/dialogs.h"

namespace zelmo::cli {

class StreamDialogs : public Dialogs {
 public:
  // `line` takes each line whole, so that cases run side by side never mix
  // their lines.
  explicit StreamDialogs(std::function<void(const std::string&)> line) : line_(std::move(line)) {}
  Answer MsgBox(const std::string& text, int style, const std::string& title) override;
  // A screen shown by the run (the module error) prints its caption and the
  // captions of its labels.
  void ShowModal(Form& form) override;
  std::optional<std::string> ChooseFolder(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> ChooseFile(const FileChoice&) override { return std::nullopt; }
  void SetBusy(bool) override {}
  int TextWidth(const std::string& text) override { return static_cast<int>(text.size()) * 105; }

 private:
  std::function<void(const std::string&)> line_;
};

// The text on one line: each line break, with or without its LF, one blank.
std::string OneLine(const std::string& text);

}  // namespace zelmo::cli
