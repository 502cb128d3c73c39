// SPDX-License-Identifier: MIT
// User actions by key. Most send a state, a text or nothing, and log a line: they are rows of three
// tables. The rest have a rule of their own and a function each (user_action_handlers.cpp).
#include "manager/user_actions.h"

#include <algorithm>
#include <iterator>

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Fault;
using VELLOMAR_LOG::Info;

namespace {

// A log line with one place, for a word or a text.
using LogText = VELLOMAR_LOG::FormatString<const char*&>;

void Log(const LogText& format, const char* word) {
  const fmt::string_view text(format);
  if (text.size() != 0) Info(format, word);
}

template <VellomarNotificationId id>
void SendFlag(bool flag) {
  Notifier::GetInstance()->Send<id>(flag);
}
template <VellomarNotificationId id>
void SendText(const char* text) {
  Notifier::GetInstance()->Send<id>(text);
}
template <VellomarNotificationId id>
void SendNone() {
  Notifier::GetInstance()->Send<id>();
}

// Sends the button's new state.
struct FlagAction {
  EventKey key;
  const char* handler;
  void (*send)(bool);
  Words words;
  LogText log;
  // The device buttons are on while the device is live: what goes out is "mute".
  bool inverted = false;
  bool keeps_status = false;  // in the stored record
  bool needs_tag = false;
  void (ControlBarDataManager::*store)(bool) = nullptr;
};

constexpr FlagAction kFlagActions[] = {
    {EventKey::MuteAudio, "OnMuteAudio", &SendFlag<VELLOMAR_NOTIFY_muteAudio>, kMute,
     "Controlbar {} audio.", true, true},
    {EventKey::MuteCamera, "OnMuteCamera", &SendFlag<VELLOMAR_NOTIFY_muteCamera>, kMute,
     "Controlbar {} camera.", true, true, true},
    {EventKey::Participants, "OnParticipants", &SendFlag<VELLOMAR_NOTIFY_participants>, kShow,
     "Controlbar {} participant list.", false, true},
    {EventKey::HostControl, "OnHostControl", &SendFlag<VELLOMAR_NOTIFY_hostControl>, kOpen,
     "Controlbar {} host control."},
    {EventKey::MoveNew, "OnEnableLobby", &SendFlag<VELLOMAR_NOTIFY_enableLobby>, kEnabled,
     "Controlbar {} Lobby.", false, false, false, &ControlBarDataManager::SetNeedMoveToLobby},
    {EventKey::NewParticipantMic, "OnMuteOnEntry", &SendFlag<VELLOMAR_NOTIFY_muteOnEntry>, kEnabled,
     "Controlbar {} mute on entry.", false, false, false, &ControlBarDataManager::SetEntryOnMuted},
    {EventKey::MicOperate, "OnAllowMemberEnableMicrophone",
     &SendFlag<VELLOMAR_NOTIFY_allowMemberEnableMicrophone>, kEnabled,
     "Controlbar {} allow mute sleves.", false, false, false,
     &ControlBarDataManager::SetOpenMicBySelf},
    {EventKey::Annotate, "OnAnnotate", &SendFlag<VELLOMAR_NOTIFY_annotate>, kOpen,
     "Controlbar {} annotate."},
    {EventKey::Chat, "OnChat", &SendFlag<VELLOMAR_NOTIFY_chat>, kOpen, "Controlbar {} chat.", false,
     true},
    {EventKey::More, "OnMore", &SendFlag<VELLOMAR_NOTIFY_more>, kOpen, "Controlbar {} more."},
    {EventKey::Labs, "OnLabs", &SendFlag<VELLOMAR_NOTIFY_labs>, kOpen, "Controlbar {} labs."},
    {EventKey::Settings, "OnSettings", &SendFlag<VELLOMAR_NOTIFY_settings>, kOpen,
     "Controlbar {} settings."},
    {EventKey::MuteOrigin, "OnInterpretationCloseOrigin",
     &SendFlag<VELLOMAR_NOTIFY_interpretationCloseOrigin>, kBool,
     "Notify Interpretation origin channel status = {}"},
    {EventKey::OptimizeForVideoClips, "OnOptimizeForVideoClips",
     &SendFlag<VELLOMAR_NOTIFY_optimizeForVideoClips>, kBool, "OnOptimizeForVideoClips: {}"},
    {EventKey::KeepMyVideoOnTheScreen, "OnKeepMyVideoOnTheScreen",
     &SendFlag<VELLOMAR_NOTIFY_keepMyVideoOnTheScreen>, kBool, "OnKeepMyVideoOnTheScreen: {}"},
};

// Sends no payload.
struct PlainAction {
  EventKey key;
  const char* handler;
  void (*send)();
  const char* log;  // null: none
};

template <bool mute>
void SendMuteAll() {
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_muteAll>(mute);
}

constexpr PlainAction kPlainActions[] = {
    {EventKey::AskHostForHelp, "OnAskHostForHelp", &SendNone<VELLOMAR_NOTIFY_askHostForHelp>,
     nullptr},
    {EventKey::ShareNew, "OnBtnReShare", &SendNone<VELLOMAR_NOTIFY_reshare>,
     "Controlbar execute re-share."},
    {EventKey::StopSharing, "OnStopSharing", &SendNone<VELLOMAR_NOTIFY_stopSharing>,
     "Controlbar execute stop sharing."},
    {EventKey::MuteAll, "OnMuteAll", &SendMuteAll<true>, "Controlbar mute all."},
    {EventKey::CancelMuteAll, "OnUnmuteAll", &SendMuteAll<false>, "Controlbar unmute all."},
    {EventKey::PhoneInvite, "OnInviteByPhone", &SendNone<VELLOMAR_NOTIFY_inviteByPhone>,
     "Controlbar invite by phone."},
    {EventKey::SipInvite, "OnSipInvite", &SendNone<VELLOMAR_NOTIFY_inviteBySip>,
     "Controlbar sip invite."},
    {EventKey::StopRemoteControl, "OnStopRemoteControl",
     &SendNone<VELLOMAR_NOTIFY_stopRemoteControl>, "Controlbar stop remote control."},
    {EventKey::InfoText, "OnInfoText", &SendNone<VELLOMAR_NOTIFY_infoText>, nullptr},
    {EventKey::ManageInterpretation, "OnManageInterpretation",
     &SendNone<VELLOMAR_NOTIFY_manageInterpretation>, nullptr},
    {EventKey::TestSpeakMic, "OnTestSpeakMic", &SendNone<VELLOMAR_NOTIFY_testSpeakMic>, nullptr},
    {EventKey::LeaveSubRoom, "OnLeaveSubRoom", &SendNone<VELLOMAR_NOTIFY_leaveSubRoom>, nullptr},
};

// Sends the item's tag: a device or a language.
struct TagAction {
  EventKey key;
  const char* handler;
  void (*send)(const char*);
  LogText log;
};

constexpr TagAction kTagActions[] = {
    {EventKey::Speaker, "OnSelectSpeaker", &SendText<VELLOMAR_NOTIFY_selectSpeaker>,
     "Controlbar select speaker {}."},
    {EventKey::MicrophoneItem, "OnSelectMicrophone", &SendText<VELLOMAR_NOTIFY_selectMicrophone>,
     "Controlbar select microphone {}."},
    {EventKey::CameraItem, "OnSelectCamera", &SendText<VELLOMAR_NOTIFY_selectCamera>,
     "Controlbar select camera {}."},
    {EventKey::InterpretationItem, "OnInterpretationSelection",
     &SendText<VELLOMAR_NOTIFY_selectInterpretation>, "OnInterpretationSelection languageId = {}"},
};

struct OwnAction {
  EventKey key;
  void (UserActions::*run)();
};

constexpr OwnAction kOwnActions[] = {
    {EventKey::AnnotatePermission, &UserActions::OnAnnotatePermission},
    {EventKey::RemoteControl, &UserActions::OnRemoteControl},
    {EventKey::Interpretation, &UserActions::OnInterpretationSwitch},
    {EventKey::Reaction, &UserActions::OnReaction},
    {EventKey::Leave, &UserActions::OnLeaveMeetting},
    {EventKey::Record, &UserActions::OnRecordMeetting},
    {EventKey::JoinPermission, &UserActions::OnJoinPermissionChanged},
    {EventKey::OnlyHostShare, &UserActions::OnEnableOnlyHostShare},
    {EventKey::OnlyHostReshare, &UserActions::OnEnableOnlyHostBreakShare},
    {EventKey::Subtitles, &UserActions::OnOpenSubtitles},
    {EventKey::LiveStream, &UserActions::OnLiveStream},
    {EventKey::ShareAudio, &UserActions::OnShareAudio},
    {EventKey::ParticipantRow, &UserActions::OnRemoteControlGrant},
    {EventKey::ControlbarSwitch, &UserActions::OnControlbarSwitch},
    {EventKey::HostControlWindow, &UserActions::OnHostControlWindow},
    {EventKey::MeetingIdExpand, &UserActions::OnMeetingIdExpand},
    {EventKey::WidgetMoving, &UserActions::OnWidgetMoving},
    {EventKey::OnlyThePresenterCanAnnotate, &UserActions::OnOnlyThePresenterCanAnnotate},
};

template <typename Table>
auto Find(const Table& table, EventKey key) {
  const auto* found = std::find_if(std::begin(table), std::end(table),
                                   [key](const auto& row) { return row.key == key; });
  return found != std::end(table) ? found : nullptr;
}

class HandlerScope : public VELLOMAR_LOG::TraceScope {
 public:
  explicit HandlerScope(const char* handler)
      : TraceScope(handler, "VELLOMAR_CONTROLBAR::ControlbarManager::") {}
};

void Run(const FlagAction& action, const UserActions& user) {
  const HandlerScope scope(action.handler);
  if (action.needs_tag && !user.HasTag(action.handler)) return;
  const bool on = user.IsOn() != action.inverted;
  if (action.keeps_status) user.data.SetEventKeyParams(action.key, user.event.status);
  if (action.store != nullptr) (user.data.*action.store)(on);
  action.send(on);
  Log(action.log, on ? action.words.on : action.words.off);
}

void Run(const PlainAction& action, const UserActions&) {
  const HandlerScope scope(action.handler);
  action.send();
  if (action.log != nullptr) Info(action.log);
}

void Run(const TagAction& action, const UserActions& user) {
  const HandlerScope scope(action.handler);
  if (!user.HasTag(action.handler)) return;
  action.send(user.event.valueText);
  Log(action.log, user.event.valueText);
}

template <typename Table>
bool RunIn(const Table& table, const UserActions& user) {
  const auto* const action = Find(table, user.event.key);
  if (action != nullptr) Run(*action, user);
  return action != nullptr;
}

bool IsSketchKey(EventKey key) {
  return (key >= EventKey::SketchSelect && key <= EventKey::SketchPen) ||
         (key >= EventKey::SketchUndo && key <= EventKey::SketchClearAll);
}

}  // namespace

bool UserActions::HasTag(const char* handler) const {
  if (event.valueText != nullptr) return true;
  Fault("{} tag is nullptr!", handler);
  return false;
}

void UserActions::Dispatch(ControlbarManager& manager, const BtnParams& event) {
  UserActions user{manager, *manager.m_data, event};
  if (RunIn(kFlagActions, user) || RunIn(kPlainActions, user) || RunIn(kTagActions, user)) return;
  if (const OwnAction* const own = Find(kOwnActions, event.key)) {
    (user.*own->run)();
  } else if (IsSketchKey(event.key)) {
    user.SendSketchButton();
  }
}

// The host clears its own drawing only while a screen is shared.
void UserActions::SendSketchButton() const {
  EventKey key = event.key;
  if (key == EventKey::SketchClear && IsScreenShare(data.GetMeetingSubType())) {
    key = EventKey::SketchClearMine;
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_sketchButton>(static_cast<std::int64_t>(key));
}

// Both handlers, in this order: the pairing is intended.
void UserActions::OnAnnotatePermission() {
  Run(*Find(kFlagActions, EventKey::Annotate), *this);
  OnJoinPermissionChanged();
}

}  // namespace VELLOMAR_CONTROLBAR
