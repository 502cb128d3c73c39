// SPDX-License-Identifier: MIT
#include "tools/workbench/record_table_model.h"

#include <QColor>

#include "tools/workbench/values.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::Field;
using vellomar_host::FieldType;

RecordTableModel::RecordTableModel(const Field& field, Rows rows, QObject* parent)
    : QAbstractTableModel(parent), field_(field), columns_(ElementFields(field)), rows_kind_(rows) {
  if (rows == kOne) {
    rows_.push_back(Default());
  }
}

json RecordTableModel::Default() const {
  Field element = field_;
  element.is_array = false;
  return DefaultValue(element);
}

json RecordTableModel::value() const {
  return IsList() ? rows_ : rows_[0];
}

void RecordTableModel::SetValue(const json& value) {
  beginResetModel();
  const json given = IsList() ? value : json::array({value});
  rows_ = json::array();
  for (const json& element : given.is_array() ? given : json::array()) {
    json row = Default();
    if (row.is_object() && element.is_object()) {
      for (const Field& column : columns_) {
        row[column.name] = element.value(column.name, json());
      }
    } else if (!row.is_object()) {
      row = element;
    }
    rows_.push_back(std::move(row));
  }
  endResetModel();
}

void RecordTableModel::AddRow() {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  rows_.push_back(Default());
  endInsertRows();
  Changed();
}

void RecordTableModel::RemoveRow(int row) {
  if (row < 0 || row >= rowCount()) {
    return;
  }
  beginRemoveRows({}, row, row);
  rows_.erase(static_cast<std::size_t>(row));
  endRemoveRows();
  Changed();
}

int RecordTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RecordTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

const Field& RecordTableModel::FieldAt(const QModelIndex& index) const {
  return columns_[static_cast<std::size_t>(index.column())];
}

const json& RecordTableModel::Cell(const QModelIndex& index) const {
  const json& row = rows_[static_cast<std::size_t>(index.row())];
  return row.is_object() ? row.at(FieldAt(index).name) : row;
}

json& RecordTableModel::Cell(const QModelIndex& index) {
  return const_cast<json&>(std::as_const(*this).Cell(index));
}

QVariant RecordTableModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const Field& field = FieldAt(index);
  const json& value = Cell(index);
  const bool is_check = field.type == FieldType::kFlag && value.is_boolean();
  if (role == Qt::CheckStateRole && is_check) {
    return value.get<bool>() ? Qt::Checked : Qt::Unchecked;
  }
  if ((role == Qt::DisplayRole && !is_check) || role == Qt::EditRole) {
    return ToText(value);
  }
  if (role == Qt::ToolTipRole || role == Qt::BackgroundRole) {
    const auto fault = FindFault(field, value);
    if (!fault) {
      return {};
    }
    return role == Qt::ToolTipRole ? QVariant(QString::fromStdString(*fault))
                                   : QVariant(QColor(255, 205, 200));
  }
  return {};
}

bool RecordTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return false;
  }
  if (role == Qt::CheckStateRole) {
    Cell(index) = value.toInt() == Qt::Checked;
  } else if (role == Qt::EditRole) {
    Cell(index) = FromText(FieldAt(index), value.toString().toStdString());
  } else {
    return false;
  }
  emit dataChanged(index, index);
  Changed();
  return true;
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) {
    return {};
  }
  if (orientation == Qt::Vertical) {
    return section + 1;
  }
  return QString::fromStdString(columns_[static_cast<std::size_t>(section)].name);
}

Qt::ItemFlags RecordTableModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) {
    return Qt::NoItemFlags;
  }
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
  const bool is_check = FieldAt(index).type == FieldType::kFlag && Cell(index).is_boolean();
  return flags | (is_check ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

void RecordTableModel::Changed() const {
  if (on_changed) {
    on_changed();
  }
}

}  // namespace vellomar_workbench
