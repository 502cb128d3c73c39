// SPDX-License-Identifier: MIT
// User actions: one table by key. Most rows send a state, a tag or nothing, and log a line; the
// rest name a handler with a rule of its own (user_action_handlers.cpp).
#include "manager/user_actions.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "manager/user_action_handlers.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_LOG::Info;

struct Row {
  EventKey key;
  EventKey last = key;                       // of a run of keys
  void (*own)(const UserAction&) = nullptr;  // then the rest is not set
  const char* handler = nullptr;             // its name in the log
  void (*notify)(bool on, const char* tag) = nullptr;
  Words words{};
  // Its one place, if any, is for the word of the state, or for the tag where there are no words.
  VELLOMAR_LOG::FormatString<const char*&> log = "";
  // The device buttons are on while the device is live: what goes out is "mute".
  bool inverted = false;
  bool keeps_status = false;  // in the stored record
  bool needs_tag = false;
  void (ControlBarDataManager::*store)(bool) = nullptr;
};

// Tells the host what the notification's record holds: the state, the tag or nothing.
template <VellomarNotificationId id>
void Tell(bool on, const char* tag) {
  using Record = NotificationRecord<id>;
  if constexpr (std::is_same_v<Record, VellomarNotifyFlag>) {
    Notifier::GetInstance()->Send<id>(on);
  } else if constexpr (std::is_same_v<Record, VellomarNotifyText>) {
    Notifier::GetInstance()->Send<id>(tag);
  } else {
    static_assert(std::is_same_v<Record, VellomarNone>);
    Notifier::GetInstance()->Send<id>();
  }
}

