// SPDX-License-Identifier: MIT
// What the menus and buttons of the window do, and what it keeps for the next time.
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "host/host_error.h"
#include "tools/workbench/main_window.h"
#include "vellomar/command_records.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::SendStep;

namespace {

std::filesystem::path ToPath(const QString& text) {
  return text.toStdString();
}

// In pixels, as hosts tell the display.
json ScreenOf(const QWidget& window) {
  const QScreen* screen = window.screen();
  const QRect area = screen->geometry();
  const double scale = screen->devicePixelRatio();
  return {{"x", area.x()},
          {"y", area.y()},
          {"width", static_cast<int>(area.width() * scale)},
          {"height", static_cast<int>(area.height() * scale)}};
}

// From the folder that the workbench was started in, where the file lies below it.
QString ShortPath(const std::filesystem::path& file) {
  const auto path = file.lexically_proximate(std::filesystem::current_path());
  const bool below = path.is_relative() && *path.begin() != "..";
  return QString::fromStdString((below ? path : file).string());
}

}  // namespace

void MainWindow::AddMenus() {
  AddFileMenu();
  AddPlayMenu();
  QMenu* view = menuBar()->addMenu("&View");
  for (const auto* dock : findChildren<QDockWidget*>()) {
    view->addAction(dock->toggleViewAction());
  }
  view->addSeparator();
  view->addAction("Clear notifications and log", this, [this] {
    watched_.notifications().Clear();
    watched_.log().Clear();
  });
}

void MainWindow::AddFileMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  file->addAction("Load another plug-in...", QKeySequence("Ctrl+L"), this,
                  [this] { AskForPlugin(); });
  file->addAction("Load it again", QKeySequence("Ctrl+Shift+L"), this,
                  [this] { LoadPlugin(watched_.plugin()); });
  file->addSeparator();
  file->addAction("Open a scenario...", QKeySequence("Ctrl+O"), this, [this] { AskForScenario(); });
  file->addAction("Save the recording...", QKeySequence("Ctrl+S"), this,
                  [this] { AskForSaving(); });
  file->addSeparator();
  file->addAction("Quit", QKeySequence("Ctrl+Q"), this, [this] { close(); });
}

void MainWindow::AddPlayMenu() {
  QMenu* play = menuBar()->addMenu("&Play");
  play->addAction("Start the meeting", QKeySequence("Ctrl+R"), this,
                  [this] { StartMeeting(preset_->currentData().toString()); });
  play->addAction("Play or pause", QKeySequence("F5"), this,
                  [this] { run_.IsPlaying() ? run_.Pause() : run_.Play(); });
  play->addAction("Step", QKeySequence("F10"), this, [this] { run_.Step(); });
  play->addSeparator();
  play->addAction("Search a command", QKeySequence("Ctrl+K"), this,
                  [this] { commands_->FocusSearch(); });
  play->addAction("Send the command", QKeySequence("Ctrl+Return"), this,
                  [this] { commands_->SendChosen(); });
}

Fault MainWindow::LoadPlugin(const std::filesystem::path& file) {
  Fault fault = watched_.Load(file);
  ShowFault(fault);
  if (!fault) {
    settings_.setValue("plugin", QString::fromStdString(file.string()));
  }
  return fault;
}

Fault MainWindow::OpenScenario(const std::filesystem::path& file) {
  Fault fault = run_.Open(file);
  plays_preset_ = scenarios_ && file.parent_path() == *scenarios_ / "presets";
  scenario_->ShowFault(QString::fromStdString(fault.value_or("")));
  return fault;
}

Fault MainWindow::StartMeeting(const QString& preset) {
  for (const Preset& known : presets_) {
    if (known.name != preset.toStdString()) {
      continue;
    }
    preset_->setCurrentIndex(preset_->findData(preset));
    if (auto fault = OpenScenario(known.file)) {
      return fault;
    }
    Fault fault = run_.Begin();
    ShowFault(fault);
    if (!fault) {
      run_.Play();
    }
    return fault;
  }
  Fault fault = "there is no meeting \"" + preset.toStdString() + "\"";
  ShowFault(fault);
  return fault;
}

Fault MainWindow::SaveRecording(const std::filesystem::path& file) {
  std::ofstream out(file);
  out << watched_.recorder().Scenario(file.stem().string());
  out.close();
  Fault fault = out ? Fault() : Fault("cannot write \"" + file.string() + "\"");
  scenario_->ShowFault(QString::fromStdString(fault.value_or("")));
  return fault;
}

