#include "tools/rsdiagram/diagram_window.h"

#include <QDateTime>
#include <QDateTimeAxis>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineSeries>
#include <QMessageBox>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QValueAxis>
#include <QWheelEvent>
#include <algorithm>
#include <map>

#include "core/text_file.h"
#include "platform/qt_text.h"

namespace zelmo::rsdiagram {

using platform::Q;
using platform::S;

namespace {

const QString kTitle = "Line diagram";

QString AxisTitle(const std::string& unit) {
  if (unit == "C") return "Temperature [C]";
  if (unit == "W") return "Power [W]";
  return unit.empty() ? QString("Value") : "[" + Q(unit) + "]";
}

QString DateText(results::Date date) {
  return QString::number(date.day) + "." + QString::number(date.month);
}

}  // namespace

double ChartX(int hour_of_year) {
  QDateTime at(QDate(2001, 1, 1).addDays(hour_of_year / 24), QTime(hour_of_year % 24, 0));
  return static_cast<double>(at.toMSecsSinceEpoch());
}

ChartView::ChartView(QChart* chart) : QChartView(chart) {
  setRubberBand(QChartView::HorizontalRubberBand);
  setRenderHint(QPainter::Antialiasing);
  setFocusPolicy(Qt::StrongFocus);
}

void ChartView::wheelEvent(QWheelEvent* event) {
  chart()->zoom(event->angleDelta().y() > 0 ? 1.25 : 0.8);
  event->accept();
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      chart()->scroll(-chart()->plotArea().width() / 10, 0);
      break;
    case Qt::Key_Right:
      chart()->scroll(chart()->plotArea().width() / 10, 0);
      break;
    case Qt::Key_Plus:
      chart()->zoomIn();
      break;
    case Qt::Key_Minus:
      chart()->zoomOut();
      break;
    case Qt::Key_Home:
      chart()->zoomReset();
      break;
    default:
      QChartView::keyPressEvent(event);
  }
}

void ChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton ||
      (event->button() == Qt::LeftButton && (event->modifiers() & Qt::ControlModifier))) {
    panning_ = true;
    last_ = event->position();
    event->accept();
    return;
  }
  QChartView::mousePressEvent(event);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
  if (panning_) {
    QPointF delta = event->position() - last_;
    chart()->scroll(-delta.x(), delta.y());
    last_ = event->position();
    event->accept();
    return;
  }
  QChartView::mouseMoveEvent(event);
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
  if (panning_) {
    panning_ = false;
    event->accept();
    return;
  }
  QChartView::mouseReleaseEvent(event);
}

