// The line diagram's window: the columns of the case's hourly table to tick
// on the left, the period above the chart (a day, a week, a month, the year
// or two dates), the chart with its axes, units, legend and title, and the
// buttons to zoom, export the chart as PNG and the shown data as CSV.
#pragma once

#include <QChartView>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>
#include <string>
#include <vector>

#include "tools/results/diagram.h"

namespace zelmo::rsdiagram {

// The chart's x value of an hour of the year: the end of the hour as
// milliseconds since the epoch in a year without 29 February.
double ChartX(int hour_of_year);

// A chart view that zooms with the wheel and a dragged band, and pans with
// the arrow keys or a drag with the middle button or Ctrl held.
class ChartView : public QChartView {
 public:
  explicit ChartView(QChart* chart);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool panning_ = false;
  QPointF last_;
};

class DiagramWindow : public QWidget {
 public:
  DiagramWindow(results::HourlyTable table, std::string case_folder);

  // Ticks exactly these columns and draws again.
  void Choose(const std::vector<int>& columns);
  // The period kinds in the order of the combo box.
  enum Kind { kDay, kWeek, kMonth, kYear, kDates };
  // Sets the period from its kind and the dates (d.m); false, with the
  // message shown, when a date cannot be read.
  bool SetPeriod(Kind kind, const QString& from, const QString& to = {});
  void ZoomIn();
  void ResetZoom();
  bool ExportPng(const QString& file);
  bool ExportCsv(const QString& file);

  QChart* chart() const { return chart_; }
  ChartView* view() const { return view_; }
  QListWidget* columns() const { return columns_; }
  const results::Period& period() const { return period_; }
  std::vector<int> Chosen() const;

 private:
  void Redraw();
  void PeriodChanged();

  results::HourlyTable table_;
  std::string case_folder_;
  results::Period period_ = results::YearPeriod();
  QChart* chart_;
  ChartView* view_;
  QListWidget* columns_;
  QComboBox* kind_;
  QLineEdit* from_;
  QLineEdit* to_;
  QComboBox* month_;
  bool quiet_ = false;
};

// The text a user is shown for a table that cannot be read.
QString LoadFailureText(const std::string& user_text);

}  // namespace zelmo::rsdiagram
