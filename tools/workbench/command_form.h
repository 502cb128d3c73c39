// SPDX-License-Identifier: MIT
// A form for one command's arguments, made from its row in the command table, and the button that
// sends it. What is wrong with a field stands below the field.
//
//   auto* form = new CommandForm(watched, *FindCommand("setCameraInfo"));
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <vector>

#include "tools/workbench/form_model.h"
#include "tools/workbench/watched_plugin.h"

class QFormLayout;

namespace vellomar_workbench {

class CommandForm : public QWidget {
 public:
  CommandForm(WatchedPlugin& watched, const vellomar_host::Command& command,
              QWidget* parent = nullptr);

  // Shows these arguments.
  void Load(const nlohmann::json& arguments);
  // What the send button does; nothing while a field has a fault.
  void Send();
  void ShowResult(const QString& text, bool is_fault);
  const vellomar_host::Command& command() const { return model_.command(); }

 private:
  struct Editor {
    std::function<void(const nlohmann::json&)> show;
    QLabel* fault;
  };

  void AddField(QFormLayout& layout, std::size_t index);
  QWidget* MakeEditor(std::size_t index, Editor& editor);
  QWidget* MakeTable(std::size_t index, Editor& editor);
  QWidget* MakeCheckBox(std::size_t index, Editor& editor);
  QWidget* MakeKeyChoice(std::size_t index, Editor& editor);
  QWidget* MakeLine(std::size_t index, Editor& editor);
  void Changed(std::size_t index, nlohmann::json value);
  void ShowFaults();

  WatchedPlugin& watched_;
  FormModel model_;
  std::vector<Editor> editors_;
  QPushButton* send_;
  QLabel* result_;
};

}  // namespace vellomar_workbench
