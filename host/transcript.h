// SPDX-License-Identifier: MIT
// What happened, a line each, with the milliseconds since the transcript was begun.
//
//   Transcript transcript(std::cout, Transcript::Form::kText);
//   transcript.Write("send", "setHostType", {{"type", 1}});
//   ->       3  send    setHostType                 {"type":1}
#pragma once

#include <chrono>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

namespace vellomar_host {

class Transcript {
 public:
  enum class Form { kNone, kText, kJsonLines };

  Transcript(std::ostream& out, Form form) : out_(out), form_(form) {}

  // `kind` says who did what: send, answer, push, notify, ...; empty details are left out.
  void Write(std::string_view kind, std::string_view subject,
             const nlohmann::json& details = nullptr);

 private:
  std::ostream& out_;
  Form form_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace vellomar_host
