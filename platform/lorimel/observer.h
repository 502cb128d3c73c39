// SPDX-License-Identifier: MIT
// Tells the tool that watches of every call of the plug-in.
//
//     Observe("SetEventKey", &record);
#pragma once

#include "owned_button.h"
#include "vellomar/lorimel_driver.h"

namespace lorimel_qt {

void SetObserver(LorimelObserver* observer, void* context);

// `record` is null for every member but SetEventKey.
void Observe(const char* member, const vellomar_widgets::OwnedButton* record = nullptr);

}  // namespace lorimel_qt
