// SPDX-License-Identifier: MIT
// Which buttons there are on which bar, in which order, and what is special about each.
//
//     for (const ButtonSpec& spec : MainButtons())
//       if (IsShown(spec, records, mode)) ...
#pragma once

#include <map>
#include <span>

#include "owned_button.h"

namespace lorimel_qt {

// What the plug-in has pushed, by key.
using Records = std::map<VELLOMAR_LORIMEL::EventKey, vellomar_widgets::OwnedButton>;

// Traits of a button.
enum : unsigned {
  kIconAlone = 1,     // shown without a label too
  kOpensOnPress = 2,  // a press opens the drop-down window; without it only the expand part does
  kInSimple = 4,      // on the simplified bar
  kInCollapsed = 8,   // on the collapsed bar
  kDanger = 16,       // red
  kStartsGroup = 32,  // a gap before it
  kNoLabel = 64,      // its text is for the tool-tip
};

struct ButtonSpec {
  VELLOMAR_LORIMEL::EventKey key;
  unsigned traits;
};

std::span<const ButtonSpec> MainButtons();
std::span<const ButtonSpec> SketchButtons();

// The button's row in the tables; null where it is on neither bar.
const ButtonSpec* SpecOf(VELLOMAR_LORIMEL::EventKey key);

// The bar as a whole.
struct BarMode {
  bool simplify = false;
  bool collapsed = false;
};

bool IsShown(const ButtonSpec& spec, const Records& records, const BarMode& mode);

// Whether there is a part beside the button that opens its drop-down window.
bool HasExpandPart(const vellomar_widgets::OwnedButton& record);

// The states that whole status values stand for.
bool IsDeviceOff(const vellomar_widgets::OwnedButton& record);
bool IsLoading(const vellomar_widgets::OwnedButton& record);

// One of the five choices of the colour button.
bool IsSketchColor(VELLOMAR_LORIMEL::EventKey key);
VELLOMAR_LORIMEL::EventKey ChosenSketchColor(const vellomar_widgets::OwnedButton& color_button);

}  // namespace lorimel_qt
