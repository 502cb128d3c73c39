// SPDX-License-Identifier: MIT
// A scenario: what a host sends and a user does, in order, and what has to come of it.
//
//   Scenario scenario = LoadScenario("scenarios/first-share.json");
//
// Loading checks everything that can be known before the first command is sent. docs/scenarios.md
// describes the file.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/abi/tables.h"

namespace vellomar_host {

struct SendStep {
  const Command* command;
  nlohmann::json arguments;  // complete, files read
  nlohmann::json written;    // as the scenario writes them
  nlohmann::json expected;   // out fields
};
struct PressStep {
  std::int32_t key;
  bool refused;  // expected: no user could
};
struct OpenStep {
  std::int32_t key;
  std::optional<std::int32_t> rows;
};
struct PickStep {
  std::int32_t key;
  std::optional<std::string> value;
  bool refused;
};
struct CloseListStep {};
struct CloseBarStep {};
struct WaitForStep {
  const Notification* notification;
  nlohmann::json payload;  // expected fields
  std::chrono::milliseconds within;
};
struct WaitIdleStep {};
struct ExpectButtonStep {
  std::int32_t key;
  nlohmann::json fields;
};
struct ExpectRowStep {
  std::int32_t index;
  nlohmann::json fields;
};
struct ExpectNoneStep {
  const Notification* notification;
};
struct RespondStep {
  std::string avatar_key;
  std::string avatar_path;
};
struct DropStep {
  const Command* command;
};
struct ScreenshotStep {
  std::string file_name;
};
struct KeepOpenStep {};
struct NoteStep {
  std::string text;
};

using Action =
    std::variant<SendStep, PressStep, OpenStep, PickStep, CloseListStep, CloseBarStep, WaitForStep,
                 WaitIdleStep, ExpectButtonStep, ExpectRowStep, ExpectNoneStep, RespondStep,
                 DropStep, ScreenshotStep, KeepOpenStep, NoteStep>;

struct Step {
  int line;
  Action action;
};

struct Scenario {
  std::string file;  // as messages name it
  std::string name;
  std::string description;
  std::map<std::string, std::int64_t> participant_answers;  // by user id
  std::vector<Step> steps;
};

// Throws HostError with a line "file:line: reason" for each fault.
Scenario LoadScenario(const std::filesystem::path& file);
// As LoadScenario; files that the text names are looked for beside `file`.
Scenario ParseScenario(const std::string& text, const std::filesystem::path& file);

// One step. Files that it names are looked for in the folder. Throws HostError without a line.
Action ParseStep(const nlohmann::json& step, const std::filesystem::path& folder);

// The whole file. Throws HostError.
std::string ReadFile(const std::filesystem::path& file);

}  // namespace vellomar_host
