// SPDX-License-Identifier: MIT
// Steps are begun from timers only, never from inside the plug-in's calls.
#include "tools/workbench/scenario_run.h"

#include <fmt/format.h>

#include "host/host_error.h"

namespace vellomar_workbench {

using nlohmann::ordered_json;
using vellomar_host::HostError;
using vellomar_host::KeepOpenStep;
using vellomar_host::SendStep;
using vellomar_host::WaitForStep;

namespace {

// "send setHostType {"type":1}": the member that tells the kind, then what else there is.
std::string Describe(const ordered_json& step) {
  const auto first = step.begin();
  const bool is_plain = first.value() == ordered_json(true);
  std::string text = first.key();
  if (first.value().is_string()) {
    text = (first.key() == "note" ? "" : text + " ") + first.value().get<std::string>();
  } else if (!is_plain) {
    text += " " + first.value().dump();
  }
  for (auto member = std::next(first); member != step.end(); ++member) {
    text += (member.key() == "args" ? " " : " " + member.key() + " ") + member.value().dump();
  }
  return text;
}

// The steps with their lines.
std::vector<std::pair<int, std::string>> Describe(const vellomar_host::Scenario& scenario,
                                                  const std::string& text) {
  const ordered_json root = ordered_json::parse(text);
  std::vector<std::pair<int, std::string>> steps;
  for (std::size_t i = 0; i < scenario.steps.size(); ++i) {
    steps.emplace_back(scenario.steps[i].line, Describe(root["steps"][i]));
  }
  return steps;
}

}  // namespace

ScenarioRun::ScenarioRun(WatchedPlugin& watched) : watched_(watched) {
  options_.has_display = true;
  for (QTimer* timer : {&next_timer_, &look_timer_, &deadline_}) {
    timer->setSingleShot(true);
  }
  QObject::connect(&next_timer_, &QTimer::timeout, &next_timer_, [this] { DoNext(); });
  QObject::connect(&look_timer_, &QTimer::timeout, &look_timer_, [this] { LookForNotification(); });
  QObject::connect(&deadline_, &QTimer::timeout, &deadline_, [this] {
    LookForNotification();
    if (awaited_ != nullptr) {
      StepFailed(vellomar_host::MissingNotification(*awaited_));
    }
  });
  watched_.AddEntryListener([this](const vellomar_host::TranscriptEntry& entry) {
    const bool concerns = entry.kind == "notify" || entry.kind == "stop";
    if (concerns && awaited_ != nullptr) {
      look_timer_.start(0);
    }
  });
}

Fault ScenarioRun::Open(const std::filesystem::path& file) {
  if (in_step_) {
    return "a step is running";
  }
  try {
    const std::string text = vellomar_host::ReadFile(file);
    vellomar_host::Scenario scenario = vellomar_host::ParseScenario(text, file);
    const auto steps = Describe(scenario, text);
    Pause();
    awaited_ = nullptr;
    player_.reset();
    scenario_ = std::move(scenario);
    steps_.SetSteps(steps);
  } catch (const HostError& error) {
    return error.what();
  }
  title_ = scenario_->name.empty() ? file.filename().string() : scenario_->name;
  next_ = 0;
  Changed();
  return std::nullopt;
}

Fault ScenarioRun::Begin() {
  if (in_step_ || !scenario_) {
    return "there is no scenario to begin";
  }
  Pause();
  awaited_ = nullptr;
  player_.reset();
  steps_.Reset();
  next_ = 0;
  if (auto fault = watched_.Restart()) {
    return fault;
  }
  for (const auto& step : scenario_->steps) {
    if (watched_.session()->driver() == nullptr && NeedsDriver(step)) {
      return fmt::format(
          "{}:{}: the step acts on the widgets, and the widget library has no driver",
          scenario_->file, step.line);
    }
  }
  watched_.SetParticipantAnswers(scenario_->participant_answers);
  generation_ = watched_.generation();
  player_ = std::make_unique<vellomar_host::StepPlayer>(*watched_.session(), options_,
                                                        watched_.transcript());
  Changed();
  return std::nullopt;
}

bool ScenarioRun::IsOver() const {
  return scenario_ && player_ != nullptr && next_ >= scenario_->steps.size();
}

void ScenarioRun::Step() {
  if (awaited_ != nullptr || in_step_) {
    return;
  }
  Pause();
  next_timer_.start(0);
}

void ScenarioRun::Play() {
  if (is_playing_ || !scenario_) {
    return;
  }
  is_playing_ = true;
  if (awaited_ == nullptr) {
    next_timer_.start(0);
  }
  Changed();
}

void ScenarioRun::Pause() {
  is_playing_ = false;
  next_timer_.stop();
  Changed();
}

void ScenarioRun::DoNext() {
  if (in_step_ || !scenario_ || awaited_ != nullptr) {
    return;
  }
  const bool playing = is_playing_;
  // A plug-in that was loaded anew knows nothing of the steps so far.
  if (player_ == nullptr || generation_ != watched_.generation() || IsOver()) {
    if (auto fault = Begin()) {
      return Finish(fault);
    }
    is_playing_ = playing;
  }
  if (IsOver()) {
    return Finish(std::nullopt);
  }
  in_step_ = true;
  steps_.SetState(next_, StepModel::State::kRunning);
  std::optional<std::string> failure;
  try {
    Do(scenario_->steps[next_]);
  } catch (const HostError& error) {
    failure = error.what();
  }
  in_step_ = false;
  if (failure) {
    return StepFailed(*failure);
  }
  if (awaited_ == nullptr) {
    StepDone();
  }
}

void ScenarioRun::Do(const vellomar_host::Step& step) {
  if (const auto* wait = std::get_if<WaitForStep>(&step.action)) {
    awaited_ = wait;
    deadline_.start(wait->within);
    look_timer_.start(0);
    return;
  }
  if (std::holds_alternative<KeepOpenStep>(step.action) && options_.has_display) {
    is_playing_ = false;  // the bar is the user's, until Step or Play goes on
    return;
  }
  if (const auto* send = std::get_if<SendStep>(&step.action); send != nullptr && adapt) {
    vellomar_host::Step adapted = {step.line, *send};
    adapt(std::get<SendStep>(adapted.action));
    return player_->Play(adapted);
  }
  player_->Play(step);
}

void ScenarioRun::LookForNotification() {
  if (awaited_ == nullptr || in_step_) {
    return;
  }
  if (generation_ != watched_.generation()) {
    return StepFailed("the plug-in was unloaded");
  }
  if (!player_->Consume(*awaited_)) {
    return;
  }
  awaited_ = nullptr;
  deadline_.stop();
  StepDone();
}

void ScenarioRun::StepDone(const std::string& message) {
  steps_.SetState(next_, StepModel::State::kDone, message);
  ++next_;
  if (IsOver()) {
    return Finish(std::nullopt);
  }
  if (is_playing_) {
    next_timer_.start(delay_ms_);
  }
  Changed();
}

void ScenarioRun::StepFailed(const std::string& reason) {
  awaited_ = nullptr;
  deadline_.stop();
  steps_.SetState(next_, StepModel::State::kFailed, reason);
  const int line = scenario_->steps[next_].line;
  ++next_;
  Finish(fmt::format("{}:{}: {}", scenario_->file, line, reason));
}

void ScenarioRun::Finish(const Fault& fault) {
  is_playing_ = false;
  next_timer_.stop();
  Changed();
  if (on_finished) {
    on_finished(fault);
  }
}

void ScenarioRun::Changed() const {
  if (on_changed) {
    on_changed();
  }
}

}  // namespace vellomar_workbench
