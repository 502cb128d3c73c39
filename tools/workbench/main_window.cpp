// SPDX-License-Identifier: MIT
#include "tools/workbench/main_window.h"

#include <QDir>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "tools/workbench/style.h"
#include "vellomar/log.h"

namespace vellomar_workbench {
namespace {

constexpr int kMarksForMs = 1500;
constexpr QSize kFirstSize(1280, 800);

}  // namespace

MainWindow::MainWindow(WatchedPlugin& watched, const WindowOptions& options)
    : watched_(watched),
      run_(watched),
      scenarios_(options.scenarios),
      settings_(options.settings.isEmpty() ? QSettings().fileName() : options.settings,
                QSettings::IniFormat) {
  setWindowTitle("Control bar workbench");
  resize(kFirstSize);
  setCentralWidget(MakeCenter());
  AddDocks();
  AddToolBar();
  AddMenus();
  state_ = new QLabel(this);
  statusBar()->addWidget(state_, 1);
  marks_.setSingleShot(true);
  marks_.setInterval(kMarksForMs);
  connect(&marks_, &QTimer::timeout, this, [this] { watched_.buttons().ClearMarks(); });
  watched_.on_state_changed = [this] { UpdateState(); };
  run_.on_changed = [this] { scenario_->ShowRun(); };
  run_.on_finished = [this](const Fault& fault) {
    scenario_->ShowFault(QString::fromStdString(fault.value_or("")));
  };
  run_.SetPictureFolder(
      QDir::temp().filePath("controlbar-workbench").toStdString());  // not where it was started
  run_.adapt = [this](vellomar_host::SendStep& send) { Adapt(send); };
  RestoreLayout();
  if (!options.language.isEmpty()) {
    ChooseLanguage(options.language);
  }
  if (!scenarios_) {
    ShowFault("no folder \"scenarios\" with presets and texts was found");
  }
  UpdateState();
}

QWidget* MainWindow::MakeFaultStrip() {
  fault_strip_ = new QWidget(this);
  fault_strip_->setStyleSheet("background: #ffcdc8; color: black;");
  auto* layout = new QHBoxLayout(fault_strip_);
  layout->setContentsMargins(8, 4, 4, 4);
  fault_text_ = new QLabel(fault_strip_);
  fault_text_->setWordWrap(true);
  fault_text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* close = new QPushButton("Close", fault_strip_);
  connect(close, &QPushButton::clicked, this, [this] { ShowFault(std::nullopt); });
  layout->addWidget(fault_text_, 1);
  layout->addWidget(close);
  fault_strip_->hide();
  return fault_strip_;
}

QWidget* MainWindow::MakeCenter() {
  button_filter_.setSourceModel(&watched_.buttons());
  buttons_ = new TablePanel(button_filter_, "Filter buttons by name, key or label", this);
  buttons_->on_filter = [this](const QString& text) { button_filter_.SetText(text); };
  PrepareTable(buttons_->table(), -1);
  buttons_->SetWidths({46, 150, 130, 90, 70, 80, 130, 120, 150, 80, 64, 56, 100});
  auto* center = new QWidget(this);
  auto* layout = new QVBoxLayout(center);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MakeFaultStrip());
  layout->addWidget(buttons_, 1);
  return center;
}

// The lists that belong to a meeting: the forms of the three commands that set them, always at
// hand.
QWidget* MainWindow::MakeLists() {
  auto* tabs = new QTabWidget(this);
  const auto add = [&](std::string_view name, const QString& title) {
    auto* form = new CommandForm(watched_, *vellomar_host::FindCommand(name), tabs);
    auto* area = new QScrollArea(tabs);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(form);
    tabs->addTab(area, title);
    watched_.AddEntryListener([form](const vellomar_host::TranscriptEntry& entry) {
      if (entry.kind == "send" && entry.subject == form->command().name) {
        form->Load(entry.details);
      }
    });
  };
  add("updateParticipants", "Participants");
  add("setAudioAndPlaybackInfo", "Audio");
  add("setCameraInfo", "Cameras");
  return tabs;
}

TablePanel* MainWindow::MakeNotifications() {
  notification_filter_.setSourceModel(&watched_.notifications());
  notification_filter_.setFilterKeyColumn(-1);
  notification_filter_.setFilterCaseSensitivity(Qt::CaseInsensitive);
  notifications_ = new TablePanel(notification_filter_, "Filter notifications", this);
  notifications_->on_filter = [this](const QString& text) {
    notification_filter_.setFilterFixedString(text);
  };
  PrepareTable(notifications_->table(), NotificationModel::kPayload);
  notifications_->SetWidths({56, 52, 120});
  FollowEnd(notifications_->table());
  return notifications_;
}