DiagramWindow::DiagramWindow(results::HourlyTable table, std::string case_folder)
    : table_(std::move(table)), case_folder_(std::move(case_folder)) {
  setWindowTitle(kTitle + " - " + Q(results::CaseTitle(case_folder_)));
  chart_ = new QChart;
  chart_->legend()->setAlignment(Qt::AlignBottom);
  view_ = new ChartView(chart_);
  view_->setMinimumSize(640, 420);

  columns_ = new QListWidget;
  for (const results::Column& column : table_.columns) {
    auto* item = new QListWidgetItem(Q(results::SeriesName(column)), columns_);
    item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    item->setCheckState(Qt::Unchecked);
  }
  for (int c : results::DefaultColumns(table_)) columns_->item(c)->setCheckState(Qt::Checked);
  columns_->setMinimumWidth(260);
  connect(columns_, &QListWidget::itemChanged, this, [this] { Redraw(); });

  kind_ = new QComboBox;
  kind_->addItems({"Day", "Week", "Month", "Year", "Dates"});
  kind_->setCurrentIndex(kYear);
  from_ = new QLineEdit("1.1");
  to_ = new QLineEdit("31.12");
  for (QLineEdit* edit : {from_, to_}) {
    edit->setMaximumWidth(70);
    edit->setToolTip("A date as day.month, for example 15.1");
  }
  month_ = new QComboBox;
  month_->addItems({"January", "February", "March", "April", "May", "June", "July", "August",
                    "September", "October", "November", "December"});
  connect(kind_, &QComboBox::currentIndexChanged, this, [this] { PeriodChanged(); });
  connect(month_, &QComboBox::currentIndexChanged, this, [this] { PeriodChanged(); });
  connect(from_, &QLineEdit::editingFinished, this, [this] { PeriodChanged(); });
  connect(to_, &QLineEdit::editingFinished, this, [this] { PeriodChanged(); });

  auto button = [this](const QString& text, auto action) {
    auto* b = new QPushButton(text);
    connect(b, &QPushButton::clicked, this, action);
    return b;
  };
  auto* period_row = new QHBoxLayout;
  period_row->addWidget(new QLabel("Period"));
  period_row->addWidget(kind_);
  period_row->addWidget(new QLabel("From"));
  period_row->addWidget(from_);
  period_row->addWidget(new QLabel("To"));
  period_row->addWidget(to_);
  period_row->addWidget(new QLabel("Month"));
  period_row->addWidget(month_);
  period_row->addStretch();

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(button("Zoom &in", [this] { ZoomIn(); }));
  buttons->addWidget(button("Zoom &out", [this] { chart_->zoomOut(); }));
  buttons->addWidget(button("&Whole period", [this] { ResetZoom(); }));
  buttons->addStretch();
  buttons->addWidget(button("Export &PNG...", [this] {
    QString file = QFileDialog::getSaveFileName(this, "Export the chart", "diagram.png",
                                                "PNG pictures (*.png)");
    if (!file.isEmpty() && !ExportPng(file)) {
      QMessageBox::warning(this, kTitle, "The chart cannot be written to " + file + ".");
    }
  }));
  buttons->addWidget(button("Export &CSV...", [this] {
    QString file = QFileDialog::getSaveFileName(this, "Export the shown data", "diagram.csv",
                                                "CSV tables (*.csv)");
    if (!file.isEmpty() && !ExportCsv(file)) {
      QMessageBox::warning(this, kTitle, "The data cannot be written to " + file + ".");
    }
  }));
  buttons->addWidget(button("&Close", [this] { close(); }));

  auto* left = new QVBoxLayout;
  left->addWidget(new QLabel("Quantities"));
  left->addWidget(columns_);
  left->addWidget(
      new QLabel("Drag a band to zoom, wheel to zoom,\narrow keys or Ctrl+drag to pan."));
  auto* right = new QVBoxLayout;
  right->addLayout(period_row);
  right->addWidget(view_, 1);
  right->addLayout(buttons);
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left);
  layout->addLayout(right, 1);
  resize(1200, 720);
  PeriodChanged();
}

std::vector<int> DiagramWindow::Chosen() const {
  std::vector<int> chosen;
  for (int i = 0; i < columns_->count(); ++i) {
    if (columns_->item(i)->checkState() == Qt::Checked) chosen.push_back(i);
  }
  return chosen;
}

void DiagramWindow::Choose(const std::vector<int>& columns) {
  quiet_ = true;
  for (int i = 0; i < columns_->count(); ++i) {
    bool on = std::find(columns.begin(), columns.end(), i) != columns.end();
    columns_->item(i)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
  }
  quiet_ = false;
  Redraw();
}

bool DiagramWindow::SetPeriod(Kind kind, const QString& from, const QString& to) {
  quiet_ = true;
  kind_->setCurrentIndex(kind);
  from_->setText(from);
  if (!to.isEmpty()) to_->setText(to);
  if (kind == kMonth) {
    if (auto date = results::ParseDate(S(from))) month_->setCurrentIndex(date->month - 1);
  }
  quiet_ = false;
  std::optional<results::Date> first = results::ParseDate(S(from_->text()));
  std::optional<results::Date> last = results::ParseDate(S(to_->text()));
  if ((kind == kDay || kind == kWeek || kind == kDates) && !first) {
    QMessageBox::warning(this, kTitle,
                         "\"" + from_->text() +
                             "\" is no date: write day.month, "
                             "for example 15.1.");
    return false;
  }
  if (kind == kDates && !last) {
    QMessageBox::warning(this, kTitle,
                         "\"" + to_->text() +
                             "\" is no date: write day.month, "
                             "for example 15.1.");
    return false;
  }
  switch (kind) {
    case kDay:
      period_ = results::DayPeriod(*first);
      break;
    case kWeek:
      period_ = results::WeekPeriod(*first);
      break;
    case kMonth:
      period_ = results::MonthPeriod(month_->currentIndex() + 1);
      break;
    case kYear:
      period_ = results::YearPeriod();
      break;
    case kDates:
      period_ = results::DatesPeriod(*first, *last);
      break;
  }
  Redraw();
  return true;
}

