// SPDX-License-Identifier: MIT
// A list of records, or one record, as an editable table: participants, devices, texts, rectangles.
//
//   RecordTableModel model(field, RecordTableModel::kList);
//   model.SetValue({{{"id", "mic-1"}, {"name", "Headset"}}});
//   model.on_changed = [&] { form.SetValue(index, model.value()); };
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <nlohmann/json.hpp>
#include <vector>

#include "host/abi/layout.h"

namespace vellomar_workbench {

class RecordTableModel : public QAbstractTableModel {
 public:
  enum Rows { kList, kOne };

  RecordTableModel(const vellomar_host::Field& field, Rows rows, QObject* parent = nullptr);

  // The list, or the one record. What is not of this shape is taken as an empty one.
  nlohmann::json value() const;
  void SetValue(const nlohmann::json& value);
  void AddRow();
  void RemoveRow(int row);
  bool IsList() const { return rows_kind_ == kList; }

  // After every change of a value by the user, not by SetValue.
  std::function<void()> on_changed;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const vellomar_host::Field& FieldAt(const QModelIndex& index) const;
  nlohmann::json& Cell(const QModelIndex& index);
  const nlohmann::json& Cell(const QModelIndex& index) const;
  nlohmann::json Default() const;
  void Changed() const;

  vellomar_host::Field field_;
  std::vector<vellomar_host::Field> columns_;
  Rows rows_kind_;
  nlohmann::json rows_ = nlohmann::json::array();  // complete elements
};

}  // namespace vellomar_workbench
