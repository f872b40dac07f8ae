#include "tools/trvshow/viewer_window.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/text_file.h"

namespace zelmo::trvshow {

namespace {
const char* const kPointAt = "Point at an element to see its name and sides.";
}  // namespace

ViewerWindow::ViewerWindow(Dat1Building building)
    : view_(new BuildingView(this)),
      status_(new QLabel(kPointAt, this)),
      reset_(new QPushButton("&Reset view", this)),
      arrows_(new QCheckBox("&Arrows out of the front sides", this)),
      see_through_(new QCheckBox("&See through", this)) {
  setWindowTitle("View of building - " +
                 QString::fromUtf8(Utf8FromCp1252(building.headline)).trimmed());
  view_->SetBuilding(std::move(building));
  reset_->setObjectName("ResetView");
  arrows_->setObjectName("Arrows");
  arrows_->setChecked(true);
  see_through_->setObjectName("SeeThrough");
  status_->setObjectName("Status");
  auto* hint = new QLabel("Drag to turn, wheel to come nearer, R to reset.", this);

  auto* controls = new QHBoxLayout;
  controls->addWidget(reset_);
  controls->addWidget(arrows_);
  controls->addWidget(see_through_);
  controls->addStretch(1);
  controls->addWidget(hint);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(controls);
  layout->addWidget(view_, 1);
  layout->addWidget(status_);

  connect(reset_, &QPushButton::clicked, view_, [this] {
    view_->ResetView();
    view_->setFocus();
  });
  connect(arrows_, &QCheckBox::toggled, view_, [this](bool on) { view_->SetNormalsShown(on); });
  connect(see_through_, &QCheckBox::toggled, view_, [this](bool on) { view_->SetSeeThrough(on); });
  view_->on_hover = [this](const QString& text) {
    status_->setText(text.isEmpty() ? QString(kPointAt) : text);
  };
  resize(960, 700);
  view_->setFocus();
}

QString LoadFailureText(const std::string& user_text) {
  QString text = QString::fromUtf8(Utf8FromCp1252(user_text));
  text.replace('\r', '\n');
  return "The building cannot be shown.\n" + text;
}

}  // namespace zelmo::trvshow
