// SPDX-License-Identifier: MIT
#include "tools/workbench/step_model.h"

#include <QColor>
#include <array>

namespace vellomar_workbench {
namespace {

constexpr std::array<const char*, StepModel::kColumns> kTitles = {"Line", "Step", "Result"};

}  // namespace

void StepModel::SetSteps(const std::vector<std::pair<int, std::string>>& steps) {
  beginResetModel();
  rows_.clear();
  for (const auto& [line, text] : steps) {
    rows_.push_back({line, QString::fromStdString(text), State::kWaiting, {}});
  }
  endResetModel();
}

void StepModel::Reset() {
  beginResetModel();
  for (Row& row : rows_) {
    row.state = State::kWaiting;
    row.message.clear();
  }
  endResetModel();
}

void StepModel::SetState(std::size_t step, State state, const std::string& message) {
  rows_[step].state = state;
  rows_[step].message = QString::fromStdString(message);
  const int row = static_cast<int>(step);
  emit dataChanged(index(row, 0), index(row, kColumns - 1));
}

int StepModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int StepModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant StepModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == Qt::BackgroundRole) {
    if (row.state == State::kFailed) {
      return QColor(255, 205, 200);
    }
    if (row.state == State::kRunning) {
      return QColor(205, 228, 255);
    }
    return {};
  }
  const bool is_marked = row.state == State::kFailed || row.state == State::kRunning;
  if (role == Qt::ForegroundRole && is_marked) {
    return QColor(Qt::black);
  }
  if (role == Qt::ToolTipRole) {
    return index.column() == kStep ? row.text : row.message;
  }
  if (role != Qt::DisplayRole) {
    return {};
  }
  switch (index.column()) {
    case kLine:
      return row.line;
    case kStep:
      return row.text;
    default:
      break;
  }
  if (!row.message.isEmpty()) {
    return row.message;
  }
  if (row.state == State::kDone) {
    return QString("done");
  }
  return row.state == State::kRunning ? QString("waits") : QString();
}

QVariant StepModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
    return {};
  }
  return QString(kTitles[static_cast<std::size_t>(section)]);
}

}  // namespace vellomar_workbench
