// SPDX-License-Identifier: MIT
// Makes a scenario of what happens: the commands that are sent and what the user does.
//
//   Recorder recorder;
//   recorder.Take(entry);  // each entry of the session's transcript
//   WriteFile("mine.json", recorder.Scenario("Mine"));
//
// Commands are carried out when the loop comes to them, so a "waitIdle" is put before a step that
// looks at what they did.
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "host/scenario/transcript.h"

namespace vellomar_workbench {

class Recorder {
 public:
  void Take(const vellomar_host::TranscriptEntry& entry);
  void Clear();
  // What comes of the steps is recorded too: answers, and notifications to wait for.
  void SetWithResults(bool with_results) { with_results_ = with_results; }
  void SetParticipantAnswers(std::map<std::string, std::int64_t> answers) {
    answers_ = std::move(answers);
  }

  std::size_t size() const { return steps_.size(); }
  // The text of a scenario file, a step a line.
  std::string Scenario(const std::string& name) const;

 private:
  void TakeSend(const vellomar_host::TranscriptEntry& entry);
  void TakeResult(const vellomar_host::TranscriptEntry& entry);
  void Add(nlohmann::ordered_json step, bool needs_rest);

  std::vector<nlohmann::ordered_json> steps_;
  std::map<std::string, std::int64_t> answers_;
  bool posted_ = false;  // something was posted since the last rest
  bool with_results_ = false;
};

}  // namespace vellomar_workbench