void MainWindow::AskForPlugin() {
  const QString file = QFileDialog::getOpenFileName(
      this, "Load a plug-in", QFileInfo(QString::fromStdString(watched_.plugin().string())).path(),
      "Libraries (*.so *.dll);;All files (*)");
  if (!file.isEmpty()) {
    LoadPlugin(ToPath(file));
  }
}

void MainWindow::AskForScenario() {
  const QString last =
      settings_
          .value("folder",
                 QString::fromStdString(scenarios_.value_or(std::filesystem::path()).string()))
          .toString();
  const QString file =
      QFileDialog::getOpenFileName(this, "Open a scenario", last, "Scenarios (*.json)");
  if (file.isEmpty()) {
    return;
  }
  settings_.setValue("folder", QFileInfo(file).path());
  OpenScenario(ToPath(file));
}

void MainWindow::AskForSaving() {
  const QString file = QFileDialog::getSaveFileName(
      this, "Save what was done", settings_.value("folder").toString() + "/recording.json",
      "Scenarios (*.json)");
  if (file.isEmpty()) {
    return;
  }
  settings_.setValue("folder", QFileInfo(file).path());
  SaveRecording(ToPath(file));
}

void MainWindow::ChooseLanguage(const QString& language) {
  const int index = language_->findText(language);
  if (index < 0) {
    return ShowFault("there are no texts in \"" + language.toStdString() + "\"");
  }
  language_->setCurrentIndex(index);
  if (watched_.bar_exists()) {
    SendLanguage();
  }
}

void MainWindow::SendLanguage() {
  try {
    ShowFault(watched_.SendTexts(ReadTexts(*scenarios_, language().toStdString())));
  } catch (const vellomar_host::HostError& error) {
    ShowFault(error.what());
  }
}

// A preset's texts come in the language that is chosen; a scenario has its own, which it may check.
// Texts are sent in full, so that a recording needs no other file. The bar comes to the screen that
// is there.
void MainWindow::Adapt(SendStep& send) {
  if (send.command->id == VELLOMAR_COMMAND_setTextMap && send.written.contains("file")) {
    if (plays_preset_) {
      send.arguments = ReadTexts(*scenarios_, language().toStdString());
    }
    send.written = send.arguments;
  } else if (send.command->id == VELLOMAR_COMMAND_showSharedControlbar) {
    send.arguments["display"] = ScreenOf(*this);
    send.written = send.arguments;
  }
}

void MainWindow::ShowFault(const Fault& fault) {
  fault_text_->setText(QString::fromStdString(fault.value_or("")));
  fault_strip_->setVisible(fault.has_value());
}

void MainWindow::UpdateState() {
  const bool loaded = watched_.session() != nullptr;
  const QString plugin = ShortPath(watched_.plugin());
  state_->setText(!loaded ? QString("No plug-in is loaded.")
                          : plugin + (watched_.bar_exists() ? "  -  the bar is shown"
                                                            : "  -  there is no bar"));
  log_missing_->setVisible(loaded && !watched_.observes_log());
  scenario_->ShowRecording();
  if (watched_.buttons().HasMarks() && !marks_.isActive()) {
    marks_.start();
  }
}

void MainWindow::RestoreLayout() {
  if (!restoreGeometry(settings_.value("geometry").toByteArray())) {
    // The bar comes to the top of the screen.
    const QRect area = screen()->availableGeometry();
    move(area.left(), std::max(area.top(), area.bottom() - frameGeometry().height()));
  }
  restoreState(settings_.value("layout").toByteArray());
  language_->setCurrentText(settings_.value("language", "en").toString());
  const int preset = preset_->findData(settings_.value("preset", "host").toString());
  if (preset >= 0) {
    preset_->setCurrentIndex(preset);
  }
  buttons_->filter().setText(settings_.value("buttonFilter").toString());
  log_level_->setCurrentIndex(settings_.value("logLevel", 0).toInt());
  scenario_->SetSpeed(settings_.value("speed", 0).toInt());
  scenario_->SetWithResults(settings_.value("withResults", false).toBool());
  commands_->Choose(settings_.value("command", "setAudioStatus").toString());
}

void MainWindow::SaveLayout() {
  settings_.setValue("geometry", saveGeometry());
  settings_.setValue("layout", saveState());
  settings_.setValue("language", language());
  settings_.setValue("preset", preset_->currentData());
  settings_.setValue("buttonFilter", buttons_->filter().text());
  settings_.setValue("logLevel", log_level_->currentIndex());
  settings_.setValue("speed", scenario_->speed());
  settings_.setValue("withResults", scenario_->with_results());
  settings_.setValue("command", commands_->chosen());
  settings_.sync();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  SaveLayout();
  QMainWindow::closeEvent(event);
  QApplication::quit();  // the bar is a window too, and would keep the program
}

}  // namespace vellomar_workbench
