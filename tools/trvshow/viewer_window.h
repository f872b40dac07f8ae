// The viewer's window: the picture of the building with a row of controls
// above it (reset the view, show the arrows, see through) and a line below that names the
// element pointed at.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <string>

#include "modules/dat1.h"
#include "tools/trvshow/building_view.h"

namespace zelmo::trvshow {

class ViewerWindow : public QWidget {
 public:
  explicit ViewerWindow(Dat1Building building);

  BuildingView* view() const { return view_; }
  QLabel* status() const { return status_; }
  QPushButton* reset() const { return reset_; }
  QCheckBox* arrows() const { return arrows_; }
  QCheckBox* see_through() const { return see_through_; }

 private:
  BuildingView* view_;
  QLabel* status_;
  QPushButton* reset_;
  QCheckBox* arrows_;
  QCheckBox* see_through_;
};

// The text a user is shown for a DAT1.DAT that cannot be read: what is
// wrong, the file and the line, one a line.
QString LoadFailureText(const std::string& user_text);

}  // namespace zelmo::trvshow
