// SPDX-License-Identifier: MIT
// The two libraries below the plug-in, reduced to what a measurement needs: a log that drops its
// lines and widgets that draw nothing. Both are real shared libraries under the real names, so that
// a call costs what it costs in the field. An observer sees what they are given; it is set to prove
// that two ways do the same work, and is null while time is taken.
//
//     ObserveLog([](const char* text) { lines.push_back(text); });
#pragma once

#include "vellomar/log.h"
#include "vellomar/lorimel.h"

namespace bench {

using Observer = void(const char* text);

VELLOMAR_LOG_API void ObserveLog(Observer* observer);
// Gets a line for each record that is pushed and for each other change.
VELLOMAR_LORIMEL_API void ObserveWidgets(Observer* observer);

// Is shown every text that a bar or a tip is given.
VELLOMAR_LORIMEL_API void ReadTexts(Observer* reader);

// What the plug-in wants to be called back with, and the records of its bar.
struct WidgetCallbacks {
  VELLOMAR_LORIMEL::EventCallback* on_event = nullptr;
  VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window = nullptr;
  VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;  // while there is a bar
  VELLOMAR_LORIMEL::BtnParams* records = nullptr;
};
VELLOMAR_LORIMEL_API const WidgetCallbacks& Callbacks();

}  // namespace bench
