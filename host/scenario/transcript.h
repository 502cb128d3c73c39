// SPDX-License-Identifier: MIT
// What happened, a line each, with the milliseconds since the transcript was begun.
//
//   Transcript transcript(std::cout, Transcript::Form::kText);
//   transcript.Write("send", "setHostType", {{"type", 1}});
//   ->       3  send    setHostType                 {"type":1}
//
// A program with a window takes the entries instead: Transcript transcript(OnEntry).
#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

namespace vellomar_host {

struct TranscriptEntry {
  std::chrono::milliseconds when;  // since the transcript was begun
  std::string kind;
  std::string subject;
  nlohmann::json details;
};

class Transcript {
 public:
  enum class Form { kNone, kText, kJsonLines };
  using Sink = std::function<void(const TranscriptEntry&)>;

  Transcript(std::ostream& out, Form form);
  explicit Transcript(Sink sink) : sink_(std::move(sink)) {}

  // `kind` says who did what: send, answer, push, notify, ...; empty details are left out.
  void Write(std::string_view kind, std::string_view subject,
             const nlohmann::json& details = nullptr);

 private:
  Sink sink_;  // none: nothing is kept
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace vellomar_host
