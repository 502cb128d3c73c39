// SPDX-License-Identifier: MIT
#include "user_action.h"

#include <algorithm>
#include <array>

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

// Buttons and rows that stay on or open until they are pressed again.
constexpr std::array kToggles = {
    EventKey::MuteAudio,
    EventKey::MuteCamera,
    EventKey::Participants,
    EventKey::HostControl,
    EventKey::AnnotatePermission,
    EventKey::RemoteControl,
    EventKey::Chat,
    EventKey::More,
    EventKey::Record,
    EventKey::Annotate,
    EventKey::Subtitles,
    EventKey::LiveStream,
    EventKey::Labs,
    EventKey::Settings,
    EventKey::MeetingIdExpand,
    EventKey::MoveNew,
    EventKey::OnlyHostShare,
    EventKey::OnlyHostReshare,
    EventKey::NewParticipantMic,
    EventKey::MicOperate,
    EventKey::MuteOrigin,
    EventKey::OptimizeForVideoClips,
    EventKey::KeepMyVideoOnTheScreen,
    EventKey::OnlyThePresenterCanAnnotate,
};

}  // namespace

OwnedButton AfterPress(const OwnedButton& button) {
  OwnedButton pressed = button;
  if (std::find(kToggles.begin(), kToggles.end(), button.key) != kToggles.end()) {
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

bool CanPress(const OwnedButton& button) {
  return button.key != EventKey::GroupHeader && button.key != EventKey::Separator &&
         !button.Has(VELLOMAR_LORIMEL::kStatusHidden | VELLOMAR_LORIMEL::kStatusDisabled);
}

}  // namespace vellomar_widgets
