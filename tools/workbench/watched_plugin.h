// SPDX-License-Identifier: MIT
// A plug-in that is loaded, driven and watched. Holds what the windows show;
// knows no window.
//
//   WatchedPlugin watched(widgets_path);
//   if (auto fault = watched.Load(plugin_path)) ShowFault(*fault);
//   watched.Send(*FindCommand("setHostType"), {{"type", 1}});
//
// Everything on the thread of the QApplication, which must be there. Errors are returned in words.
#pragma once

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/scenario/session.h"
#include "host/scenario/transcript.h"
#include "tools/workbench/button_model.h"
#include "tools/workbench/log_model.h"
#include "tools/workbench/notification_model.h"
#include "tools/workbench/qt_loop.h"
#include "tools/workbench/recorder.h"

namespace vellomar_workbench {

using Fault = std::optional<std::string>;  // none: all went well

class WatchedPlugin {
 public:
  explicit WatchedPlugin(std::filesystem::path widgets);
  ~WatchedPlugin();
  Q_DISABLE_COPY_MOVE(WatchedPlugin)

  // Unloads what is there and loads this build; one that cannot be loaded leaves all as it is.
  Fault Load(const std::filesystem::path& plugin);
  // The same build again, without a meeting.
  Fault Restart() { return Load(plugin_); }
  void Unload();
  const std::filesystem::path& plugin() const { return plugin_; }

  Fault Send(const vellomar_host::Command& command, const nlohmann::json& arguments);
  // New texts set every status back to its default; the meeting's state is told again after them.
  Fault SendTexts(const nlohmann::json& texts);
  void SetParticipantAnswers(const std::map<std::string, std::int64_t>& answers);

  // Counts what was loaded: another number, another session.
  unsigned generation() const { return generation_; }
  vellomar_host::Session* session() { return session_.get(); }  // null: none is loaded
  vellomar_host::Transcript& transcript() { return transcript_; }
  bool bar_exists() const { return session_ != nullptr && session_->bar_exists(); }
  bool observes_log() const { return session_ != nullptr && session_->observes_log(); }

  ButtonModel& buttons() { return buttons_; }
  NotificationModel& notifications() { return notifications_; }
  LogModel& log() { return log_; }
  Recorder& recorder() { return recorder_; }
  // Shows at once what would be shown a moment later.
  void Refresh();

  using EntryListener = std::function<void(const vellomar_host::TranscriptEntry&)>;
  // Not from inside a listener.
  void AddEntryListener(EntryListener listener) { listeners_.push_back(std::move(listener)); }
  // After a build was loaded or unloaded, and after every Refresh.
  std::function<void()> on_state_changed;

 private:
  using Sent = std::pair<const vellomar_host::Command*, nlohmann::json>;

  void OnEntry(const vellomar_host::TranscriptEntry& entry);
  void OnLogLine(const vellomar_host::LogLine& line);
  void Remember(const vellomar_host::TranscriptEntry& entry);
  void StateChanged() const;

  std::filesystem::path widgets_path_;
  std::filesystem::path plugin_;
  unsigned generation_ = 0;
  vellomar_host::Transcript transcript_;
  std::unique_ptr<vellomar_host::Session> session_;
  std::unique_ptr<QtLoop> loop_;

  ButtonModel buttons_;
  NotificationModel notifications_;
  LogModel log_;
  Recorder recorder_;
  std::vector<EntryListener> listeners_;
  std::vector<Sent> state_;  // the last of each command that sets state, in the order of sending
  std::vector<vellomar_host::LogLine> lines_;  // not yet in the model
  QTimer refresh_;                             // runs while something waits to be shown
};

}  // namespace vellomar_workbench
