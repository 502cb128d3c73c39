// SPDX-License-Identifier: MIT
// Which buttons there are on which bar, in which order, what is special about each, and which of
// them are shown.
//
//     for (const ButtonSpec& spec : MainButtons())
//       if (IsShown(spec.key, records, mode)) ...
#pragma once

#include <map>
#include <span>

#include "model/owned_button.h"

namespace vellomar_widgets {

// What the plug-in has pushed, by key.
using Records = std::map<VELLOMAR_LORIMEL::EventKey, OwnedButton>;

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
bool IsOnSketchBar(VELLOMAR_LORIMEL::EventKey key);
bool OpensOnPress(VELLOMAR_LORIMEL::EventKey key);

// What the line above the buttons of the main bar shows.
struct InfoSpec {
  VELLOMAR_LORIMEL::EventKey key;
  bool icon_alone;  // shown without a text too
  bool can_elide;
};

std::span<const InfoSpec> InfoItems();

// The bar as a whole.
struct BarMode {
  bool simplify = false;
  bool collapsed = false;
};

// Whether the bar that the button or the item belongs to shows it. The mode is the main bar's.
bool IsShown(VELLOMAR_LORIMEL::EventKey key, const Records& records, const BarMode& mode);

inline constexpr int kMostNetworkStrength = 4;

// Of NetworkStrength: 1 to the most, 0 where it has not been measured. The status is the strength
// itself, so no bit of it hides anything.
int NetworkStrengthOf(const OwnedButton& record);

// Whether there is a part beside the button that opens its drop-down window.
bool HasExpandPart(const OwnedButton& record);

// The states that whole status values stand for.
bool IsDeviceOff(const OwnedButton& record);
bool IsLoading(const OwnedButton& record);

// One of the five choices of the colour button.
bool IsSketchColor(VELLOMAR_LORIMEL::EventKey key);
VELLOMAR_LORIMEL::EventKey ChosenSketchColor(const OwnedButton& color_button);

}  // namespace vellomar_widgets
