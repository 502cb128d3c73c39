// SPDX-License-Identifier: MIT
// A scenario's steps with what became of each, the buttons to play them, and the recording of what
// was done, to save.
//
//   auto* panel = new ScenarioPanel(watched, run);
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QWidget>

#include "tools/workbench/scenario_run.h"

namespace vellomar_workbench {

class ScenarioPanel : public QWidget {
 public:
  ScenarioPanel(WatchedPlugin& watched, ScenarioRun& run, QWidget* parent = nullptr);

  void ShowFault(const QString& text);  // empty: none
  void SetSpeed(int index) { speed_->setCurrentIndex(index); }
  int speed() const { return speed_->currentIndex(); }
  void SetWithResults(bool on) { with_results_->setChecked(on); }
  bool with_results() const { return with_results_->isChecked(); }
  // Follow the run and the recording.
  void ShowRun();
  void ShowRecording();

  std::function<void()> on_open;
  std::function<void()> on_save;

 private:
  QWidget* MakePlayButtons();
  QWidget* MakeRecording();
  QPushButton* MakeButton(const QString& text, const QString& hint,
                          const std::function<void()>& clicked);

  WatchedPlugin& watched_;
  ScenarioRun& run_;
  QLabel* title_;
  QTableView* steps_;
  QPushButton* play_ = nullptr;
  QPushButton* step_ = nullptr;
  QPushButton* again_ = nullptr;
  QComboBox* speed_ = nullptr;
  QLabel* fault_;
  QLabel* recorded_ = nullptr;
  QCheckBox* with_results_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace vellomar_workbench
