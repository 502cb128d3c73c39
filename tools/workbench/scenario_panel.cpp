// SPDX-License-Identifier: MIT
#include "tools/workbench/scenario_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <array>

#include "tools/workbench/style.h"

namespace vellomar_workbench {
namespace {

struct Speed {
  const char* name;
  int delay_ms;
};

constexpr std::array kSpeeds = {Speed{"at once", 0}, Speed{"0.3 s a step", 300},
                                Speed{"1 s a step", 1000}};

}  // namespace

ScenarioPanel::ScenarioPanel(WatchedPlugin& watched, ScenarioRun& run, QWidget* parent)
    : QWidget(parent),
      watched_(watched),
      run_(run),
      title_(new QLabel(this)),
      steps_(new QTableView(this)),
      fault_(MakeFaultLabel(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  title_->setWordWrap(true);
  layout->addWidget(title_);
  steps_->setModel(&run_.steps());
  PrepareTable(*steps_, StepModel::kStep);
  steps_->setColumnWidth(StepModel::kLine, 42);
  steps_->setColumnWidth(StepModel::kResult, 84);
  layout->addWidget(steps_, 1);
  layout->addWidget(fault_);
  layout->addWidget(MakePlayButtons());
  layout->addWidget(MakeRecording());
  ShowRun();
  ShowRecording();
}

QPushButton* ScenarioPanel::MakeButton(const QString& text, const QString& hint,
                                       const std::function<void()>& clicked) {
  auto* button = new QPushButton(text, this);
  button->setToolTip(hint);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

QWidget* ScenarioPanel::MakePlayButtons() {
  auto* box = new QWidget(this);
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* first = new QHBoxLayout;
  first->addWidget(MakeButton("Open...", "Open a scenario (Ctrl+O)", [this] { on_open(); }));
  step_ = MakeButton("Step", "The next step (F10)", [this] { run_.Step(); });
  play_ = MakeButton("Play", "All steps to the end, or pause (F5)",
                     [this] { run_.IsPlaying() ? run_.Pause() : run_.Play(); });
  again_ = MakeButton("From the start", "Start the plug-in anew and play", [this] {
    if (const auto fault = run_.Begin()) {
      return ShowFault(QString::fromStdString(*fault));
    }
    run_.Play();
  });
  for (QPushButton* button : {step_, play_, again_}) {
    first->addWidget(button);
  }
  layout->addLayout(first);
  speed_ = new QComboBox(this);
  for (const Speed& speed : kSpeeds) {
    speed_->addItem(speed.name);
  }
  connect(speed_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (index >= 0) {
      run_.SetDelay(kSpeeds[static_cast<std::size_t>(index)].delay_ms);
    }
  });
  auto* second = new QHBoxLayout;
  second->addWidget(new QLabel("Speed", this));
  second->addWidget(speed_);
  second->addStretch();
  layout->addLayout(second);
  return box;
}

QWidget* ScenarioPanel::MakeRecording() {
  auto* box = new QWidget(this);
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 6, 0, 0);
  recorded_ = new QLabel(this);
  with_results_ = new QCheckBox("with answers and notifications", this);
  with_results_->setToolTip("Record what comes of each step too, to be checked when it is played");
  connect(with_results_, &QCheckBox::toggled, this,
          [this](bool on) { watched_.recorder().SetWithResults(on); });
  save_ = MakeButton("Save...", "Save what was done as a scenario (Ctrl+S)", [this] { on_save(); });
  auto* clear = MakeButton("Forget", "Begin a new recording here", [this] {
    watched_.recorder().Clear();
    ShowRecording();
  });
  layout->addWidget(recorded_);
  layout->addWidget(with_results_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(save_);
  buttons->addWidget(clear);
  buttons->addStretch();
  layout->addLayout(buttons);
  return box;
}

void ScenarioPanel::ShowFault(const QString& text) {
  fault_->setText(text);
  fault_->setVisible(!text.isEmpty());
}

void ScenarioPanel::ShowRun() {
  const bool open = run_.IsOpen();
  title_->setText(open ? "<b>" + QString::fromStdString(run_.title()).toHtmlEscaped() + "</b>"
                       : "No scenario is open.");
  play_->setText(run_.IsPlaying() ? "Pause" : "Play");
  for (QPushButton* button : {step_, play_, again_}) {
    button->setEnabled(open);
  }
  if (open) {
    steps_->scrollTo(run_.steps().index(run_.current(), 0));
  }
}

void ScenarioPanel::ShowRecording() {
  const auto count = watched_.recorder().size();
  recorded_->setText(count == 0   ? QString("Nothing is recorded yet.")
                     : count == 1 ? QString("1 step is recorded.")
                                  : QString("%1 steps are recorded.").arg(count));
  save_->setEnabled(count > 0);
}

}  // namespace vellomar_workbench
