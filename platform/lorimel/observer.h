// SPDX-License-Identifier: MIT
// Tells the tool that watches of every call of the plug-in, and of what the user does.
//
//     Observe("SetEventKey", &record);
//     ObserveUser("press", EventKey::Chat);
#pragma once

#include "owned_button.h"
#include "vellomar/lorimel_driver.h"

namespace lorimel_qt {

void SetObserver(LorimelObserver* observer, void* context);

// `record` is null for every member but SetEventKey.
void Observe(const char* member, const vellomar_widgets::OwnedButton* record = nullptr);

void SetUserObserver(LorimelUserObserver* observer, void* context);

// The action in the driver's words. `value_text` is null for all but a row that was picked.
void ObserveUser(const char* action, VELLOMAR_LORIMEL::EventKey key,
                 const char* value_text = nullptr);

}  // namespace lorimel_qt
