// SPDX-License-Identifier: MIT
// A table to read with a line to filter it above.
//
//   auto* panel = new TablePanel(filter, "Filter by name or key");
//   panel->on_filter = [&](const QString& text) { filter.SetText(text); };
#pragma once

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTableView>
#include <QWidget>
#include <functional>

namespace vellomar_workbench {

class TablePanel : public QWidget {
 public:
  TablePanel(QAbstractItemModel& model, const QString& placeholder, QWidget* parent = nullptr);

  QTableView& table() { return *table_; }
  QLineEdit& filter() { return *filter_; }
  // Beside the line.
  void AddTool(QWidget* widget) { tools_->addWidget(widget); }
  void SetWidths(const std::vector<int>& widths);

  std::function<void(const QString&)> on_filter;

 private:
  QLineEdit* filter_;
  QTableView* table_;
  QHBoxLayout* tools_;
};

}  // namespace vellomar_workbench
