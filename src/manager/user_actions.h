// SPDX-License-Identifier: MIT
// What the user did on the bar, by key: remembers what must be remembered and tells the host.
#pragma once

#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

// Runs the handler of the event's key, if there is one. The event is the caller's own copy: the
// host may do anything while it is told. [UI thread of the widgets]
void RunUserAction(ControlbarManager& manager, const BtnParams& event);

}  // namespace VELLOMAR_CONTROLBAR
