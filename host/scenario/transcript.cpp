// SPDX-License-Identifier: MIT
// Each line is flushed: the transcript is read while the scenario plays, and after a crash.
#include "host/scenario/transcript.h"

#include <fmt/format.h>

#include "host/abi/payload.h"

namespace vellomar_host {

namespace {

std::string AsText(const TranscriptEntry& entry) {
  const auto ms = entry.when.count();
  if (entry.details.empty()) {
    return fmt::format("{:>7}  {:<7} {}", ms, entry.kind, entry.subject);
  }
  return fmt::format("{:>7}  {:<7} {:<26} {}", ms, entry.kind, entry.subject,
                     ToLine(entry.details));
}

std::string AsJson(const TranscriptEntry& entry) {
  const nlohmann::ordered_json line = {{"ms", entry.when.count()},
                                       {"kind", entry.kind},
                                       {"subject", entry.subject},
                                       {"details", entry.details}};
  return line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace

Transcript::Transcript(std::ostream& out, Form form) {
  if (form == Form::kNone) {
    return;
  }
  sink_ = [&out, form](const TranscriptEntry& entry) {
    out << (form == Form::kText ? AsText(entry) : AsJson(entry)) << '\n';
    out.flush();
  };
}

void Transcript::Write(std::string_view kind, std::string_view subject,
                       const nlohmann::json& details) {
  if (!sink_) {
    return;
  }
  const auto elapsed = std::chrono::steady_clock::now() - begin_;
  sink_({std::chrono::duration_cast<std::chrono::milliseconds>(elapsed), std::string(kind),
         std::string(subject), details});
}

}  // namespace vellomar_host
