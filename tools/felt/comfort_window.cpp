#include "tools/felt/comfort_window.h"

#include <QDateTime>
#include <QDateTimeAxis>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineSeries>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

#include "core/text_file.h"
#include "platform/qt_text.h"
#include "tools/results/diagram.h"
#include "tools/rsdiagram/diagram_window.h"

namespace zelmo::felt {

using platform::Q;

namespace {

QDoubleSpinBox* Spin(double low, double high, double step, int decimals, const QString& suffix) {
  auto* spin = new QDoubleSpinBox;
  spin->setRange(low, high);
  spin->setSingleStep(step);
  spin->setDecimals(decimals);
  spin->setSuffix(suffix);
  return spin;
}

QSpinBox* MonthSpin() {
  auto* spin = new QSpinBox;
  spin->setRange(1, 12);
  return spin;
}

}  // namespace

ComfortWindow::ComfortWindow(std::string case_folder, results::ComfortResult result)
    : case_folder_(std::move(case_folder)), result_(std::move(result)) {
  setWindowTitle("Thermal comfort - " + Q(results::CaseTitle(case_folder_)));

  met_ = Spin(0.8, 4, 0.1, 2, " met");
  clo_winter_ = Spin(0, 2, 0.1, 2, " clo");
  clo_summer_ = Spin(0, 2, 0.1, 2, " clo");
  summer_from_ = MonthSpin();
  summer_to_ = MonthSpin();
  speed_ = Spin(0, 1, 0.05, 2, " m/s");
  humidity_ = Spin(0, 100, 5, 0, " %");
  auto* conditions = new QGroupBox("Conditions");
  auto* form = new QFormLayout(conditions);
  form->addRow("Activity", met_);
  form->addRow("Clothing in winter", clo_winter_);
  form->addRow("Clothing in summer", clo_summer_);
  form->addRow("Summer from month", summer_from_);
  form->addRow("Summer to month", summer_to_);
  form->addRow("Air speed", speed_);
  form->addRow("Relative humidity", humidity_);
  auto* recalculate = new QPushButton("&Recalculate");
  connect(recalculate, &QPushButton::clicked, this, [this] { Recalculate(); });
  form->addRow(recalculate);
  auto* note = new QLabel(
      "PMV and PPD by ISO 7730 from the hourly air and mean radiant temperatures of the "
      "comfort volume. Defaults: 1.2 met (seated office work), 1.0 clo in winter, 0.5 clo "
      "from May to September, 0.1 m/s, 50 %.");
  note->setWordWrap(true);
  form->addRow(note);

  heading_ = new QLabel;
  scheme_ = new QComboBox;
  scheme_->addItems({"ISO 7730 categories A, B, C", "EN 16798-1 categories I to IV"});
  connect(scheme_, &QComboBox::currentIndexChanged, this, [this] { ShowCategories(); });
  categories_ = new QTableWidget(0, 4);
  categories_->setHorizontalHeaderLabels({"Category", "Limits", "Hours", "Share"});
  categories_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  categories_->verticalHeader()->hide();
  categories_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  categories_->setMinimumHeight(170);
  ppd_limit_ = Spin(5, 100, 1, 1, " %");
  ppd_limit_->setValue(10);
  above_ = new QLabel;
  outside_ = new QLabel;
  connect(ppd_limit_, &QDoubleSpinBox::valueChanged, this,
          [this] { above_->setText(AboveText()); });
  auto* ppd_row = new QHBoxLayout;
  ppd_row->addWidget(new QLabel("Hours with PPD above"));
  ppd_row->addWidget(ppd_limit_);
  ppd_row->addWidget(above_, 1);

  chart_ = new QChart;
  chart_->legend()->hide();
  auto* view = new rsdiagram::ChartView(chart_);
  view->setMinimumSize(560, 300);
  auto* close = new QPushButton("&Close");
  connect(close, &QPushButton::clicked, this, [this] { this->close(); });

  auto* right = new QVBoxLayout;
  right->addWidget(heading_);
  right->addWidget(scheme_);
  right->addWidget(categories_);
  right->addLayout(ppd_row);
  right->addWidget(outside_);
  right->addWidget(view, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(close);
  right->addLayout(buttons);
  auto* left = new QVBoxLayout;
  left->addWidget(conditions);
  left->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left);
  layout->addLayout(right, 1);
  resize(1150, 760);
  ShowSettings(result_.settings);
  ShowResult();
}

void ComfortWindow::ShowSettings(const results::ComfortSettings& s) {
  met_->setValue(s.met);
  clo_winter_->setValue(s.clo_winter);
  clo_summer_->setValue(s.clo_summer);
  summer_from_->setValue(s.summer_from);
  summer_to_->setValue(s.summer_to);
  speed_->setValue(s.air_speed);
  humidity_->setValue(s.humidity);
}

results::ComfortSettings ComfortWindow::Settings() const {
  results::ComfortSettings s;
  s.met = met_->value();
  s.clo_winter = clo_winter_->value();
  s.clo_summer = clo_summer_->value();
  s.summer_from = summer_from_->value();
  s.summer_to = summer_to_->value();
  s.air_speed = speed_->value();
  s.humidity = humidity_->value();
  return s;
}

bool ComfortWindow::Recalculate() {
  std::string problem;
  if (!results::WriteComfortSettings(case_folder_, Settings())) {
    problem = "The conditions cannot be written to " +
              JoinPath(case_folder_, results::kComfortSettingsFile) + ".";
  } else {
    problem = results::WriteComfortResult(case_folder_);
  }
  if (problem.empty()) {
    try {
      result_ = results::ReadComfortResult(JoinPath(case_folder_, results::kComfortResultFile));
    } catch (const FileError& error) {
      problem = error.UserText();
    }
  }
  if (!problem.empty()) {
    QString text = Q(problem);
    text.replace('\r', '\n');
    QMessageBox::warning(this, "Comfort", text);
    return false;
  }
  ShowResult();
  return true;
}

QString ComfortWindow::AboveText() const {
  int hours = results::HoursAbovePpd(result_.hours, ppd_limit_->value());
  return QString(": %1 of %2 hours").arg(hours).arg(result_.hours.size());
}

void ComfortWindow::ShowCategories() {
  auto scheme = scheme_->currentIndex() == 0 ? results::ComfortScheme::kIso7730
                                             : results::ComfortScheme::kEn16798;
  std::vector<results::CategoryHours> counts = results::CountCategories(result_.hours, scheme);
  categories_->setRowCount(static_cast<int>(counts.size()));
  const double total = std::max<size_t>(result_.hours.size(), 1);
  for (int row = 0; row < static_cast<int>(counts.size()); ++row) {
    const auto& c = counts[row];
    QStringList cells = {Q(c.name), Q(c.limits), QString::number(c.hours),
                         QString::number(100.0 * c.hours / total, 'f', 1) + " %"};
    for (int col = 0; col < 4; ++col) {
      auto* item = new QTableWidgetItem(cells[col]);
      if (col >= 2) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      categories_->setItem(row, col, item);
    }
  }
}

void ComfortWindow::ShowResult() {
  heading_->setText(
      QString("<b>Volume %1</b> - %2 hours").arg(result_.volume).arg(result_.hours.size()));
  ShowCategories();
  above_->setText(AboveText());
  int outside = results::HoursOutsideRange(result_.hours);
  outside_->setText(
      outside == 0
          ? QString(
                "All hours lie within the range of ISO 7730 (air 10 to 30 C, radiant 10 to 40 C).")
          : QString("%1 hours lie outside the range of ISO 7730 (air 10 to 30 C, radiant 10 to "
                    "40 C): their indices are extrapolated.")
                .arg(outside));

  chart_->removeAllSeries();
  for (QAbstractAxis* axis : chart_->axes()) {
    chart_->removeAxis(axis);
    delete axis;
  }
  chart_->setTitle("PMV of volume " + QString::number(result_.volume));
  auto* series = new QLineSeries;
  series->setName("PMV");
  double low = -1, high = 1;
  for (const results::ComfortHour& hour : result_.hours) {
    series->append(rsdiagram::ChartX(results::HourOfYear(hour.stamp)), hour.pmv);
    low = std::min(low, hour.pmv);
    high = std::max(high, hour.pmv);
  }
  chart_->addSeries(series);
  auto* x = new QDateTimeAxis;
  x->setFormat("d.M");
  x->setTickCount(13);
  x->setTitleText("Date");
  if (!result_.hours.empty()) {
    x->setRange(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(
                    rsdiagram::ChartX(results::HourOfYear(result_.hours.front().stamp) - 1))),
                QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(
                    rsdiagram::ChartX(results::HourOfYear(result_.hours.back().stamp)))));
  }
  auto* y = new QValueAxis;
  y->setTitleText("PMV");
  y->setRange(low, high);
  y->applyNiceNumbers();
  chart_->addAxis(x, Qt::AlignBottom);
  chart_->addAxis(y, Qt::AlignLeft);
  series->attachAxis(x);
  series->attachAxis(y);
}

}  // namespace zelmo::felt
