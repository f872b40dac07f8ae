// The windows of the Info menu: About and Support.
#pragma once

#include "core/controls.h"
#include "core/session.h"

namespace zelmo {

// The product's name and a few words on it, with a Close button.
class About : public Form {
 public:
  explicit About(Session& session);
  void Load() override;

  Label Label1{this, "Label1"};
  Label Label2{this, "Label2"};
  Label Label3{this, "Label3"};
  Button Command1{this, "Command1"};

 private:
  Session& session_;
};

// Where users get help with the program, with a Close button.
class Support : public Form {
 public:
  explicit Support(Session& session);
  void Load() override;

  Label Label1{this, "Label1"};
  Label Label2{this, "Label2"};
  Button Command1{this, "Command1"};

 private:
  Session& session_;
};

}  // namespace zelmo
