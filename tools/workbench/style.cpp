// SPDX-License-Identifier: MIT
#include "tools/workbench/style.h"

#include <QHeaderView>
#include <QScrollBar>
#include <memory>

namespace vellomar_workbench {

QLabel* MakeFaultLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setStyleSheet(kFaultStyle);
  label->setWordWrap(true);
  label->hide();
  return label;
}

void PrepareTable(QTableView& table, int stretched) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setShowGrid(false);
  table.setWordWrap(false);
  table.setAlternatingRowColors(true);
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 4);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  if (stretched >= 0) {
    table.horizontalHeader()->setSectionResizeMode(stretched, QHeaderView::Stretch);
  }
}

void FollowEnd(QTableView& table) {
  auto at_end = std::make_shared<bool>(true);
  const QScrollBar* bar = table.verticalScrollBar();
  QObject::connect(table.model(), &QAbstractItemModel::rowsAboutToBeInserted, &table,
                   [bar, at_end] { *at_end = bar->value() >= bar->maximum(); });
  QObject::connect(table.model(), &QAbstractItemModel::rowsInserted, &table, [&table, at_end] {
    if (*at_end) {
      QMetaObject::invokeMethod(&table, &QTableView::scrollToBottom, Qt::QueuedConnection);
    }
  });
}

}  // namespace vellomar_workbench