constexpr Row kRows[] = {
    {.key = EventKey::MuteAudio,
     .handler = "OnMuteAudio",
     .notify = &Tell<VELLOMAR_NOTIFY_muteAudio>,
     .words = kMute,
     .log = "Controlbar {} audio.",
     .inverted = true,
     .keeps_status = true},
    {.key = EventKey::MuteCamera,
     .handler = "OnMuteCamera",
     .notify = &Tell<VELLOMAR_NOTIFY_muteCamera>,
     .words = kMute,
     .log = "Controlbar {} camera.",
     .inverted = true,
     .keeps_status = true,
     .needs_tag = true},
    {.key = EventKey::Participants,
     .handler = "OnParticipants",
     .notify = &Tell<VELLOMAR_NOTIFY_participants>,
     .words = kShow,
     .log = "Controlbar {} participant list.",
     .keeps_status = true},
    {.key = EventKey::HostControl,
     .handler = "OnHostControl",
     .notify = &Tell<VELLOMAR_NOTIFY_hostControl>,
     .words = kOpen,
     .log = "Controlbar {} host control."},
    {.key = EventKey::AnnotatePermission, .own = &OnAnnotatePermission},
    {.key = EventKey::RemoteControl, .own = &OnRemoteControl},
    {.key = EventKey::Chat,
     .handler = "OnChat",
     .notify = &Tell<VELLOMAR_NOTIFY_chat>,
     .words = kOpen,
     .log = "Controlbar {} chat.",
     .keeps_status = true},
    {.key = EventKey::More,
     .handler = "OnMore",
     .notify = &Tell<VELLOMAR_NOTIFY_more>,
     .words = kOpen,
     .log = "Controlbar {} more."},
    {.key = EventKey::Interpretation, .own = &OnInterpretationSwitch},
    {.key = EventKey::Reaction, .own = &OnReaction},
    {.key = EventKey::AskHostForHelp,
     .handler = "OnAskHostForHelp",
     .notify = &Tell<VELLOMAR_NOTIFY_askHostForHelp>},
    {.key = EventKey::ShareNew,
     .handler = "OnBtnReShare",
     .notify = &Tell<VELLOMAR_NOTIFY_reshare>,
     .log = "Controlbar execute re-share."},
    {.key = EventKey::StopSharing,
     .handler = "OnStopSharing",
     .notify = &Tell<VELLOMAR_NOTIFY_stopSharing>,
     .log = "Controlbar execute stop sharing."},
    {.key = EventKey::Leave, .own = &OnLeaveMeetting},
    {.key = EventKey::Record, .own = &OnRecordMeetting},
    {.key = EventKey::Speaker,
     .handler = "OnSelectSpeaker",
     .notify = &Tell<VELLOMAR_NOTIFY_selectSpeaker>,
     .log = "Controlbar select speaker {}.",
     .needs_tag = true},
    {.key = EventKey::JoinPermission, .own = &OnJoinPermissionChanged},
    {.key = EventKey::MoveNew,
     .handler = "OnEnableLobby",
     .notify = &Tell<VELLOMAR_NOTIFY_enableLobby>,
     .words = kEnabled,
     .log = "Controlbar {} Lobby.",
     .store = &ControlBarDataManager::SetNeedMoveToLobby},
    {.key = EventKey::OnlyHostShare, .own = &OnEnableOnlyHostShare},
    {.key = EventKey::OnlyHostReshare, .own = &OnEnableOnlyHostBreakShare},
    {.key = EventKey::NewParticipantMic,
     .handler = "OnMuteOnEntry",
     .notify = &Tell<VELLOMAR_NOTIFY_muteOnEntry>,
     .words = kEnabled,
     .log = "Controlbar {} mute on entry.",
     .store = &ControlBarDataManager::SetEntryOnMuted},
    {.key = EventKey::MicOperate,
     .handler = "OnAllowMemberEnableMicrophone",
     .notify = &Tell<VELLOMAR_NOTIFY_allowMemberEnableMicrophone>,
     .words = kEnabled,
     .log = "Controlbar {} allow mute sleves.",
     .store = &ControlBarDataManager::SetOpenMicBySelf},
    {.key = EventKey::MuteAll, .own = &OnMuteAll},
    {.key = EventKey::CancelMuteAll, .own = &OnUnmuteAll},
    {.key = EventKey::Subtitles, .own = &OnOpenSubtitles},
    {.key = EventKey::LiveStream, .own = &OnLiveStream},
    {.key = EventKey::Labs,
     .handler = "OnLabs",
     .notify = &Tell<VELLOMAR_NOTIFY_labs>,
     .words = kOpen,
     .log = "Controlbar {} labs."},
    {.key = EventKey::PhoneInvite,
     .handler = "OnInviteByPhone",
     .notify = &Tell<VELLOMAR_NOTIFY_inviteByPhone>,
     .log = "Controlbar invite by phone."},
    {.key = EventKey::SipInvite,
     .handler = "OnSipInvite",
     .notify = &Tell<VELLOMAR_NOTIFY_inviteBySip>,
     .log = "Controlbar sip invite."},
    {.key = EventKey::ShareAudio, .own = &OnShareAudio},
    {.key = EventKey::ParticipantRow, .own = &OnRemoteControlGrant},
    {.key = EventKey::StopRemoteControl,
     .handler = "OnStopRemoteControl",
     .notify = &Tell<VELLOMAR_NOTIFY_stopRemoteControl>,
     .log = "Controlbar stop remote control."},
    {.key = EventKey::ControlbarSwitch, .own = &OnControlbarSwitch},
    {.key = EventKey::Annotate, .own = &OnAnnotate},
    {.key = EventKey::SketchSelect, .last = EventKey::SketchPen, .own = &OnSketchButton},
    {.key = EventKey::SketchUndo, .last = EventKey::SketchClearAll, .own = &OnSketchButton},
    {.key = EventKey::HostControlWindow, .own = &OnHostControlWindow},
    {.key = EventKey::InfoText, .handler = "OnInfoText", .notify = &Tell<VELLOMAR_NOTIFY_infoText>},
    {.key = EventKey::MeetingIdExpand, .own = &OnMeetingIdExpand},
    {.key = EventKey::WidgetMoving, .own = &OnWidgetMoving},
    {.key = EventKey::MicrophoneItem,
     .handler = "OnSelectMicrophone",
     .notify = &Tell<VELLOMAR_NOTIFY_selectMicrophone>,
     .log = "Controlbar select microphone {}.",
     .needs_tag = true},
    {.key = EventKey::CameraItem,
     .handler = "OnSelectCamera",
     .notify = &Tell<VELLOMAR_NOTIFY_selectCamera>,
     .log = "Controlbar select camera {}.",
     .needs_tag = true},
    {.key = EventKey::InterpretationItem,
     .handler = "OnInterpretationSelection",
     .notify = &Tell<VELLOMAR_NOTIFY_selectInterpretation>,
     .log = "OnInterpretationSelection languageId = {}",
     .needs_tag = true},
    {.key = EventKey::ManageInterpretation,
     .handler = "OnManageInterpretation",
     .notify = &Tell<VELLOMAR_NOTIFY_manageInterpretation>},
    {.key = EventKey::MuteOrigin,
     .handler = "OnInterpretationCloseOrigin",
     .notify = &Tell<VELLOMAR_NOTIFY_interpretationCloseOrigin>,
     .words = kBool,
     .log = "Notify Interpretation origin channel status = {}"},
    {.key = EventKey::OptimizeForVideoClips,
     .handler = "OnOptimizeForVideoClips",
     .notify = &Tell<VELLOMAR_NOTIFY_optimizeForVideoClips>,
     .words = kBool,
     .log = "OnOptimizeForVideoClips: {}"},
    {.key = EventKey::KeepMyVideoOnTheScreen,
     .handler = "OnKeepMyVideoOnTheScreen",
     .notify = &Tell<VELLOMAR_NOTIFY_keepMyVideoOnTheScreen>,
     .words = kBool,
     .log = "OnKeepMyVideoOnTheScreen: {}"},
    {.key = EventKey::OnlyThePresenterCanAnnotate, .own = &OnOnlyThePresenterCanAnnotate},
    {.key = EventKey::TestSpeakMic,
     .handler = "OnTestSpeakMic",
     .notify = &Tell<VELLOMAR_NOTIFY_testSpeakMic>},
    {.key = EventKey::Settings,
     .handler = "OnSettings",
     .notify = &Tell<VELLOMAR_NOTIFY_settings>,
     .words = kOpen,
     .log = "Controlbar {} settings."},
    {.key = EventKey::LeaveSubRoom,
     .handler = "OnLeaveSubRoom",
     .notify = &Tell<VELLOMAR_NOTIFY_leaveSubRoom>},
};

