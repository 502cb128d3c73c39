// SPDX-License-Identifier: MIT
#include "tools/workbench/table_panel.h"

#include <QVBoxLayout>

namespace vellomar_workbench {

TablePanel::TablePanel(QAbstractItemModel& model, const QString& placeholder, QWidget* parent)
    : QWidget(parent),
      filter_(new QLineEdit(this)),
      table_(new QTableView(this)),
      tools_(new QHBoxLayout) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  filter_->setPlaceholderText(placeholder);
  filter_->setClearButtonEnabled(true);
  tools_->addWidget(filter_, 1);
  layout->addLayout(tools_);
  layout->addWidget(table_, 1);
  table_->setModel(&model);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (on_filter) {
      on_filter(text);
    }
  });
}

void TablePanel::SetWidths(const std::vector<int>& widths) {
  for (std::size_t i = 0; i < widths.size(); ++i) {
    table_->setColumnWidth(static_cast<int>(i), widths[i]);
  }
}

}  // namespace vellomar_workbench
