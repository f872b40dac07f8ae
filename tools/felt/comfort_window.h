// TrvComf's window: the conditions of the comfort calculation to set and
// compute again, the hours of the comfort volume in each category of ISO
// 7730 or EN 16798-1, the hours above a chosen PPD, and the PMV over the year.
#pragma once

#include <QChartView>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>
#include <QWidget>
#include <string>

#include "tools/results/comfort.h"

namespace zelmo::felt {

class ComfortWindow : public QWidget {
 public:
  ComfortWindow(std::string case_folder, results::ComfortResult result);

  // Writes the conditions to FELT.INP, computes Felt.GGG again and shows it;
  // false, with the message shown, when that fails.
  bool Recalculate();
  // The text of the hours above the chosen PPD.
  QString AboveText() const;

  QComboBox* scheme() const { return scheme_; }
  QTableWidget* categories() const { return categories_; }
  QDoubleSpinBox* ppd_limit() const { return ppd_limit_; }
  QLabel* above() const { return above_; }
  QChart* chart() const { return chart_; }
  QDoubleSpinBox* met() const { return met_; }
  QDoubleSpinBox* humidity() const { return humidity_; }
  const results::ComfortResult& result() const { return result_; }

 private:
  void ShowResult();
  void ShowCategories();
  void ShowSettings(const results::ComfortSettings& settings);
  results::ComfortSettings Settings() const;

  std::string case_folder_;
  results::ComfortResult result_;
  QLabel* heading_;
  QComboBox* scheme_;
  QTableWidget* categories_;
  QDoubleSpinBox* ppd_limit_;
  QLabel* above_;
  QLabel* outside_;
  QChart* chart_;
  QDoubleSpinBox* met_;
  QDoubleSpinBox* clo_winter_;
  QDoubleSpinBox* clo_summer_;
  QSpinBox* summer_from_;
  QSpinBox* summer_to_;
  QDoubleSpinBox* speed_;
  QDoubleSpinBox* humidity_;
};

}  // namespace zelmo::felt
