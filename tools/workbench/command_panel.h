// SPDX-License-Identifier: MIT
// The list of all commands, to search, and the form of the one that is chosen, filled with what was
// sent last.
//
//   auto* panel = new CommandPanel(watched);
//   panel->Choose("setHostType");
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QWidget>
#include <map>
#include <nlohmann/json.hpp>

#include "tools/workbench/command_form.h"
#include "tools/workbench/watched_plugin.h"

namespace vellomar_workbench {

class CommandPanel : public QWidget {
 public:
  explicit CommandPanel(WatchedPlugin& watched, QWidget* parent = nullptr);

  void FocusSearch();
  void Choose(const QString& command);
  QString chosen() const;
  void SendChosen();
  CommandForm* form() { return form_; }  // null where none is chosen

 private:
  void Filter(const QString& text);
  void ShowForm(const QString& name);
  void OnEntry(const vellomar_host::TranscriptEntry& entry);

  WatchedPlugin& watched_;
  QLineEdit* search_;
  QListWidget* list_;
  QScrollArea* area_;
  CommandForm* form_ = nullptr;
  std::map<std::string, nlohmann::json> last_;  // arguments by command
};

}  // namespace vellomar_workbench
