// SPDX-License-Identifier: MIT
// Each line is flushed: the transcript is read while the scenario plays, and after a crash.
#include "host/transcript.h"

#include <fmt/format.h>

#include "host/payload.h"

namespace vellomar_host {

void Transcript::Write(std::string_view kind, std::string_view subject,
                       const nlohmann::json& details) {
  using std::chrono::milliseconds;
  if (form_ == Form::kNone) return;
  const auto elapsed = std::chrono::steady_clock::now() - begin_;
  const auto ms = std::chrono::duration_cast<milliseconds>(elapsed).count();
  if (form_ == Form::kJsonLines) {
    const nlohmann::ordered_json line = {
        {"ms", ms}, {"kind", kind}, {"subject", subject}, {"details", details}};
    out_ << line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
  } else if (details.empty()) {
    out_ << fmt::format("{:>7}  {:<7} {}\n", ms, kind, subject);
  } else {
    out_ << fmt::format("{:>7}  {:<7} {:<26} {}\n", ms, kind, subject, ToLine(details));
  }
  out_.flush();
}

}  // namespace vellomar_host
