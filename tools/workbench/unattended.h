// SPDX-License-Identifier: MIT
// The workbench without a user: wait until all is played, and draw the window.
//
//   window.run().Play();
//   if (auto fault = WaitForEnd(window.run())) ...
//   TakePicture(watched, window, "workbench.png");
#pragma once

#include <filesystem>

#include "tools/workbench/scenario_run.h"

class QWidget;

namespace vellomar_workbench {

// The fault of the step that failed.
Fault WaitForEnd(ScenarioRun& run);

// A PNG of the window, as large as it is, when what was posted is done. Missing folders are
// created.
Fault TakePicture(WatchedPlugin& watched, QWidget& window, const std::filesystem::path& file);

}  // namespace vellomar_workbench
