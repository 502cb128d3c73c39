// SPDX-License-Identifier: MIT
#include "catalog.h"

#include <algorithm>
#include <array>

#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr std::array kMainButtons = {
    ButtonSpec{EventKey::MuteAudio, kInSimple},
    ButtonSpec{EventKey::MuteCamera, kInSimple},
    ButtonSpec{EventKey::HostControl, kOpensOnPress | kStartsGroup},
    ButtonSpec{EventKey::Participants, 0},
    ButtonSpec{EventKey::Chat, 0},
    ButtonSpec{EventKey::RemoteControl, kOpensOnPress},
    ButtonSpec{EventKey::Annotate, kInSimple},
    ButtonSpec{EventKey::Reaction, 0},
    ButtonSpec{EventKey::Interpretation, kOpensOnPress},
    ButtonSpec{EventKey::AskHostForHelp, 0},
    ButtonSpec{EventKey::Record, 0},
    ButtonSpec{EventKey::More, kOpensOnPress | kInSimple},
    ButtonSpec{EventKey::ExternalMeeting, 0},
    ButtonSpec{EventKey::SharingOptions, kIconAlone | kOpensOnPress},
    ButtonSpec{EventKey::ShareNew, kStartsGroup},
    ButtonSpec{EventKey::StopSharing, kInSimple | kInCollapsed | kDanger},
    ButtonSpec{EventKey::StopRemoteControl, kIconAlone | kInCollapsed},
    ButtonSpec{EventKey::Leave, kInSimple | kStartsGroup},
    ButtonSpec{EventKey::ControlbarSwitch, kIconAlone | kNoLabel | kInCollapsed},
};

constexpr std::array kSketchButtons = {
    ButtonSpec{EventKey::SketchSelect, 0},
    ButtonSpec{EventKey::SketchMouse, 0},
    ButtonSpec{EventKey::SketchPen, kOpensOnPress},
    ButtonSpec{EventKey::SketchColor, kOpensOnPress},
    ButtonSpec{EventKey::SketchUndo, kStartsGroup},
    ButtonSpec{EventKey::SketchClear, kOpensOnPress},
};

}  // namespace

std::span<const ButtonSpec> MainButtons() {
  return kMainButtons;
}

std::span<const ButtonSpec> SketchButtons() {
  return kSketchButtons;
}

const ButtonSpec* SpecOf(EventKey key) {
  const auto has_key = [key](const ButtonSpec& spec) { return spec.key == key; };
  const auto* main = std::find_if(kMainButtons.begin(), kMainButtons.end(), has_key);
  if (main != kMainButtons.end()) {
    return main;
  }
  const auto* sketch = std::find_if(kSketchButtons.begin(), kSketchButtons.end(), has_key);
  return sketch != kSketchButtons.end() ? sketch : nullptr;
}

bool IsShown(const ButtonSpec& spec, const Records& records, const BarMode& mode) {
  const auto found = records.find(spec.key);
  if (found == records.end() || found->second.Has(VELLOMAR_LORIMEL::kStatusHidden)) {
    return false;
  }
  if ((mode.simplify && (spec.traits & kInSimple) == 0) ||
      (mode.collapsed && (spec.traits & kInCollapsed) == 0)) {
    return false;
  }
  return (spec.traits & kIconAlone) != 0 || !found->second.text.empty();
}

bool HasExpandPart(const OwnedButton& record) {
  return record.has_expand && vellomar_widgets::WindowOf(record.key) != EventKey::GroupHeader;
}

bool IsDeviceOff(const OwnedButton& record) {
  return (record.key == EventKey::MuteAudio || record.key == EventKey::MuteCamera) &&
         (record.status == VELLOMAR_LORIMEL::kStatusDeviceMuted ||
          record.status == VELLOMAR_LORIMEL::kStatusDeviceUnavailable);
}

bool IsLoading(const OwnedButton& record) {
  return record.key == EventKey::Annotate && record.status == VELLOMAR_LORIMEL::kStatusLoading;
}

bool IsSketchColor(EventKey key) {
  return key >= EventKey::SketchColorNone && key <= EventKey::SketchColor4;
}

EventKey ChosenSketchColor(const OwnedButton& color_button) {
  const auto key = static_cast<EventKey>(color_button.group_value);
  return IsSketchColor(key) ? key : EventKey::SketchColorNone;
}

}  // namespace lorimel_qt
