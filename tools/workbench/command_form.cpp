// SPDX-License-Identifier: MIT
#include "tools/workbench/command_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "tools/workbench/record_table.h"
#include "tools/workbench/style.h"
#include "tools/workbench/values.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::Field;
using vellomar_host::FieldType;

namespace {

QString Label(const Field& field) {
  const std::string_view type = vellomar_host::TypeName(field.type);
  return QString("<b>%1</b><br/><small>%2%3</small>")
      .arg(QString::fromStdString(field.name),
           QString::fromUtf8(type.data(), static_cast<qsizetype>(type.size())),
           field.is_array ? "[]" : "");
}

}  // namespace

CommandForm::CommandForm(WatchedPlugin& watched, const vellomar_host::Command& command,
                         QWidget* parent)
    : QWidget(parent),
      watched_(watched),
      model_(command),
      send_(new QPushButton(this)),
      result_(new QLabel(this)) {
  const QString name =
      QString::fromUtf8(command.name.data(), static_cast<qsizetype>(command.name.size()));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  auto* fields = new QFormLayout;
  fields->setRowWrapPolicy(QFormLayout::WrapLongRows);
  for (std::size_t i = 0; i < model_.fields().size(); ++i) {
    AddField(*fields, i);
  }
  layout->addLayout(fields);
  send_->setText("Send " + name);
  send_->setAutoDefault(false);
  layout->addWidget(send_);
  result_->setWordWrap(true);
  result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(result_);
  layout->addStretch(1);
  connect(send_, &QPushButton::clicked, this, [this] { Send(); });
  ShowFaults();
}

void CommandForm::AddField(QFormLayout& layout, std::size_t index) {
  const Field& field = model_.fields()[index];
  auto* cell = new QWidget(this);
  auto* column = new QVBoxLayout(cell);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(1);
  Editor editor = {nullptr, MakeFaultLabel(cell)};
  QWidget* widget = MakeEditor(index, editor);
  widget->setObjectName(QString::fromStdString(field.name));
  column->addWidget(widget);
  column->addWidget(editor.fault);
  editors_.push_back(std::move(editor));
  auto* label = new QLabel(Label(field), this);
  label->setBuddy(widget);
  const bool is_table = field.is_array || IsRecord(field);
  if (is_table) {
    layout.addRow(label);
    layout.addRow(cell);
  } else {
    layout.addRow(label, cell);
  }
}

QWidget* CommandForm::MakeEditor(std::size_t index, Editor& editor) {
  const Field& field = model_.fields()[index];
  if (field.is_array || IsRecord(field)) {
    return MakeTable(index, editor);
  }
  if (field.type == FieldType::kFlag) {
    return MakeCheckBox(index, editor);
  }
  return TakesKeys(field) ? MakeKeyChoice(index, editor) : MakeLine(index, editor);
}

QWidget* CommandForm::MakeTable(std::size_t index, Editor& editor) {
  const Field& field = model_.fields()[index];
  auto* table = new RecordTable(
      field, field.is_array ? RecordTableModel::kList : RecordTableModel::kOne, this);
  RecordTableModel& model = table->model();
  model.on_changed = [this, index, &model] { Changed(index, model.value()); };
  editor.show = [&model](const json& value) {
    if (model.value() != value) {
      model.SetValue(value);
    }
  };
  return table;
}

QWidget* CommandForm::MakeCheckBox(std::size_t index, Editor& editor) {
  auto* box = new QCheckBox(this);
  connect(box, &QCheckBox::toggled, this, [this, index](bool on) { Changed(index, on); });
  editor.show = [box](const json& value) {
    if (value.is_boolean()) {
      box->setChecked(value.get<bool>());
    }
  };
  return box;
}

QWidget* CommandForm::MakeKeyChoice(std::size_t index, Editor& editor) {
  auto* choice = new QComboBox(this);
  choice->setEditable(true);
  choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  choice->setMinimumContentsLength(16);
  for (const std::string& name : KeyNames()) {
    choice->addItem(QString::fromStdString(name));
  }
  choice->completer()->setFilterMode(Qt::MatchContains);
  choice->completer()->setCompletionMode(QCompleter::PopupCompletion);
  connect(choice, &QComboBox::currentTextChanged, this, [this, index](const QString& text) {
    Changed(index, FromText(model_.fields()[index], text.toStdString()));
  });
  Changed(index, choice->currentText().toStdString());
  editor.show = [choice](const json& value) { choice->setCurrentText(ToText(value)); };
  return choice;
}

QWidget* CommandForm::MakeLine(std::size_t index, Editor& editor) {
  auto* line = new QLineEdit(ToText(model_.value(index)), this);
  connect(line, &QLineEdit::textEdited, this, [this, index](const QString& text) {
    Changed(index, FromText(model_.fields()[index], text.toStdString()));
  });
  connect(line, &QLineEdit::returnPressed, this, [this] { Send(); });
  editor.show = [line](const json& value) {
    if (line->text() != ToText(value)) {
      line->setText(ToText(value));
    }
  };
  return line;
}

void CommandForm::Load(const json& arguments) {
  model_.Load(arguments);
  for (std::size_t i = 0; i < editors_.size(); ++i) {
    const json value = model_.value(i);
    editors_[i].show(value);
    model_.SetValue(i, value);  // a null text stays one, though the line is merely empty
  }
  ShowFaults();
}

void CommandForm::Changed(std::size_t index, json value) {
  model_.SetValue(index, std::move(value));
  ShowFaults();
}

void CommandForm::ShowFaults() {
  bool valid = true;
  for (std::size_t i = 0; i < editors_.size(); ++i) {
    const auto fault = model_.Fault(i);
    editors_[i].fault->setVisible(fault.has_value());
    editors_[i].fault->setText(QString::fromStdString(fault.value_or("")));
    valid &= !fault.has_value();
  }
  send_->setEnabled(valid);
}

void CommandForm::Send() {
  if (!model_.IsValid()) {
    return;
  }
  result_->clear();
  if (const auto fault = watched_.Send(model_.command(), model_.Arguments())) {
    ShowResult(QString::fromStdString(*fault), true);
  } else if (result_->text().isEmpty()) {
    ShowResult("sent", false);
  }
}

void CommandForm::ShowResult(const QString& text, bool is_fault) {
  result_->setStyleSheet(is_fault ? kFaultStyle : "");
  result_->setText(text);
}

}  // namespace vellomar_workbench
