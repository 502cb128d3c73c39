// SPDX-License-Identifier: MIT
#include "data/button_defaults.h"

#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using text_id::kNone;
using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::kStatusHidden;

constexpr ButtonDefault Row(EventKey key, std::uint64_t text_id, std::int32_t status = 0,
                            std::uint64_t tip_id = kNone, bool expand = false) {
  return {key, text_id, text_id, status, tip_id, expand};
}

constexpr ButtonDefault SharingRow(EventKey key, std::uint64_t text_id,
                                   std::uint64_t screen_share_text_id, bool expand) {
  return {key, text_id, screen_share_text_id, 0, kNone, expand};
}

constexpr ButtonDefault kDefaults[] = {
    Row(EventKey::MuteAudio, text_id::kMuteAudio, 0, kNone, true),
    Row(EventKey::MuteCamera, text_id::kMuteCamera, 0, kNone, true),
    Row(EventKey::HostControl, text_id::kHostControl),
    Row(EventKey::Participants, text_id::kParticipants),
    Row(EventKey::Chat, text_id::kChat),
    SharingRow(EventKey::ShareNew, text_id::kShareNew, text_id::kShareNewScreen, true),
    Row(EventKey::Record, text_id::kRecord),
    Row(EventKey::More, text_id::kMore),
    Row(EventKey::Leave, text_id::kLeave),
    Row(EventKey::Annotate, text_id::kAnnotate),
    Row(EventKey::RemoteControl, text_id::kRemoteControl),
    SharingRow(EventKey::StopSharing, text_id::kStopSharing, text_id::kStopScreenShare, false),
    Row(EventKey::Interpretation, text_id::kInterpretation),
    Row(EventKey::Reaction, text_id::kReaction),
    Row(EventKey::AudioDevices, text_id::kMicrophones),
    Row(EventKey::Speaker, text_id::kSpeakers),
    Row(EventKey::CameraDevices, text_id::kCameras),
    Row(EventKey::InfoText, kNone, 0, text_id::kInfoTip, true),
    Row(EventKey{1068}, kNone, kStatusHidden),  // which has no name
    Row(EventKey::RecordIndicator, kNone, kStatusHidden, text_id::kRecordingTip),
    Row(EventKey::StopRemoteControl, kNone, kStatusHidden),
    Row(EventKey::SharingIndicator, kNone, kStatusHidden),
    Row(EventKey::PauseIndicator, kNone, kStatusHidden),
    Row(EventKey::SharingOptions, kNone, kStatusHidden),
    Row(EventKey::LiveIndicator, text_id::kLive, kStatusHidden),
    Row(EventKey::SketchSelect, text_id::kSketchSelect),
    Row(EventKey::SketchMouse, text_id::kSketchMouse),
    Row(EventKey::SketchPen, text_id::kSketchPen),
    Row(EventKey::SketchColor, text_id::kSketchColor),
    Row(EventKey::SketchClear, text_id::kSketchClear),
    Row(EventKey::SketchUndo, text_id::kSketchUndo),
    Row(EventKey::SketchPen1, text_id::kSketchPen1),
    Row(EventKey::SketchPen2, text_id::kSketchPen2),
    Row(EventKey::SketchPen3, text_id::kSketchPen3),
    Row(EventKey::SketchPen4, text_id::kSketchPen4),
    Row(EventKey::SketchPen5, text_id::kSketchPen5),
    Row(EventKey::SketchClearMine, text_id::kSketchClearMine),
    Row(EventKey::SketchClearOthers, text_id::kSketchClearOthers),
    Row(EventKey::SketchClearAll, text_id::kSketchClearAll),
    Row(EventKey::OnlyHostReshare, text_id::kSketchClearAll),
    Row(EventKey::OnlyHostShare, text_id::kSketchClearAll),
    Row(EventKey::ControlbarSwitch, kNone, 0, text_id::kExpandedTip),
    Row(EventKey::ExternalMeeting, text_id::kExternalMeeting, kStatusHidden),
    Row(EventKey::SubRoomName, kNone, kStatusHidden),
    Row(EventKey::AskHostForHelp, text_id::kAskHostForHelp),
};

}  // namespace

std::span<const ButtonDefault> ButtonDefaults() {
  return kDefaults;
}

}  // namespace VELLOMAR_CONTROLBAR
