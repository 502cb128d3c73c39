// SPDX-License-Identifier: MIT
// The plug-in's log as it is written. Trace scopes nest: the line that enters one is a row, what is
// written inside it is indented below, and the line that leaves it puts its cost on the first.
//
//   LogModel model;
//   model.Append(lines);
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <span>
#include <thread>
#include <vector>

#include "host/scenario/log_lines.h"

namespace vellomar_workbench {

class LogModel : public QAbstractTableModel {
 public:
  enum Column { kTime, kLevel, kText, kCost, kColumns };
  static constexpr int kLevelRole = Qt::UserRole;
  static constexpr std::size_t kMostRows = 50'000;  // the oldest go, a tenth at a time

  using QAbstractTableModel::QAbstractTableModel;

  void Append(std::span<const vellomar_host::LogLine> lines);
  void Clear();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    double seconds;  // since the first line
    int level;
    int depth;
    bool is_scope;
    QString text;  // a scope's name, or the line
    std::int64_t cost = -1;
  };
  using Number = std::uint64_t;  // of a row, counted from the beginning also when rows have gone

  // The row that the line makes; none for one that leaves a scope.
  std::optional<Row> Take(const vellomar_host::LogLine& line, Number number);
  bool Leave(std::vector<Number>& open, const vellomar_host::ScopeLine& scope);
  Row* RowAt(Number number);
  void RemoveOldest();

  std::deque<Row> rows_;
  std::vector<Row> arriving_;  // of the present Append, not yet among the rows
  Number removed_ = 0;         // rows that have gone
  std::optional<std::chrono::steady_clock::time_point> begin_;
  std::map<std::thread::id, std::vector<Number>> open_;  // scopes, the innermost last
};

// Lines from a level up that contain the text.
class LogFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetText(const QString& text);
  void SetLowestLevel(int level);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  QString text_;
  int lowest_ = 0;
};

}  // namespace vellomar_workbench
