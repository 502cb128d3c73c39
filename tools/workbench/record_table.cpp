// SPDX-License-Identifier: MIT
#include "tools/workbench/record_table.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace vellomar_workbench {
namespace {

constexpr int kMostRowsShown = 6;
constexpr int kFewColumns = 4;  // so many share the width, more are scrolled

}  // namespace

RecordTable::RecordTable(const vellomar_host::Field& field, RecordTableModel::Rows rows,
                         QWidget* parent)
    : QWidget(parent), model_(field, rows), view_(new QTableView(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(view_);
  view_->setModel(&model_);
  view_->setEditTriggers(QAbstractItemView::AllEditTriggers);
  view_->setAccessibleName(QString::fromStdString(field.name));
  if (model_.columnCount() <= kFewColumns) {
    view_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  }
  view_->verticalHeader()->setVisible(model_.IsList());
  view_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  if (model_.IsList()) {
    AddButtons();
  }
  for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
    connect(&model_, signal, this, [this] { FitHeight(); });
  }
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { FitHeight(); });
  FitHeight();
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void RecordTable::AddButtons() {
  auto* row = new QHBoxLayout;
  auto* add = new QPushButton("Add", this);
  auto* remove = new QPushButton("Remove", this);
  for (QPushButton* button : {add, remove}) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  row->addStretch();
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(add, &QPushButton::clicked, this, [this] {
    model_.AddRow();
    view_->setCurrentIndex(model_.index(model_.rowCount() - 1, 0));
  });
  connect(remove, &QPushButton::clicked, this,
          [this] { model_.RemoveRow(view_->currentIndex().row()); });
}

void RecordTable::FitHeight() {
  const int rows = std::clamp(model_.rowCount(), model_.IsList() ? 2 : 1, kMostRowsShown);
  const bool scrolls = model_.columnCount() > kFewColumns;
  view_->setFixedHeight(view_->horizontalHeader()->sizeHint().height() +
                        rows * view_->verticalHeader()->defaultSectionSize() +
                        (scrolls ? view_->horizontalScrollBar()->sizeHint().height() : 0) +
                        2 * view_->frameWidth());
}

}  // namespace vellomar_workbench
