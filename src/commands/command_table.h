// SPDX-License-Identifier: MIT
// The 71 commands: what the host's event ids lead to.
#pragma once

#include "bridge/event_table.h"

namespace VELLOMAR_CONTROLBAR {

// A handler for every row of vellomar/command_table.def, added in the order of the rows. A handler
// runs on the thread that called ExportedCallEvent; the work it starts runs on the host's loop.
EventTable MakeEventTable();

}  // namespace VELLOMAR_CONTROLBAR
