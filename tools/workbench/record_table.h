// SPDX-License-Identifier: MIT
// A small table editor for a list of records, with buttons to add and remove rows; or for one
// record, without.
//
//   auto* table = new RecordTable(field, RecordTableModel::kList);
//   table->model().on_changed = [&] { ... };
#pragma once

#include <QTableView>
#include <QWidget>

#include "tools/workbench/record_table_model.h"

namespace vellomar_workbench {

class RecordTable : public QWidget {
 public:
  RecordTable(const vellomar_host::Field& field, RecordTableModel::Rows rows,
              QWidget* parent = nullptr);

  RecordTableModel& model() { return model_; }

 private:
  void AddButtons();
  void FitHeight();

  RecordTableModel model_;
  QTableView* view_;
};

}  // namespace vellomar_workbench
