// SPDX-License-Identifier: MIT
// The life of the user interface: the Qt application, ours where the process has none, and the one
// Ui on top of it. Both go when the library is unloaded; a process
// that ends takes them along.
//
//     if (Ui* ui = CurrentUi("CloseSharedControlbar")) ui->Close();
#pragma once

#include <cstdint>

namespace vellomar_widgets::qt {

class Ui;

// The one Ui, created at the first call, on whose thread everything else has to be called. Null,
// with a warning that names `caller`, on another thread and where Qt has no widgets to offer.
Ui* CurrentUi(const char* caller);

// Handles what is waiting, then waits up to `max_ms` for more or for WakePump.
void Pump(std::int32_t max_ms);

// [any thread]
void WakePump();

}  // namespace vellomar_widgets::qt
