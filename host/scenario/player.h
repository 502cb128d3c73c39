// SPDX-License-Identifier: MIT
// Plays a scenario on a session: as a whole, or step by step.
//
//   if (auto failure = PlayScenario(scenario, options, transcript)) std::cerr << *failure;
//
//   StepPlayer player(session, options, transcript);
//   player.Play(scenario.steps[0]);
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "host/scenario/scenario.h"
#include "host/scenario/session.h"
#include "host/scenario/transcript.h"

namespace vellomar_host {

struct PlayOptions {
  SessionFiles files;
  std::filesystem::path out = ".";  // where screenshots go
  bool has_display = false;         // somebody can see and close the bar
  LogSink on_log;                   // the plug-in's log lines, see Session
};

// Whether the step acts on or looks at the widgets, and so needs the widget library's driver.
bool NeedsDriver(const Step& step);

class StepPlayer {
 public:
  // All three must outlive the player.
  StepPlayer(Session& session, const PlayOptions& options, Transcript& transcript)
      : session_(session), options_(options), transcript_(transcript) {}

  // Runs the session's loop while the step waits. Throws HostError, a sentence without the step's
  // place, when the step fails.
  void Play(const Step& step);

  // For a program with a loop of its own, which must not wait in here: whether the notification has
  // come. If so, it and all before it are used up.
  bool Consume(const WaitForStep& step);

 private:
  void Do(const SendStep& step);
  void Do(const PressStep& step);
  void Do(const OpenStep& step);
  void Do(const PickStep& step);
  void Do(const CloseListStep& step);
  void Do(const CloseBarStep& step);
  void Do(const WaitForStep& step);
  void Do(const WaitIdleStep& step);
  void Do(const ExpectButtonStep& step);
  void Do(const ExpectRowStep& step);
  void Do(const ExpectNoneStep& step);
  void Do(const RespondStep& step);
  void Do(const DropStep& step);
  void Do(const ScreenshotStep& step);
  void Do(const KeepOpenStep& step);
  void Do(const NoteStep& step);

  const LorimelDriver& Driver() const { return *session_.driver(); }
  bool IsHeadless() const { return std::string_view(Driver().name) == "headless"; }
  bool HasStoppedSharing(std::size_t since) const;
  void RequireDone(bool done, bool refused, const std::string& action);
  void Settle();
  void Match(const nlohmann::json& expected, const nlohmann::json& actual, const std::string& what);

  Session& session_;
  const PlayOptions& options_;
  Transcript& transcript_;
  std::ptrdiff_t cursor_ = 0;  // the first notification that no step has consumed
};

// "no muteAudio {...} within 5000 ms"
std::string MissingNotification(const WaitForStep& step);

// Returns the first failed step as "file:line: reason", none where all went well. Throws HostError
// when the libraries cannot be loaded or lack what the scenario needs; nothing has been sent then.
std::optional<std::string> PlayScenario(const Scenario& scenario, const PlayOptions& options,
                                        Transcript& transcript);

}  // namespace vellomar_host
