// SPDX-License-Identifier: MIT
// A button as the widget library's driver shows it, in JSON.
//
//   ButtonToJson(button)  ->  {"key": 1001, "text": "Audio", "status": 32, ...}
#pragma once

#include <nlohmann/json.hpp>

#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_host {

nlohmann::json ButtonToJson(const LorimelButton& button);

// Checks expected fields, not necessarily all, and returns them as ButtonToJson writes them. Throws
// HostError for a field that does not exist or has another type.
nlohmann::json CheckExpectedButton(const nlohmann::json& expected);

}  // namespace vellomar_host
