// SPDX-License-Identifier: MIT
#include "tools/workbench/button_model.h"

#include <QColor>

#include "host/abi/keys.h"
#include "tools/workbench/values.h"
#include "vellomar/lorimel.h"

namespace vellomar_workbench {
namespace {

using VELLOMAR_LORIMEL::kFirstKey;
using VELLOMAR_LORIMEL::kKeyCount;

constexpr std::array<const char*, ButtonModel::kColumns> kTitles = {
    "Key",          "Name",      "Text",       "Status",  "Sub-label", "Value text", "Tool tip",
    "2nd tool tip", "Icon path", "Extra text", "Expands", "Group",     "Object name"};

const QColor kMarkColor(255, 236, 150);

}  // namespace

ButtonModel::ButtonModel(QObject* parent) : QAbstractTableModel(parent) {
  for (int i = 0; i < kKeyCount; ++i) {
    rows_[static_cast<std::size_t>(i)] = Describe(kFirstKey + i, nullptr);
  }
}

ButtonModel::Row ButtonModel::Describe(std::int32_t key, const LorimelButton* button) {
  Row row;
  const std::string name = vellomar_host::KeyName(key);
  row.cells[kKey] = QString::number(key);
  if (name != std::to_string(key)) {
    row.cells[kName] = QString::fromStdString(name);
  }
  if (button == nullptr) {
    return row;
  }
  row.known = true;
  row.status = button->status;
  row.cells[kText] = QString::fromUtf8(button->text);
  row.cells[kStatus] = StatusText(button->status);
  row.cells[kSubLabel] = QString::fromUtf8(button->subLabel);
  row.cells[kValueText] = QString::fromUtf8(button->valueText);
  row.cells[kToolTip] = QString::fromUtf8(button->toolTip);
  row.cells[kSecondToolTip] = QString::fromUtf8(button->secondToolTip);
  row.cells[kIconPath] = QString::fromUtf8(button->iconPath);
  row.cells[kExtraText] = QString::fromUtf8(button->extraText);
  row.cells[kHasExpand] = button->hasExpand ? "yes" : "no";
  row.cells[kGroupValue] = QString::number(button->groupValue);
  row.cells[kObjectName] = QString::fromUtf8(button->objectName);
  return row;
}

void ButtonModel::Update(const Lookup& lookup) {
  for (int i = 0; i < kKeyCount; ++i) {
    Row& row = rows_[static_cast<std::size_t>(i)];
    LorimelButton button{};
    const bool known = lookup(kFirstKey + i, &button);
    Row now = Describe(kFirstKey + i, known ? &button : nullptr);
    if (now.known == row.known && now.cells == row.cells) {
      continue;
    }
    if (row.known && now.known) {
      now.marked = row.marked;
      for (std::size_t column = 0; column < kColumns; ++column) {
        if (now.cells[column] != row.cells[column]) {
          now.marked.set(column);
        }
      }
    }
    row = std::move(now);
    emit dataChanged(index(i, 0), index(i, kColumns - 1));
  }
}

void ButtonModel::ClearMarks() {
  for (int i = 0; i < kKeyCount; ++i) {
    Row& row = rows_[static_cast<std::size_t>(i)];
    if (row.marked.none()) {
      continue;
    }
    row.marked.reset();
    emit dataChanged(index(i, 0), index(i, kColumns - 1));
  }
}

bool ButtonModel::HasMarks() const {
  for (const Row& row : rows_) {
    if (row.marked.any()) {
      return true;
    }
  }
  return false;
}

int ButtonModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kKeyCount;
}

int ButtonModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant ButtonModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole) {
    return row.cells[column];
  }
  if (role == Qt::ToolTipRole && row.cells[column].size() > 12) {
    return row.cells[column];
  }
  if (role == Qt::BackgroundRole && row.marked.test(column)) {
    return kMarkColor;
  }
  if (role == Qt::ForegroundRole) {
    if (row.marked.test(column)) {
      return QColor(Qt::black);
    }
    const bool faint = !row.known || (row.status & VELLOMAR_LORIMEL::kStatusHidden) != 0;
    if (faint) {
      return QColor(128, 128, 128);
    }
  }
  return {};
}

QVariant ButtonModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
    return {};
  }
  return QString(kTitles[static_cast<std::size_t>(section)]);
}

void ButtonFilter::SetText(const QString& text) {
  text_ = text;
  invalidateFilter();
}

bool ButtonFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  if (text_.isEmpty()) {
    return true;
  }
  for (const int column : {ButtonModel::kKey, ButtonModel::kName, ButtonModel::kText}) {
    const QString cell = sourceModel()->index(row, column, parent).data().toString();
    if (cell.contains(text_, Qt::CaseInsensitive)) {
      return true;
    }
  }
  return false;
}

}  // namespace vellomar_workbench
