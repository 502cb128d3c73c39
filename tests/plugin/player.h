// SPDX-License-Identifier: MIT
// Plays the steps of a block on a plug-in that nothing has happened to yet. The steps are described
// in streams/README.md.
#pragma once

#include <string>

#include "plugin/messages.h"
#include "plugin/stream.h"

namespace streams {

class Player {
 public:
  Player();
  ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // One step and what it causes. Throws std::runtime_error for what is no step.
  Lines Play(const std::string& step);

 private:
  void Do(const std::string& step);
  bool DoSetting(const std::string& verb, const std::string& rest);
  bool DoExport(const std::string& verb, const std::string& rest);
  bool DoLibrary(const std::string& verb, const std::string& rest);
  void SetHost(const std::string& rest);
  void SetLibrary(const std::string& rest);
  void Init();
  void SendTexts(const std::string& rest);
  void Send(const Message& command, const std::string& rest);
  void Click(const std::string& rest);
  void Ask(int key);
  Lines WithoutUsual(Lines lines) const;

  Stream stream_;
  Host host_;
  bool shows_calls_ = false;
  // Of the step that is played:
  Lines usual_;            // what every step of its kind begins with, which is left out
  std::size_t inner_ = 0;  // the depth of what follows: inside of it, or 0: after it
  Lines tail_;             // answers
  std::string rows_;       // the address of the rows, as a log line has it
};

}  // namespace streams