constexpr bool Before(const Row& row, EventKey key) {
  return row.last < key;
}
static_assert(std::adjacent_find(std::begin(kRows), std::end(kRows),
                                 [](const Row& a, const Row& b) { return !Before(a, b.key); }) ==
              std::end(kRows));

void Log(const Row& row, bool on, const char* tag) {
  const fmt::string_view line(row.log);
  if (line.size() == 0) {
    return;
  }
  if (row.words.on != nullptr) {
    const char* word = row.words.Of(on);
    Info(row.log, word);
  } else if (row.needs_tag) {
    Info(row.log, tag);
  } else {
    Info(line.data());
  }
}

void Run(const Row& row, const UserAction& user) {
  const ControlbarManager::Scope scope(row.handler);
  if (row.needs_tag && !user.HasTag(row.handler)) {
    return;
  }
  const bool on = user.IsOn() != row.inverted;
  if (row.keeps_status) {
    user.data.SetEventKeyParams(row.key, user.event.status);
  }
  if (row.store != nullptr) {
    (user.data.*row.store)(on);
  }
  const char* tag = user.event.valueText;
  row.notify(on, tag);
  Log(row, on, tag);
}

}  // namespace

void RunUserAction(ControlbarManager& manager, const BtnParams& event) {
  const auto* const row = std::lower_bound(std::begin(kRows), std::end(kRows), event.key, &Before);
  if (row == std::end(kRows) || event.key < row->key) {
    return;
  }
  const UserAction user{manager, manager.Data(), event};
  if (row->own != nullptr) {
    row->own(user);
  } else {
    Run(*row, user);
  }
}

}  // namespace VELLOMAR_CONTROLBAR
