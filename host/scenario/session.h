// SPDX-License-Identifier: MIT
// A plug-in at work: loaded with its widget library, initialised on an event loop, and shut down in
// order when the object goes.
//
//   Session session({.plugin = "lib/libvellomar-controlbar.so", ...}, {}, transcript);
//   session.Send(*FindCommand("setHostType"), {{"type", 1}});
//   session.loop().RunUntilIdle(deadline);
//   session.notifications()  ->  what the plug-in has notified so far
//
// Everything on one thread. One session at a time: the plug-in's entry points into the host carry
// no context. Throws HostError.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/abi/library.h"
#include "host/abi/plugin.h"
#include "host/abi/tables.h"
#include "host/loop/event_loop.h"
#include "host/scenario/log_lines.h"
#include "host/scenario/transcript.h"
#include "vellomar_dev/log_observer.h"
#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_host {

struct SessionFiles {
  std::filesystem::path plugin;
  std::filesystem::path widgets;
  std::string log;  // path of the log; empty: none
};

struct ReceivedNotification {
  const Notification* notification;
  nlohmann::json payload;
};

class Session {
 public:
  // What the host answers to the request for a participant, by user id; 0 for others.
  using ParticipantAnswers = std::map<std::string, std::int64_t>;

  // `on_log` is given the plug-in's log lines, where the log library lets itself be observed.
  Session(const SessionFiles& files, ParticipantAnswers answers, Transcript& transcript,
          LogSink on_log = {});
  // Closes the bar where it is still shown, stops the plug-in and runs what is still posted.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  Session(Session&&) = delete;
  Session& operator=(Session&&) = delete;

  // Returns the out fields of an answering command, else an empty object.
  nlohmann::json Send(const Command& command, const nlohmann::json& arguments,
                      const nlohmann::json& written);
  nlohmann::json Send(const Command& command, const nlohmann::json& arguments) {
    return Send(command, arguments, arguments);
  }
  void RespondAvatar(const std::string& key, const std::string& path);
  void Drop(const Command& command);

  void SetParticipantAnswers(ParticipantAnswers answers) { answers_ = std::move(answers); }

  EventLoop& loop() { return loop_; }
  // Null where the widget library has none.
  const LorimelDriver* driver() const { return driver_; }
  const std::vector<ReceivedNotification>& notifications() const { return notifications_; }
  bool bar_exists() const { return bar_exists_; }
  // Whether on_log is called: it was given, and the log library exports VellomarLogObserve.
  bool observes_log() const { return observe_log_ != nullptr; }

 private:
  static void OnNotify(const char* sender, std::uint32_t id_low, std::uint32_t id_high,
                       void* payload);
  static void OnRequest(const char* sender, std::uint32_t id_low, std::uint32_t id_high,
                        void* record);
  static void OnUserAction(void* context, const char* action, std::int32_t key, const char* value);
  static void OnLogLine(void* context, const char* module, int level, const char* text);
  static void OnWidgetCall(void* context, const char* member, const LorimelButton* record);
  void Receive(std::uint64_t id, const void* payload);
  void Keep(std::uint64_t id, ReceivedNotification received);
  void CloseBar();
  void ObserveLog();

  static Session* current_;

  Transcript& transcript_;
  ParticipantAnswers answers_;
  EventLoop loop_;  // outlives the libraries, whose code its tasks run
  // The widget library is loaded first and by path: the plug-in, which needs it by name, then gets
  // this one whatever the search path holds.
  SharedLibrary widgets_;
  Plugin plugin_;
  LogSink on_log_;
  std::optional<SharedLibrary> log_library_;
  VellomarLogObserveFunction* observe_log_ = nullptr;
  const LorimelDriver* driver_ = nullptr;
  std::vector<ReceivedNotification> notifications_;
  bool bar_exists_ = false;
};

}  // namespace vellomar_host
