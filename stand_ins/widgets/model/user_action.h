// SPDX-License-Identifier: MIT
// What a press does to a record before the plug-in is told: the button turns its "on" bit, a check
// row its check, a radio row becomes the checked one of its group, a live device becomes a muted
// one.
//
//     OwnedButton event = AfterPress(button);         // a button of a bar
//     OwnedButton event = AfterPick(rows, index);     // a row of a drop-down window
#pragma once

#include <cstddef>
#include <vector>

#include "model/owned_button.h"

namespace vellomar_widgets {

// Whether it stays on or open until it is pressed again.
bool IsToggle(VELLOMAR_LORIMEL::EventKey key);

// The button as it is after the user pressed it.
OwnedButton AfterPress(const OwnedButton& button);

// The row as it is after the user picked it.
OwnedButton AfterPick(const std::vector<OwnedButton>& rows, std::size_t index);

// Whether the row has a box that bit "on" checks; other rows with that bit show a tick.
bool IsCheckRow(VELLOMAR_LORIMEL::EventKey key);

// Whether the drop-down window stays open after a pick: settings are often changed together, what
// starts or ends something is done with one click.
bool StaysOpenAfterPick(VELLOMAR_LORIMEL::EventKey key);

// A caption in a list. The interpretation list's own has the key of its languages.
bool IsCaption(const OwnedButton& row);

// Whether a user can press it: neither hidden nor disabled, and no caption or separator.
bool CanPress(const OwnedButton& button);

// The drop-down window that a button opens: the key under which the plug-in is asked for its rows.
// GroupHeader where it has none.
VELLOMAR_LORIMEL::EventKey WindowOf(VELLOMAR_LORIMEL::EventKey button);

// The button that a drop-down window hangs from; GroupHeader where there is no such window.
VELLOMAR_LORIMEL::EventKey OpenerOf(VELLOMAR_LORIMEL::EventKey window);

}  // namespace vellomar_widgets
