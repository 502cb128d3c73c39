// SPDX-License-Identifier: MIT
#include "tools/workbench/command_panel.h"

#include <QSplitter>
#include <QVBoxLayout>

#include "tools/workbench/values.h"

namespace vellomar_workbench {

CommandPanel::CommandPanel(WatchedPlugin& watched, QWidget* parent)
    : QWidget(parent),
      watched_(watched),
      search_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      area_(new QScrollArea(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  search_->setPlaceholderText("Search a command or a field (Ctrl+K)");
  search_->setClearButtonEnabled(true);
  layout->addWidget(search_);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->addWidget(list_);
  splitter->addWidget(area_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({200, 300});
  layout->addWidget(splitter);
  area_->setWidgetResizable(true);
  area_->setFrameShape(QFrame::NoFrame);
  for (const auto& command : vellomar_host::Commands()) {
    auto* item = new QListWidgetItem(
        QString::fromUtf8(command.name.data(), static_cast<qsizetype>(command.name.size())), list_);
    item->setToolTip(QString("%1, %2")
                         .arg(command.id)
                         .arg(QString::fromUtf8(command.fields.data(),
                                                static_cast<qsizetype>(command.fields.size()))));
  }
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { list_->setFocus(); });
  connect(list_, &QListWidget::currentTextChanged, this,
          [this](const QString& command) { ShowForm(command); });
  watched_.AddEntryListener([this](const auto& entry) { OnEntry(entry); });
  list_->setCurrentRow(0);
}

void CommandPanel::FocusSearch() {
  search_->setFocus();
  search_->selectAll();
}

void CommandPanel::Choose(const QString& command) {
  const auto found = list_->findItems(command, Qt::MatchExactly);
  if (!found.isEmpty()) {
    list_->setCurrentItem(found.first());
  }
}

QString CommandPanel::chosen() const {
  return list_->currentItem() != nullptr ? list_->currentItem()->text() : QString();
}

void CommandPanel::SendChosen() {
  if (form_ != nullptr) {
    form_->Send();
  }
}

void CommandPanel::Filter(const QString& text) {
  QListWidgetItem* first = nullptr;
  for (int i = 0; i < list_->count(); ++i) {
    QListWidgetItem* item = list_->item(i);
    const bool fits = item->text().contains(text, Qt::CaseInsensitive) ||
                      item->toolTip().contains(text, Qt::CaseInsensitive);
    item->setHidden(!fits);
    if (fits && first == nullptr) {
      first = item;
    }
  }
  const QListWidgetItem* current = list_->currentItem();
  if (first != nullptr && (current == nullptr || current->isHidden())) {
    list_->setCurrentItem(first);
  }
}

void CommandPanel::ShowForm(const QString& name) {
  const std::string wanted = name.toStdString();
  const auto* command = vellomar_host::FindCommand(std::string_view(wanted));
  if (command == nullptr) {
    return;
  }
  form_ = new CommandForm(watched_, *command, area_);
  area_->setWidget(form_);  // deletes the one before
  const auto last = last_.find(wanted);
  if (last != last_.end()) {
    form_->Load(last->second);
  }
}

void CommandPanel::OnEntry(const vellomar_host::TranscriptEntry& entry) {
  const bool is_shown = form_ != nullptr && form_->command().name == entry.subject;
  if (entry.kind == "send") {
    last_[entry.subject] = entry.details;
    if (is_shown) {
      form_->Load(entry.details);
    }
  } else if (entry.kind == "answer" && is_shown) {
    form_->ShowResult("answer: " + ToText(entry.details), false);
  }
}

}  // namespace vellomar_workbench
