// SPDX-License-Identifier: MIT
// The button records as the widget library holds them, a row each. Fields that change are marked
// until the marks are cleared.
//
//   ButtonModel model;
//   model.Update(driver->button);
//   model.ClearMarks();  // some time later
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QString>
#include <array>
#include <bitset>
#include <functional>

#include "vellomar/lorimel.h"
#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_workbench {

class ButtonModel : public QAbstractTableModel {
 public:
  enum Column {
    kKey,
    kName,
    kText,
    kStatus,
    kSubLabel,
    kValueText,
    kToolTip,
    kSecondToolTip,
    kIconPath,
    kExtraText,
    kHasExpand,
    kGroupValue,
    kObjectName,
    kColumns
  };

  using Lookup = std::function<bool(std::int32_t key, LorimelButton* out)>;

  explicit ButtonModel(QObject* parent = nullptr);

  // Reads all records. What was not there before is not marked.
  void Update(const Lookup& lookup);
  void ClearMarks();
  bool HasMarks() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    bool known = false;  // the library has a record
    std::int32_t status = 0;
    std::array<QString, kColumns> cells;
    std::bitset<kColumns> marked;
  };

  static Row Describe(std::int32_t key, const LorimelButton* button);

  std::array<Row, VELLOMAR_LORIMEL::kKeyCount> rows_;
};

// Rows whose key, name or label contains the text.
class ButtonFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetText(const QString& text);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  QString text_;
};

}  // namespace vellomar_workbench
