// SPDX-License-Identifier: MIT
// A test of the whole plug-in but for its loading: commands go in by name through the exports, the
// widget library without a screen stands below, and what the host is told comes out by name.
//
//     TEST_F(BarTest, ...) {
//       ShowBar();
//       Send("setAudioStatus", {{"status", 2}});
//       EXPECT_EQ(Button(1001).status, 68);
//       Click(1001);
//       EXPECT_THAT(Told(), Contains("muteAudio {\"mute\":false}"));
//     }
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "headless.h"
#include "manager/controlbar_manager.h"
#include "support/recording_log.h"
#include "support/script_host.h"

class BarTest : public testing::Test {
 protected:
  using Json = nlohmann::json;
  using EventKey = VELLOMAR_LORIMEL::EventKey;
  using BtnParams = VELLOMAR_LORIMEL::BtnParams;

  BarTest();
  ~BarTest() override;

  // Sends a command and runs what it posted; answers what the plug-in wrote into the record.
  Json Send(const std::string& command, const Json& arguments = Json::object());
  // A text for every id in use: its number, or what `texts` says.
  void InstallTexts(const std::map<std::uint64_t, std::string>& texts = {});
  bool ShowBar();

  // A participant for UpdateParticipants, whose key is the id and "-1".
  static Json Person(const std::string& id, const Json& changes = Json::object());
  void UpdateParticipants(const std::vector<Json>& people);

  // Reports a record as the widget library does when the user acts.
  void Fire(BtnParams params);
  // The button's own record, with this status word.
  void Click(std::int32_t key, std::int32_t status = 0);
  // The rows of a window as the widget library gets them.
  std::vector<vellomar_widgets::OwnedButton> Rows(std::int32_t window);

  // The plug-in's record of a key.
  const BtnParams& Button(std::int32_t key);
  // The status words that the widget library was given for a key, oldest first.
  std::vector<std::int32_t> PushedStatus(std::int32_t key);
  // The keys of the records that the widget library was given since Forget, oldest first.
  std::vector<std::int32_t> PushedKeys();

  // Notifications since Forget: name and payload, as "chat {\"open\":true}".
  const std::vector<std::string>& Told() const { return told_; }
  // The same without the uiEvent that precedes every other.
  std::vector<std::string> ToldBesidesEvents() const;
  // Forgets log lines, pushes and notifications.
  void Forget();

  static EventKey Key(std::int32_t number) { return static_cast<EventKey>(number); }
  static bool Logged(const std::string& text) { return recording_log::Contains(text); }
  static bool LoggedFault(const std::string& text);
  static vellomar_widgets::Headless& Library() { return vellomar_widgets::TheHeadless(); }
  static VELLOMAR_CONTROLBAR::ControlbarManager& Manager() {
    return *VELLOMAR_CONTROLBAR::ControlbarManager::GetInstance();
  }

  ScriptHost host;
  // Answers to the participant request by user id; 0 for others.
  std::map<std::string, std::int64_t> answers;
  std::vector<std::string> requests;  // user ids, in order
  // What the host does inside the next notification of a name, and inside a participant request.
  std::map<std::string, std::function<void()>> inside;
  std::function<void(const std::string& user_id)> in_request;

 private:
  static void OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload);
  static void OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record);

  static BarTest* current_;
  std::vector<std::string> told_;
  std::size_t forgotten_pushes_ = 0;
};