TablePanel* MainWindow::MakeLog() {
  log_filter_.setSourceModel(&watched_.log());
  log_ = new TablePanel(log_filter_, "Filter the plug-in's log", this);
  log_->on_filter = [this](const QString& text) { log_filter_.SetText(text); };
  PrepareTable(log_->table(), LogModel::kText);
  log_->SetWidths({60, 48, 300, 62});
  FollowEnd(log_->table());
  log_level_ = new QComboBox(this);
  log_level_->addItem("all lines", 0);
  log_level_->addItem("faults", VELLOMAR_LOG_FAULT);
  log_level_->addItem("refused", VELLOMAR_LOG_REFUSED);
  connect(log_level_, &QComboBox::currentIndexChanged, this,
          [this] { log_filter_.SetLowestLevel(log_level_->currentData().toInt()); });
  log_->AddTool(log_level_);
  log_missing_ = MakeFaultLabel(log_);
  log_missing_->setText(
      "This log library does not let itself be observed, as the development build does: the log is "
      "where the library writes it.");
  log_->layout()->addWidget(log_missing_);
  return log_;
}

QDockWidget* MainWindow::AddDock(const QString& title, QWidget* content, Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title, this);
  dock->setObjectName(title);
  dock->setWidget(content);
  addDockWidget(area, dock);
  return dock;
}

void MainWindow::AddDocks() {
  setDockNestingEnabled(true);
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
  commands_ = new CommandPanel(watched_, this);
  scenario_ = new ScenarioPanel(watched_, run_, this);
  scenario_->on_open = [this] { AskForScenario(); };
  scenario_->on_save = [this] { AskForSaving(); };
  auto* commands = AddDock("Commands", commands_, Qt::LeftDockWidgetArea);
  auto* lists = AddDock("Participants and devices", MakeLists(), Qt::LeftDockWidgetArea);
  tabifyDockWidget(commands, lists);
  commands->raise();
  auto* scenario = AddDock("Scenario", scenario_, Qt::RightDockWidgetArea);
  auto* notifications = AddDock("Notifications", MakeNotifications(), Qt::BottomDockWidgetArea);
  auto* log = AddDock("Log", MakeLog(), Qt::BottomDockWidgetArea);
  splitDockWidget(notifications, log, Qt::Horizontal);
  resizeDocks({commands, scenario}, {320, 330}, Qt::Horizontal);
  resizeDocks({notifications, log}, {400, 560}, Qt::Horizontal);
  resizeDocks({notifications}, {270}, Qt::Vertical);
}

void MainWindow::AddToolBar() {
  auto* bar = addToolBar("Meeting");
  bar->setObjectName("Meeting");
  bar->setMovable(false);
  preset_ = new QComboBox(this);
  language_ = new QComboBox(this);
  auto* start = new QPushButton("Start", this);
  start->setToolTip("Start the plug-in anew with this meeting (Ctrl+R)");
  connect(start, &QPushButton::clicked, this,
          [this] { StartMeeting(preset_->currentData().toString()); });
  bar->addWidget(new QLabel(" Meeting ", this));
  bar->addWidget(preset_);
  bar->addWidget(start);
  bar->addSeparator();
  bar->addWidget(new QLabel(" Language ", this));
  bar->addWidget(language_);
  FillPresets();
  FillLanguages();
  connect(language_, &QComboBox::activated, this, [this] { SendLanguage(); });
}

void MainWindow::FillPresets() {
  if (!scenarios_) {
    return;
  }
  presets_ = ListPresets(*scenarios_);
  for (const Preset& preset : presets_) {
    preset_->addItem(QString::fromStdString(preset.title), QString::fromStdString(preset.name));
    preset_->setItemData(preset_->count() - 1, QString::fromStdString(preset.description),
                         Qt::ToolTipRole);
  }
}

void MainWindow::FillLanguages() {
  if (!scenarios_) {
    return;
  }
  for (const std::string& language : ListLanguages(*scenarios_)) {
    language_->addItem(QString::fromStdString(language));
  }
  language_->setCurrentText("en");
}

}  // namespace vellomar_workbench
