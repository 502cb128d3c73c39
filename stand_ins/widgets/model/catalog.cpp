// SPDX-License-Identifier: MIT
#include "model/catalog.h"

#include <algorithm>
#include <array>

#include "model/user_action.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

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

// In their order.
constexpr std::array kInfoItems = {
    InfoSpec{EventKey::NetworkStrength, true, false},
    InfoSpec{EventKey::RecordIndicator, true, false},
    InfoSpec{EventKey::LiveIndicator, true, false},
    InfoSpec{EventKey::SharingIndicator, true, false},
    InfoSpec{EventKey::PauseIndicator, true, false},
    InfoSpec{EventKey::ShareMeetingName, false, true},
    InfoSpec{EventKey::SubRoomName, false, true},
    InfoSpec{EventKey::InfoText, true, true},
};

bool IsButtonShown(const ButtonSpec& spec, const OwnedButton& record, const BarMode& mode) {
  if (record.Has(VELLOMAR_LORIMEL::kStatusHidden) ||
      (mode.simplify && (spec.traits & kInSimple) == 0) ||
      (mode.collapsed && (spec.traits & kInCollapsed) == 0)) {
    return false;
  }
  return (spec.traits & kIconAlone) != 0 || !record.text.empty();
}

bool IsInfoItemShown(const InfoSpec& spec, const OwnedButton& record) {
  if (spec.key == EventKey::NetworkStrength) {
    return NetworkStrengthOf(record) > 0;
  }
  return !record.Has(VELLOMAR_LORIMEL::kStatusHidden) && (spec.icon_alone || !record.text.empty());
}

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

bool IsOnSketchBar(EventKey key) {
  return key >= EventKey::SketchSelect && key <= EventKey::SketchClear;
}

bool OpensOnPress(EventKey key) {
  const ButtonSpec* spec = SpecOf(key);
  return spec != nullptr && (spec->traits & kOpensOnPress) != 0;
}

std::span<const InfoSpec> InfoItems() {
  return kInfoItems;
}

bool IsShown(EventKey key, const Records& records, const BarMode& mode) {
  const auto found = records.find(key);
  if (found == records.end()) {
    return false;
  }
  if (const ButtonSpec* spec = SpecOf(key); spec != nullptr) {
    return IsButtonShown(*spec, found->second, IsOnSketchBar(key) ? BarMode{} : mode);
  }
  const auto* item = std::find_if(kInfoItems.begin(), kInfoItems.end(),
                                  [key](const InfoSpec& spec) { return spec.key == key; });
  return item != kInfoItems.end() && IsInfoItemShown(*item, found->second);
}

int NetworkStrengthOf(const OwnedButton& record) {
  return std::clamp(record.status, 0, kMostNetworkStrength);
}

bool HasExpandPart(const OwnedButton& record) {
  return record.has_expand && WindowOf(record.key) != EventKey::GroupHeader;
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

}  // namespace vellomar_widgets
