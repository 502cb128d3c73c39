// SPDX-License-Identifier: MIT
// Plays a scenario on a session.
//
//   if (auto failure = PlayScenario(scenario, options, transcript)) std::cerr << *failure;
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/scenario.h"
#include "host/session.h"
#include "host/transcript.h"

namespace vellomar_host {

struct PlayOptions {
  SessionFiles files;
  std::filesystem::path out = ".";  // where screenshots go
  bool has_display = false;         // somebody can see and close the bar
};

// Answers the first failed step as "file:line: reason", none where all went well. Throws HostError
// when the libraries cannot be loaded or lack what the scenario needs; nothing has been sent then.
std::optional<std::string> PlayScenario(const Scenario& scenario, const PlayOptions& options,
                                        Transcript& transcript);

}  // namespace vellomar_host
