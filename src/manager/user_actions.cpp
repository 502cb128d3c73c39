// SPDX-License-Identifier: MIT
// The handlers of user actions. Most send a state, a text or nothing, and log a line: they are rows
// of three tables. The rest have a rule of their own and a function each.
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

// Words for a state in the log: on, off.
struct Words {
  const char* on;
  const char* off;
};
constexpr Words kOpen{"open", "close"};
constexpr Words kShow{"show", "hide"};
constexpr Words kMute{"mute", "unmute"};
constexpr Words kEnabled{"enabled", "disabled"};
constexpr Words kBool{"true", "false"};

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

// False, with a log line, for an event without a tag.
bool HasTag(const BtnParams& event, const char* handler) {
  if (event.valueText != nullptr) return true;
  Fault("{} tag is nullptr!", handler);
  return false;
}

class HandlerScope : public VELLOMAR_LOG::TraceScope {
 public:
  explicit HandlerScope(const char* handler)
      : TraceScope(handler, "VELLOMAR_CONTROLBAR::ControlbarManager::") {}
};

void Run(const FlagAction& action, const UserActions& user) {
  const HandlerScope scope(action.handler);
  if (action.needs_tag && !HasTag(user.event, action.handler)) return;
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
  if (!HasTag(user.event, action.handler)) return;
  const std::string tag = user.event.valueText;  // the host may change the record while it is told
  action.send(tag.c_str());
  Log(action.log, tag.c_str());
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

void UserActions::OnJoinPermissionChanged() {
  const Scope scope(__func__);
  // AnnotatePermission offers no choice: the level in force is reported.
  const bool chosen = event.key == EventKey::JoinPermission;
  const std::int64_t level =
      chosen ? std::int64_t{event.groupValue} + 1 : data.GetCurrentSecurityLevel();
  data.SetCurrentSecurityLevel(level);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_joinPermissionChanged>(level);
  Info("Controlbar join meeting permission changed to {}.", level);
}

void UserActions::OnEnableOnlyHostShare() {
  const Scope scope(__func__);
  const bool on = IsOn();
  data.SetOnlyHostCanShare(on);
  const bool reshare = data.IsOnlyHostCanReshare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(on, reshare);
  Info("Controlbar {} only host share. IsOnlyHostCanReshare is {}", on ? kEnabled.on : kEnabled.off,
       reshare);
}

void UserActions::OnEnableOnlyHostBreakShare() {
  const Scope scope(__func__);
  const bool on = IsOn();
  data.SetOnlyHostCanReshare(on);
  const bool share = data.IsOnlyHostCanShare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(share, on);
  Info("Controlbar {} only host break share. HostCanShare is {}", on ? kEnabled.on : kEnabled.off,
       share);
}

void UserActions::OnRemoteControl() {
  const Scope scope(__func__);
  const bool open = IsOn();
  const bool chosen = event.valueText != nullptr && event.valueText[0] != '\0';
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControl>(open);
  Info("Controlbar {} remote control.", open ? kOpen.on : kOpen.off);
  if (chosen) OnRemoteControlGrant();
}

void UserActions::OnRemoteControlGrant() {
  const Scope scope(__func__);
  if (!HasTag(event, __func__)) return;
  const Participant* const found = data.FindParticipantByKey(event.valueText);
  if (found == nullptr) return;
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControlGrant>(
      found->user_id.c_str(), found->instance_id.c_str(), found->number,
      found->display_name.c_str(), found->room.c_str(), found->avatar_key.c_str(),
      found->avatar_path.c_str(), found->flag);
}

void UserActions::OnReaction() {
  const Scope scope(__func__);
  const VellomarRect at = ControlbarManager::PositionOf(EventKey::Reaction);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_reaction>(at.x, at.y, at.width, at.height);
  Info("Controlbar reaction,pos: {},{},{},{}.", at.x, at.y, at.width, at.height);
}

void UserActions::OnRecordMeetting() {
  const Scope scope(__func__);
  if (data.GetHostType() == kHostTypeParticipant) {
    Info("Recording...Participants skip onRecord!");
    return;
  }
  const bool open = IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_record>(open);
  Info("Controlbar {} record metting.", open ? kOpen.on : kOpen.off);
}

// The opposite of what the host last said, whether or not the library has turned the row's check.
void UserActions::OnOpenSubtitles() {
  const Scope scope(__func__);
  const bool open = !data.IsSubtitleOpened();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_subtitles>(open);
  Info("Controlbar {} subtitles.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnLiveStream() {
  const Scope scope(__func__);
  const bool open = IsOn();
  if (data.HasLiveStreamPermission()) {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_liveStream>(open);
  } else {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_requestLiveStream>(open);
  }
  Info("Controlbar {} live stream.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnLeaveMeetting() {
  const Scope scope(__func__);
  data.GetHostType();
  manager.ShowLeaveTip();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_leaveMeeting>();
  Info("Controlbar leave metting.");
}

void UserActions::OnMeetingIdExpand() {
  const Scope scope(__func__);
  const bool open = event.status == VELLOMAR_LORIMEL::kStatusOn;
  VellomarRect at{};
  if (IsScreenShare(data.GetMeetingSubType())) {
    at = ControlbarManager::PositionOf(EventKey::InfoText);
    Info("share screen expand share video");
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_meetingIdExpand>(open, at);
  Info("Controlbar {} meeting id.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnInterpretationSwitch() {
  const Scope scope(__func__);
  const bool enable = data.GetInterpretationEnable();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_interpretationSwitch>(enable);
  Info("OnInterpretationSwitch enable = {}", enable);
}

void UserActions::OnShareAudio() {
  const Scope scope(__func__);
  const bool start = !data.GetShareAudioStatus();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_shareAudio>(start);
  Info("GetShareAudioStatus isStart = {}", start);
}

void UserActions::OnOnlyThePresenterCanAnnotate() {
  const Scope scope(__func__);
  const bool checked = IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyThePresenterCanAnnotate>(
      checked, data.GetShareOptionFromSource());
  Info("OnOnlyThePresenterCanAnnotate: {}", checked);
}

// Local only: the host is not told.
void UserActions::OnControlbarSwitch() {
  const Scope scope(__func__);
  const bool expanded = !data.IsControllbarExpanded();
  data.SetControllbarSwitch(expanded);
  data.SetEventKeyParams(EventKey::ControlbarSwitch, data.GetNativeText(expanded ? 10087 : 10088),
                         0);
  manager.Push(*data.GetEventKeyParams(EventKey::ControlbarSwitch));
}

void UserActions::OnHostControlWindow() {
  manager.SetJoinPermission(data.GetCurrentSecurityLevel());
}

void UserActions::OnWidgetMoving() {
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_widgetMoving>();
}

}  // namespace VELLOMAR_CONTROLBAR