void DiagramWindow::PeriodChanged() {
  if (quiet_) return;
  const Kind kind = static_cast<Kind>(kind_->currentIndex());
  from_->setEnabled(kind == kDay || kind == kWeek || kind == kDates);
  to_->setEnabled(kind == kDates);
  month_->setEnabled(kind == kMonth);
  SetPeriod(kind, from_->text());
}

void DiagramWindow::Redraw() {
  if (quiet_) return;
  chart_->removeAllSeries();
  for (QAbstractAxis* axis : chart_->axes()) {
    chart_->removeAxis(axis);
    delete axis;
  }
  results::Date first = results::DateOfHour(period_.first_hour);
  results::Date last = results::DateOfHour(period_.last_hour);
  chart_->setTitle("<b>" + Q(results::CaseTitle(case_folder_)).toHtmlEscaped() + "</b><br>" +
                   DateText(first) + " - " + DateText(last));

  auto* x_axis = new QDateTimeAxis;
  const int span = period_.last_hour - period_.first_hour + 1;
  x_axis->setFormat(span <= 48 ? "d.M hh:mm" : "d.M");
  x_axis->setTickCount(span <= 48 ? 9 : (span <= 24 * 7 ? 8 : 13));
  x_axis->setTitleText("Date");
  x_axis->setRange(
      QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(ChartX(period_.first_hour - 1))),
      QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(ChartX(period_.last_hour))));
  chart_->addAxis(x_axis, Qt::AlignBottom);
  // A zoom to two days or less shows the hours.
  connect(x_axis, &QDateTimeAxis::rangeChanged, x_axis, [x_axis](QDateTime min, QDateTime max) {
    x_axis->setFormat(min.secsTo(max) <= 2 * 86400 ? "d.M hh:mm" : "d.M");
  });

  std::map<std::string, QValueAxis*> y_axes;
  std::map<std::string, std::pair<double, double>> ranges;
  for (const results::Series& line : results::BuildSeries(table_, Chosen(), period_)) {
    auto* series = new QLineSeries;
    series->setName(Q(line.name));
    for (const auto& [hour, value] : line.points) {
      series->append(ChartX(static_cast<int>(hour)), value);
      auto [it, added] = ranges.try_emplace(line.unit, value, value);
      it->second.first = std::min(it->second.first, value);
      it->second.second = std::max(it->second.second, value);
    }
    chart_->addSeries(series);
    series->attachAxis(x_axis);
    QValueAxis*& y = y_axes[line.unit];
    if (!y) {
      y = new QValueAxis;
      y->setTitleText(AxisTitle(line.unit));
      chart_->addAxis(y, y_axes.size() == 1 ? Qt::AlignLeft : Qt::AlignRight);
    }
    series->attachAxis(y);
  }
  for (auto& [unit, axis] : y_axes) {
    auto [low, high] = ranges.count(unit) ? ranges[unit] : std::pair<double, double>(0, 1);
    if (high - low < 1e-9) {
      low -= 1;
      high += 1;
    }
    axis->setRange(low, high);
    axis->applyNiceNumbers();
  }
}

void DiagramWindow::ZoomIn() { chart_->zoomIn(); }

void DiagramWindow::ResetZoom() { chart_->zoomReset(); }

bool DiagramWindow::ExportPng(const QString& file) { return view_->grab().save(file, "PNG"); }

bool DiagramWindow::ExportCsv(const QString& file) {
  std::string csv = results::SliceCsv(table_, Chosen(), period_);
  return WriteAllBytes(S(file), csv);
}

QString LoadFailureText(const std::string& user_text) {
  QString text = Q(user_text);
  text.replace('\r', '\n');
  return "The hourly results cannot be shown.\n" + text;
}

}  // namespace zelmo::rsdiagram
