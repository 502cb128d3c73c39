// SPDX-License-Identifier: MIT
// Plays the steps of a block on a plug-in that nothing has happened to yet. streams/README.md
// describes the steps.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "plugin/messages.h"
#include "plugin/stream.h"
#include "support/script_host.h"
#include "vellomar/lorimel.h"

namespace streams {

class Player {
 public:
  Player();
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // What a step causes. Throws std::runtime_error for what is no step.
  Lines Play(const std::string& step);

 private:
  using BtnParams = VELLOMAR_LORIMEL::BtnParams;
  using Export = bool(std::uint32_t low, std::uint32_t high, void* payload);
  using Step = std::function<void(const std::string& rest)>;

  static void OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload);
  static void OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record);
  std::map<std::string, Step> ExportSteps();
  std::map<std::string, Step> SettingSteps();
  std::map<std::string, Step> LibrarySteps();
  void Do(const std::string& step);
  void Init();
  void Raise(Export* function, const std::string& rest);
  void SendTexts(const std::string& rest);
  void Send(const Message& command, const std::string& rest);
  void Click(const std::string& rest);
  void Pick(const std::string& rest);
  void Fire(BtnParams& event);
  void Ask(const std::string& rest);
  void Hear(const char* sender, std::uint64_t id, const std::string& line);
  Lines WithoutUsual(Lines lines) const;
  void ReadWhatTheLibraryHolds();

  static Player* current_;
  std::map<std::string, Step> steps_;
  Stream stream_;
  ScriptHost host_;
  bool runs_later_ = false;
  bool shows_calls_ = false;
  std::set<std::string> without_;                   // what the host does not give at init
  std::map<std::string, std::int64_t> answers_;     // to the participant request, by user id
  std::map<std::uint64_t, std::string> reactions_;  // what the host does, once, when it hears this

  std::map<int, Lines> answered_;  // the rows of a window, by its key

  // Of the step that is played:
  Lines usual_;                  // what every step of its kind begins with and is left out
  std::size_t inner_ = 0;        // the depth of what follows: inside of it, or 0: after it
  Lines tail_;                   // answers
  std::function<void()> spoil_;  // what the library does to its event once the host is told
  std::string rows_;             // the address of the rows, as a log line has it
};

}  // namespace streams
