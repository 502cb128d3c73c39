// SPDX-License-Identifier: MIT
#include "tools/workbench/recorder.h"

#include "host/abi/tables.h"

namespace vellomar_workbench {

using nlohmann::json;
using nlohmann::ordered_json;
using vellomar_host::TranscriptEntry;

namespace {

// What is the same whenever and wherever the scenario is played: no handles and no places.
json Lasting(const json& payload) {
  json lasting = json::object();
  if (!payload.is_object()) {
    return lasting;
  }
  for (const auto& member : payload.items()) {
    const bool is_handle = member.key() == "nativeHandle" || member.key() == "windowId";
    if (!is_handle && member.value().is_primitive()) {
      lasting[member.key()] = member.value();
    }
  }
  return lasting;
}

}  // namespace

void Recorder::Take(const TranscriptEntry& entry) {
  if (entry.kind == "send") {
    TakeSend(entry);
  } else if (entry.kind == "press" || entry.kind == "open") {
    Add({{entry.kind, entry.subject}}, true);
  } else if (entry.kind == "pick") {
    ordered_json step = {{"pick", entry.subject}};
    const auto value = entry.details.is_string() ? entry.details.get<std::string>() : "";
    if (!value.empty()) {
      step["value"] = value;
    }
    Add(std::move(step), true);
  } else if (entry.kind == "close") {
    Add({{entry.subject == "bar" ? "closeBar" : "closeList", true}}, true);
  } else if (entry.kind == "respond") {
    Add({{"respond", entry.details}}, true);
  } else if (entry.kind == "drop") {
    Add({{"drop", entry.subject}}, false);
  } else if (entry.kind == "note") {
    Add({{"note", entry.subject}}, false);
  } else {
    TakeResult(entry);
  }
}

void Recorder::TakeSend(const TranscriptEntry& entry) {
  const auto* command = vellomar_host::FindCommand(std::string_view(entry.subject));
  const bool posts = command != nullptr && command->route == vellomar_host::Route::kPost;
  ordered_json step = {{"send", entry.subject}};
  if (!entry.details.empty()) {
    step["args"] = entry.details;
  }
  Add(std::move(step), !posts);
  posted_ |= posts;
}

void Recorder::TakeResult(const TranscriptEntry& entry) {
  // A press that was expected to be refused, and was.
  if (entry.kind == "matched" && entry.subject.starts_with("cannot ") && !steps_.empty()) {
    steps_.back()["refused"] = true;
  }
  if (!with_results_ || steps_.empty()) {
    return;
  }
  if (entry.kind == "answer" && steps_.back().contains("send")) {
    const json expected = Lasting(entry.details);
    if (!expected.empty()) {
      steps_.back()["expect"] = expected;
    }
  } else if (entry.kind == "notify") {
    ordered_json wait = {{"notification", entry.subject}};
    const json payload = Lasting(entry.details);
    if (!payload.empty()) {
      wait["payload"] = payload;
    }
    Add({{"waitFor", wait}}, false);
    posted_ = false;  // waiting runs the loop
  }
}

void Recorder::Add(ordered_json step, bool needs_rest) {
  if (needs_rest && posted_) {
    steps_.push_back({{"waitIdle", true}});
    posted_ = false;
  }
  steps_.push_back(std::move(step));
}

void Recorder::Clear() {
  steps_.clear();
  posted_ = false;
}

std::string Recorder::Scenario(const std::string& name) const {
  std::string text = "{\n  \"name\": " + json(name).dump() + ",\n";
  if (!answers_.empty()) {
    text += "  \"participantAnswers\": " + json(answers_).dump() + ",\n";
  }
  text += "  \"steps\": [";
  std::string separator = "\n    ";
  for (const ordered_json& step : steps_) {
    text += separator + step.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
    separator = ",\n    ";
  }
  // What was posted last is to run before the end.
  if (posted_) {
    text += separator + "{\"waitIdle\":true}";
  }
  return text + "\n  ]\n}\n";
}

}  // namespace vellomar_workbench
