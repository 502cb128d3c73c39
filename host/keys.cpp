// SPDX-License-Identifier: MIT
// The one list of key names. The switch has no default, so that a key missing here is a warning,
// which is an error in this build.
#include "host/keys.h"

#include <algorithm>
#include <array>

#include "vellomar/lorimel.h"

namespace vellomar_host {
namespace {

using VELLOMAR_LORIMEL::EventKey;

// clang-format off
#define VELLOMAR_KEYS(X) \
  X(GroupHeader) X(MainWindow) X(MuteAudio) X(MuteCamera) X(Participants) X(HostControl) \
  X(AnnotatePermission) X(RemoteControl) X(Chat) X(More) X(Interpretation) X(Reaction) \
  X(AskHostForHelp) X(ShareNew) X(StopSharing) X(Leave) X(Record) X(AudioDevices) X(Speaker) \
  X(CameraDevices) X(JoinPermission) X(MoveNew) X(OnlyHostShare) X(OnlyHostReshare) \
  X(NewParticipantMic) X(MicOperate) X(MuteAll) X(CancelMuteAll) X(Subtitles) X(LiveStream) \
  X(Labs) X(PhoneInvite) X(SipInvite) X(ShareAudio) X(ParticipantRow) X(StopRemoteControl) \
  X(ControlbarSwitch) X(Annotate) X(SketchSelect) X(SketchMouse) X(SketchPen) X(SketchColor) \
  X(SketchUndo) X(SketchClear) X(SketchPen1) X(SketchPen2) X(SketchPen3) X(SketchPen4) \
  X(SketchPen5) X(SketchColorNone) X(SketchColor1) X(SketchColor2) X(SketchColor3) \
  X(SketchColor4) X(SketchClearMine) X(SketchClearOthers) X(SketchClearAll) \
  X(HostControlWindow) X(NetworkStrength) X(RecordIndicator) X(InfoText) X(MeetingIdExpand) \
  X(SharingIndicator) X(PauseIndicator) X(ShareMeetingName) X(SharingOptions) X(LiveIndicator) \
  X(WidgetMoving) X(ExternalMeeting) X(SubRoomName) X(MicrophoneItem) X(CameraItem) \
  X(InterpretationItem) X(ManageInterpretation) X(Separator) X(MuteOrigin) \
  X(OptimizeForVideoClips) X(KeepMyVideoOnTheScreen) X(OnlyThePresenterCanAnnotate) \
  X(TestSpeakMic) X(Settings) X(LeaveSubRoom)
// clang-format on

struct NamedKey {
  std::int32_t key;
  std::string_view name;
};

constexpr std::array kKeys = {
#define X(name) NamedKey{static_cast<std::int32_t>(EventKey::name), #name},
    VELLOMAR_KEYS(X)
#undef X
};

constexpr std::size_t Occurrences(EventKey key) {
  switch (key) {
#define X(name) case EventKey::name:
    VELLOMAR_KEYS(X)
#undef X
    break;
  }
  std::size_t count = 0;
  for (const NamedKey& row : kKeys) count += row.key == static_cast<std::int32_t>(key) ? 1U : 0U;
  return count;
}

#define X(name) static_assert(Occurrences(EventKey::name) == 1, #name " is not listed once");
VELLOMAR_KEYS(X)
#undef X

}  // namespace

std::optional<std::int32_t> KeyByName(std::string_view name) {
  const auto* const row = std::find_if(
      kKeys.begin(), kKeys.end(), [name](const NamedKey& entry) { return entry.name == name; });
  if (row == kKeys.end()) return std::nullopt;
  return row->key;
}

std::string KeyName(std::int32_t key) {
  const auto* const row = std::find_if(kKeys.begin(), kKeys.end(),
                                       [key](const NamedKey& entry) { return entry.key == key; });
  return row != kKeys.end() ? std::string(row->name) : std::to_string(key);
}

}  // namespace vellomar_host
