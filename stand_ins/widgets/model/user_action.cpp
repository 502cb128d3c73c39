// SPDX-License-Identifier: MIT
#include "model/user_action.h"

#include <algorithm>
#include <array>

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

// Buttons, and rows without a box, that stay on or open until they are pressed again.
constexpr std::array kToggles = {
    EventKey::Participants,    EventKey::HostControl, EventKey::AnnotatePermission,
    EventKey::RemoteControl,   EventKey::Chat,        EventKey::More,
    EventKey::Record,          EventKey::Annotate,    EventKey::Subtitles,
    EventKey::LiveStream,      EventKey::Labs,        EventKey::Settings,
    EventKey::MeetingIdExpand,
};

// ShareAudio's box turns when the plug-in says so.
constexpr std::array kCheckRows = {
    EventKey::MoveNew,
    EventKey::OnlyHostShare,
    EventKey::OnlyHostReshare,
    EventKey::NewParticipantMic,
    EventKey::MicOperate,
    EventKey::MuteOrigin,
    EventKey::OptimizeForVideoClips,
    EventKey::KeepMyVideoOnTheScreen,
    EventKey::OnlyThePresenterCanAnnotate,
    EventKey::ShareAudio,
};

struct DropDown {
  EventKey opener;
  EventKey window;
};

constexpr std::array kDropDowns = {
    DropDown{EventKey::MuteAudio, EventKey::AudioDevices},
    DropDown{EventKey::MuteCamera, EventKey::CameraDevices},
    DropDown{EventKey::HostControl, EventKey::HostControlWindow},
    DropDown{EventKey::RemoteControl, EventKey::RemoteControl},
    DropDown{EventKey::More, EventKey::More},
    DropDown{EventKey::Interpretation, EventKey::Interpretation},
    DropDown{EventKey::ShareNew, EventKey::ShareNew},
    DropDown{EventKey::SharingOptions, EventKey::SharingOptions},
    DropDown{EventKey::InfoText, EventKey::MeetingIdExpand},
    DropDown{EventKey::SketchPen, EventKey::SketchPen},
    DropDown{EventKey::SketchClear, EventKey::SketchClear},
};

}  // namespace

bool IsToggle(EventKey key) {
  return std::find(kToggles.begin(), kToggles.end(), key) != kToggles.end() ||
         (IsCheckRow(key) && key != EventKey::ShareAudio);
}

OwnedButton AfterPress(const OwnedButton& button) {
  OwnedButton pressed = button;
  if (button.key == EventKey::MuteAudio || button.key == EventKey::MuteCamera) {
    // "On" is a live device, which the plug-in shows with the word 0 as well.
    const bool muted = button.Has(VELLOMAR_LORIMEL::kStatusDeviceMuted);
    pressed.status = muted ? VELLOMAR_LORIMEL::kStatusOn : VELLOMAR_LORIMEL::kStatusDeviceMuted;
  }
  if (IsToggle(button.key)) {
    pressed.status ^= VELLOMAR_LORIMEL::kStatusOn;
  }
  return pressed;
}

OwnedButton AfterPick(const std::vector<OwnedButton>& rows, std::size_t index) {
  OwnedButton picked = AfterPress(rows[index]);
  if (picked.key == EventKey::JoinPermission) {
    const auto same_group = [&picked](const OwnedButton& row) { return row.key == picked.key; };
    picked.group_value = static_cast<std::int32_t>(
        std::count_if(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(index), same_group));
  }
  return picked;
}

bool IsCheckRow(EventKey key) {
  return std::find(kCheckRows.begin(), kCheckRows.end(), key) != kCheckRows.end();
}

bool StaysOpenAfterPick(EventKey key) {
  return key == EventKey::JoinPermission || IsCheckRow(key);
}

bool IsCaption(const OwnedButton& row) {
  return row.key == EventKey::GroupHeader ||
         (row.key == EventKey::InterpretationItem && row.object_name == "Interpretation");
}

bool CanPress(const OwnedButton& button) {
  return !IsCaption(button) && button.key != EventKey::Separator &&
         !button.Has(VELLOMAR_LORIMEL::kStatusHidden | VELLOMAR_LORIMEL::kStatusDisabled);
}

EventKey WindowOf(EventKey button) {
  const auto* found = std::find_if(kDropDowns.begin(), kDropDowns.end(),
                                   [button](const DropDown& d) { return d.opener == button; });
  return found != kDropDowns.end() ? found->window : EventKey::GroupHeader;
}

EventKey OpenerOf(EventKey window) {
  const auto* found = std::find_if(kDropDowns.begin(), kDropDowns.end(),
                                   [window](const DropDown& d) { return d.window == window; });
  return found != kDropDowns.end() ? found->opener : EventKey::GroupHeader;
}

}  // namespace vellomar_widgets
