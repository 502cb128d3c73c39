// SPDX-License-Identifier: MIT
// The workbench's window: docks around the table of button records, and what the menus do.
//
//   MainWindow window(watched, {.scenarios = folder, .settings = "workbench.ini"});
//   window.show();
//   window.StartMeeting("host");
#pragma once

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/workbench/command_panel.h"
#include "tools/workbench/content.h"
#include "tools/workbench/scenario_panel.h"
#include "tools/workbench/scenario_run.h"
#include "tools/workbench/table_panel.h"
#include "tools/workbench/watched_plugin.h"

namespace vellomar_workbench {

struct WindowOptions {
  std::optional<std::filesystem::path> scenarios;  // the folder of presets and texts
  QString settings;  // file; empty: where the system keeps the user's settings
  QString language;  // empty: the one of the last time
};

class MainWindow : public QMainWindow {
 public:
  MainWindow(WatchedPlugin& watched, const WindowOptions& options);

  // Errors are shown in the window and returned as well.
  Fault LoadPlugin(const std::filesystem::path& file);
  Fault OpenScenario(const std::filesystem::path& file);
  Fault StartMeeting(const QString& preset);
  Fault SaveRecording(const std::filesystem::path& file);
  void ChooseLanguage(const QString& language);

  ScenarioRun& run() { return run_; }
  CommandPanel& commands() { return *commands_; }
  TablePanel& buttons() { return *buttons_; }
  TablePanel& log() { return *log_; }
  QString language() const { return language_->currentText(); }
  QString fault() const { return fault_text_->text(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // main_window.cpp: what there is
  QWidget* MakeFaultStrip();
  QWidget* MakeCenter();
  QWidget* MakeLists();
  TablePanel* MakeNotifications();
  TablePanel* MakeLog();
  void AddDocks();
  QDockWidget* AddDock(const QString& title, QWidget* content, Qt::DockWidgetArea area);
  void AddToolBar();
  void FillPresets();
  void FillLanguages();

  // main_actions.cpp: what it does
  void AddMenus();
  void AddFileMenu();
  void AddPlayMenu();
  void AskForPlugin();
  void AskForScenario();
  void AskForSaving();
  void SendLanguage();
  void Adapt(vellomar_host::SendStep& send);
  void ShowFault(const Fault& fault);
  void UpdateState();
  void RestoreLayout();
  void SaveLayout();

  WatchedPlugin& watched_;
  ScenarioRun run_;
  std::optional<std::filesystem::path> scenarios_;
  QSettings settings_;
  std::vector<Preset> presets_;
  bool plays_preset_ = false;

  QWidget* fault_strip_ = nullptr;
  QLabel* fault_text_ = nullptr;
  ButtonFilter button_filter_;
  QSortFilterProxyModel notification_filter_;
  LogFilter log_filter_;
  CommandPanel* commands_ = nullptr;
  ScenarioPanel* scenario_ = nullptr;
  TablePanel* buttons_ = nullptr;
  TablePanel* notifications_ = nullptr;
  TablePanel* log_ = nullptr;
  QComboBox* log_level_ = nullptr;
  QLabel* log_missing_ = nullptr;
  QComboBox* preset_ = nullptr;
  QComboBox* language_ = nullptr;
  QLabel* state_ = nullptr;
  QTimer marks_;  // until the marks of changed fields go
};

}  // namespace vellomar_workbench
