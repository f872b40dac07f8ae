#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "building/surface_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

QLineEdit* Field(QWidget* parent, const Control& control, int twips = 900) {
  auto* edit = Named<QLineEdit>(parent, control);
  edit->setFixedWidth(Px(twips));
  return edit;
}

QComboBox* List(QWidget* parent, const Control& control, int twips) {
  auto* combo = Named<QComboBox>(parent, control);
  combo->setMinimumWidth(Px(twips));
  combo->setMaxVisibleItems(20);
  return combo;
}

QGroupBox* WallFrameBox(QWidget* parent, const Control& frame, const Control& list_label,
                        const Control& list, const Control* const (&percents)[8]) {
  auto* box = Named<QGroupBox>(parent, frame);
  auto* grid = new QGridLayout(box);
  grid->addWidget(Named<QLabel>(box, list_label), 0, 0);
  grid->addWidget(List(box, list, 2400), 0, 1, 1, 3);
  for (int row = 0; row < 2; ++row) {
    grid->addWidget(Named<QLabel>(box, *percents[row * 4]), row + 1, 0);
    grid->addWidget(Field(box, *percents[row * 4 + 1], 600), row + 1, 1);
    grid->addWidget(Named<QLabel>(box, *percents[row * 4 + 2]), row + 1, 2, Qt::AlignRight);
    grid->addWidget(Field(box, *percents[row * 4 + 3], 600), row + 1, 3);
  }
  grid->setColumnStretch(4, 1);
  return box;
}

QGroupBox* WinFrameBox(QWidget* parent, const Control& frame, const Control& window_label,
                       const Control& window, const Control& curtain_label,
                       const Control& curtain) {
  auto* box = Named<QGroupBox>(parent, frame);
  auto* grid = new QGridLayout(box);
  grid->addWidget(Named<QLabel>(box, window_label), 0, 0);
  grid->addWidget(List(box, window, 2200), 0, 1);
  grid->addWidget(Named<QLabel>(box, curtain_label), 1, 0);
  grid->addWidget(List(box, curtain, 2200), 1, 1);
  grid->setRowStretch(2, 1);
  return box;
}

QWidget* GeometryFrame(QWidget* parent, Surface& s) {
  auto* box = Named<QGroupBox>(parent, s.Frame3D1);
  auto* grid = new QGridLayout(box);
  auto* shape_row = new QHBoxLayout;
  shape_row->addWidget(Named<QLabel>(box, s.LabelShape));
  shape_row->addWidget(List(box, s.Shape, 2600));
  auto* shapes = Named<QPushButton>(box, s.QShapes);
  shapes->setFixedWidth(Px(400));
  shape_row->addWidget(shapes);
  shape_row->addStretch();
  grid->addLayout(shape_row, 0, 0, 1, 6);

  grid->addWidget(Named<QLabel>(box, s.LabelZenith), 1, 0);
  auto* zenith = new QHBoxLayout;
  zenith->addWidget(Field(box, s.Zenith));
  zenith->addWidget(Named<QLabel>(box, s.UnitZenith));
  grid->addLayout(zenith, 1, 1);
  grid->addWidget(Named<QLabel>(box, s.LabelAzimuth), 1, 2, Qt::AlignRight);
  auto* azimuth = new QHBoxLayout;
  azimuth->addWidget(Field(box, s.Azimuth));
  azimuth->addWidget(Named<QLabel>(box, s.UnitAzimuth));
  grid->addLayout(azimuth, 1, 3);

  grid->addWidget(Named<QLabel>(box, s.LabelCorner), 2, 0);
  auto* corner = new QHBoxLayout;
  for (auto [label, input] :
       {std::pair<Control*, Control*>{&s.LabelX, &s.X}, {&s.LabelY, &s.Y}, {&s.LabelZ, &s.Z}}) {
    corner->addWidget(Named<QLabel>(box, *label));
    corner->addWidget(Field(box, *input));
  }
  corner->addStretch();
  grid->addLayout(corner, 2, 1, 1, 5);

  grid->addWidget(Named<QLabel>(box, s.LabelFront), 3, 0);
  auto* front = new QHBoxLayout;
  front->addWidget(Named<QLabel>(box, s.LabelFrontVolume));
  front->addWidget(List(box, s.front, 1300));
  grid->addLayout(front, 3, 1);
  grid->addWidget(Named<QLabel>(box, s.LabelBack), 3, 2, Qt::AlignRight);
  auto* back = new QHBoxLayout;
  back->addWidget(Named<QLabel>(box, s.LabelBackVolume));
  back->addWidget(List(box, s.back, 1300));
  grid->addLayout(back, 3, 3);

  grid->addWidget(Named<QLabel>(box, s.LabelDimensions), 4, 0);
  auto* dims = new QHBoxLayout;
  for (auto [label, input] : {std::pair<Control*, Control*>{&s.LabelA, &s.A},
                              {&s.LabelB, &s.B},
                              {&s.LabelC, &s.C},
                              {&s.LabelD, &s.D},
                              {&s.LabelE, &s.E},
                              {&s.LabelF, &s.F}}) {
    dims->addWidget(Named<QLabel>(box, *label));
    dims->addWidget(Field(box, *input, 700));
  }
  dims->addStretch();
  grid->addLayout(dims, 4, 1, 1, 5);
  grid->setColumnStretch(5, 1);
  return box;
}

}  // namespace

