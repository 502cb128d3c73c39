// SPDX-License-Identifier: MIT
// Plays a scenario on a watched plug-in, step by step or one step after the other. While a step
// waits for a notification, Qt's loop runs on.
//
//   ScenarioRun run(watched);
//   if (auto fault = run.Open("scenarios/first-share.json")) ShowFault(*fault);
//   run.on_finished = [](const Fault& fault) { ... };
//   run.Play();
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/scenario/player.h"
#include "host/scenario/scenario.h"
#include "tools/workbench/step_model.h"
#include "tools/workbench/watched_plugin.h"

namespace vellomar_workbench {

class ScenarioRun {
 public:
  explicit ScenarioRun(WatchedPlugin& watched);
  Q_DISABLE_COPY_MOVE(ScenarioRun)
  ~ScenarioRun() = default;

  // A file with faults leaves the scenario that was open as it is.
  Fault Open(const std::filesystem::path& file);
  bool IsOpen() const { return scenario_.has_value(); }
  const std::string& title() const { return title_; }

  // All from the first step, on a plug-in that is started anew.
  Fault Begin();
  // The next step; the first one begins. The fault is shown beside the step, too.
  void Step();
  void Play();
  void Pause();
  bool IsPlaying() const { return is_playing_; }
  bool IsOver() const;
  void SetDelay(int ms) { delay_ms_ = ms; }  // between steps, for a user to follow

  // Nobody is there to close the bar where the scenario leaves it to the user.
  void SetUnattended(bool unattended) { options_.has_display = !unattended; }
  void SetPictureFolder(const std::filesystem::path& folder) { options_.out = folder; }
  // May change a command that is to be sent: another language, another screen.
  std::function<void(vellomar_host::SendStep&)> adapt;

  StepModel& steps() { return steps_; }
  int current() const { return static_cast<int>(next_); }

  std::function<void()> on_changed;
  // At the end, or with the fault of the step that failed while playing.
  std::function<void(const Fault&)> on_finished;

 private:
  void DoNext();
  void Do(const vellomar_host::Step& step);
  void LookForNotification();
  void StepDone(const std::string& message = "");
  void StepFailed(const std::string& reason);
  void Finish(const Fault& fault);
  void Changed() const;

  WatchedPlugin& watched_;
  std::optional<vellomar_host::Scenario> scenario_;
  std::string title_;
  vellomar_host::PlayOptions options_;
  std::unique_ptr<vellomar_host::StepPlayer> player_;  // while the scenario is under way
  unsigned generation_ = 0;                            // of the plug-in, when it was begun

  StepModel steps_;
  std::size_t next_ = 0;
  const vellomar_host::WaitForStep* awaited_ = nullptr;
  bool is_playing_ = false;
  bool in_step_ = false;
  int delay_ms_ = 0;
  QTimer next_timer_;
  QTimer look_timer_;
  QTimer deadline_;
};

}  // namespace vellomar_workbench
