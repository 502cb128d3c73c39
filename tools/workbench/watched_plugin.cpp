// SPDX-License-Identifier: MIT
#include "tools/workbench/watched_plugin.h"

#include <algorithm>
#include <array>
#include <map>

#include "host/host_error.h"
#include "vellomar/command_records.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::Command;
using vellomar_host::HostError;
using vellomar_host::LogLine;
using vellomar_host::TranscriptEntry;

namespace {

constexpr int kRefreshAfterMs = 30;

// The widget library stays until the process ends: Qt keeps what is still to be called in it, such
// as timers, beyond its windows.
void KeepLoaded(const std::filesystem::path& file) {
  static std::map<std::filesystem::path, vellomar_host::SharedLibrary> libraries;
  libraries.try_emplace(file, file);
}

// Commands that only say something once, like a hint, are not told again.
bool SetsState(const Command& command) {
  if (command.route != vellomar_host::Route::kPost) {
    return false;
  }
  if (command.id == VELLOMAR_COMMAND_setTextMap) {
    return false;
  }
  constexpr std::array<std::string_view, 4> kVerbs = {"set", "update", "enter", "leave"};
  return std::any_of(kVerbs.begin(), kVerbs.end(),
                     [&](std::string_view verb) { return command.name.starts_with(verb); });
}

}  // namespace

WatchedPlugin::WatchedPlugin(std::filesystem::path widgets)
    : widgets_path_(std::move(widgets)),
      transcript_([this](const TranscriptEntry& entry) { OnEntry(entry); }) {
  refresh_.setSingleShot(true);
  refresh_.setInterval(kRefreshAfterMs);
  QObject::connect(&refresh_, &QTimer::timeout, &refresh_, [this] { Refresh(); });
}

WatchedPlugin::~WatchedPlugin() {
  on_state_changed = nullptr;
  listeners_.clear();
  Unload();
}

Fault WatchedPlugin::Load(const std::filesystem::path& plugin) {
  try {
    KeepLoaded(widgets_path_);
    {
      const vellomar_host::Plugin probe(plugin);
    }  // before the present one goes
    Unload();
    session_ = std::make_unique<vellomar_host::Session>(
        vellomar_host::SessionFiles{plugin, widgets_path_, ""},
        vellomar_host::Session::ParticipantAnswers{}, transcript_,
        [this](const LogLine& line) { OnLogLine(line); });
  } catch (const HostError& error) {
    StateChanged();
    return error.what();
  }
  loop_ = std::make_unique<QtLoop>(session_->loop(), session_->driver());
  plugin_ = plugin;
  Refresh();
  return std::nullopt;
}

void WatchedPlugin::Unload() {
  if (session_ == nullptr) {
    return;
  }
  ++generation_;
  loop_.reset();
  session_.reset();
  recorder_.Clear();
  state_.clear();
  Refresh();
}

Fault WatchedPlugin::Send(const Command& command, const json& arguments) {
  if (session_ == nullptr) {
    return "no plug-in is loaded";
  }
  try {
    session_->Send(command, arguments);
    return std::nullopt;
  } catch (const HostError& error) {
    return error.what();
  }
}

Fault WatchedPlugin::SendTexts(const json& texts) {
  const std::vector<Sent> state = state_;
  if (auto fault = Send(*vellomar_host::FindCommand(VELLOMAR_COMMAND_setTextMap), texts)) {
    return fault;
  }
  for (const auto& [command, arguments] : state) {
    if (auto fault = Send(*command, arguments)) {
      return fault;
    }
  }
  return std::nullopt;
}

void WatchedPlugin::SetParticipantAnswers(const std::map<std::string, std::int64_t>& answers) {
  recorder_.SetParticipantAnswers(answers);
  if (session_ != nullptr) {
    session_->SetParticipantAnswers(answers);
  }
}

void WatchedPlugin::OnEntry(const TranscriptEntry& entry) {
  recorder_.Take(entry);
  notifications_.Append(entry);
  if (entry.kind == "send") {
    Remember(entry);
  }
  for (const EntryListener& listener : listeners_) {
    listener(entry);
  }
  if (!refresh_.isActive()) {
    refresh_.start();
  }
}

void WatchedPlugin::Remember(const TranscriptEntry& entry) {
  const Command* command = vellomar_host::FindCommand(std::string_view(entry.subject));
  if (command == nullptr || !SetsState(*command)) {
    return;
  }
  const auto subject = [](const json& arguments) { return arguments.value("key", json()); };
  std::erase_if(state_, [&](const Sent& sent) {
    return sent.first == command && subject(sent.second) == subject(entry.details);
  });
  state_.emplace_back(command, entry.details);
}

void WatchedPlugin::OnLogLine(const LogLine& line) {
  if (session_ != nullptr && !session_->loop().IsLoopThread()) {
    session_->loop().Post([this, line] { OnLogLine(line); });
    return;
  }
  lines_.push_back(line);
  if (!refresh_.isActive()) {
    refresh_.start();
  }
}

void WatchedPlugin::Refresh() {
  refresh_.stop();
  log_.Append(std::exchange(lines_, {}));
  const LorimelDriver* driver = session_ != nullptr ? session_->driver() : nullptr;
  buttons_.Update([driver](std::int32_t key, LorimelButton* out) {
    return driver != nullptr && driver->button(key, out);
  });
  StateChanged();
}

void WatchedPlugin::StateChanged() const {
  if (on_state_changed) {
    on_state_changed();
  }
}

}  // namespace vellomar_workbench
