// InpBox: the one-line modal question, with a number check when asked.
#pragma once

#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;

class InpBox : public Form {
 public:
  explicit InpBox(Session& session);

  // Sets the prompt, the field and the window's width for one question.
  void Prepare(const std::string& prompt, const std::string& default_text, const std::string& title,
               int max_length, bool mask);
  void Load() override;
  void QueryUnload() override { Cancel(); }

  void Ok();
  void Cancel();

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  Session& session_;
};

}  // namespace zelmo
