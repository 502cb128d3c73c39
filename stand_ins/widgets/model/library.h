// SPDX-License-Identifier: MIT
// What joins a widget library of ours to its model. The members of `Lorimel` and all of the driver
// that is the same for every library are made from it.
//
//     const LorimelDriver* LorimelGetDriver() {
//       static const LorimelDriver driver = ModelDriver("headless", Pump, Wake, Screenshot);
//       return &driver;
//     }
#pragma once

#include <cstdint>

#include "model/model.h"
#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_widgets {

// Defined by the library. The one model, on whose thread everything else has to be called. Null,
// with a warning that names `caller`, where there can be none.
Model* CurrentModel(const char* caller);

LorimelDriver ModelDriver(const char* name, void (*pump)(std::int32_t max_ms), void (*wake)(),
                          bool (*screenshot)(const char* path));

// Tells the tool that watches of what the user does with mouse and keyboard, in the driver's words.
// `value_text` is null for all but a row that was picked.
void ObserveUser(const char* action, VELLOMAR_LORIMEL::EventKey key,
                 const char* value_text = nullptr);

// Whether the tool has asked for this member to fail.
bool IsRefused(const char* member);

// Tells it of a call of the plug-in. `record` is null for every member but SetEventKey.
void Observe(const char* member, const OwnedButton* record = nullptr);

}  // namespace vellomar_widgets
