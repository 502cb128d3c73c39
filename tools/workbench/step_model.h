// SPDX-License-Identifier: MIT
// The steps of a scenario as a table, with what became of each.
//
//   StepModel model;
//   model.SetSteps({{4, "{\"send\":...}"}});
//   model.SetState(0, StepModel::State::kFailed, "no muteAudio within 5000 ms");
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <string>
#include <utility>
#include <vector>

namespace vellomar_workbench {

class StepModel : public QAbstractTableModel {
 public:
  enum class State { kWaiting, kRunning, kDone, kFailed };
  enum Column { kLine, kStep, kResult, kColumns };

  using QAbstractTableModel::QAbstractTableModel;

  // Line in the file and text of each; all waiting.
  void SetSteps(const std::vector<std::pair<int, std::string>>& steps);
  void Reset();
  void SetState(std::size_t step, State state, const std::string& message = "");

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    int line;
    QString text;
    State state = State::kWaiting;
    QString message;
  };

  std::vector<Row> rows_;
};

}  // namespace vellomar_workbench