void BuildSurface(Form& form, QDialog& dialog, Session&) {
  auto& s = static_cast<Surface&>(form);
  auto* layout = new QHBoxLayout(&dialog);

  auto* left = new QVBoxLayout;
  auto* list = Named<QListWidget>(&dialog, s.SurfList);
  list->setFixedWidth(Px(2600));
  left->addWidget(list, 1);
  auto* edit = new QGridLayout;
  edit->addWidget(Named<QPushButton>(&dialog, s.Command3D1), 0, 0);
  edit->addWidget(Named<QPushButton>(&dialog, s.Command3D2), 0, 1);
  edit->addWidget(Named<QPushButton>(&dialog, s.Command3D3), 1, 0);
  edit->addWidget(Named<QPushButton>(&dialog, s.Command3D4), 1, 1);
  edit->addWidget(Named<QPushButton>(&dialog, s.Command3D5), 2, 0);
  edit->addWidget(Named<QPushButton>(&dialog, s.CheckSurfaces), 2, 1);
  left->addLayout(edit);
  layout->addLayout(left);

  auto* right = new QVBoxLayout;
  right->addWidget(GeometryFrame(&dialog, s));
  const Control* const main_percents[8] = {&s.LabelMAbsF, &s.M_AbsF, &s.LabelMAbsB, &s.M_AbsB,
                                           &s.LabelMEmmF, &s.M_EmmF, &s.LabelMEmmB, &s.M_EmmB};
  const Control* const hole_percents[8] = {&s.LabelHAbsF, &s.H_AbsF, &s.LabelHAbsB, &s.H_AbsB,
                                           &s.LabelHEmmF, &s.H_EmmF, &s.LabelHEmmB, &s.H_EmmB};
  auto* mains = new QHBoxLayout;
  mains->addWidget(WallFrameBox(&dialog, s.MainWallFrame, s.LabelMWall, s.M_Wall, main_percents),
                   3);
  mains->addWidget(
      WinFrameBox(&dialog, s.MainWinFrame, s.LabelMWind, s.M_Wind, s.LabelMMovIns, s.M_MovIns), 2);
  right->addLayout(mains);
  auto* holes = new QHBoxLayout;
  holes->addWidget(WallFrameBox(&dialog, s.HoleWallFrame, s.LabelHWall, s.H_Wall, hole_percents),
                   3);
  holes->addWidget(
      WinFrameBox(&dialog, s.HoleWinFrame, s.LabelHWind, s.H_Wind, s.LabelHMovIns, s.H_MovIns), 2);
  right->addLayout(holes);

  auto* leakage = new QHBoxLayout;
  auto* leakage_label = Named<QLabel>(&dialog, s.LabelLeakage);
  leakage_label->setMinimumWidth(Px(2300));
  leakage->addWidget(leakage_label);
  leakage->addWidget(Field(&dialog, s.Leakage, 700));
  auto* unit = Named<QLabel>(&dialog, s.UnitLeakage);
  unit->setMinimumWidth(Px(500));
  leakage->addWidget(unit);
  leakage->addSpacing(Px(300));
  leakage->addWidget(Named<QPushButton>(&dialog, s.Command4));
  leakage->addWidget(Named<QCheckBox>(&dialog, s.Excl));
  auto* excl = Named<QLabel>(&dialog, s.LabelExcl);
  excl->setWordWrap(true);
  leakage->addWidget(excl, 1);
  // The row keeps its places while the leakage or Assign is hidden.
  for (int i = 0; i < leakage->count(); ++i) {
    if (QWidget* widget = leakage->itemAt(i)->widget()) {
      QSizePolicy policy = widget->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      widget->setSizePolicy(policy);
    }
  }
  right->addLayout(leakage);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const Control* button : {&s.Command1, &s.Command2, &s.Command3}) {
    buttons->addWidget(Named<QPushButton>(&dialog, *button));
  }
  right->addLayout(buttons);
  layout->addLayout(right, 1);
}

}  // namespace zelmo::ui
