// SPDX-License-Identifier: MIT
// The texts that the host gives with "setTextMap", by what the plug-in uses them for. The words are
// the host's, in the user's language.
#pragma once

#include <cstdint>

namespace VELLOMAR_CONTROLBAR::text_id {

inline constexpr std::uint64_t kNone = ~std::uint64_t{0};  // no text at all

inline constexpr std::uint64_t kMuteAudio = 10001;
inline constexpr std::uint64_t kMuteCamera = 10002;
inline constexpr std::uint64_t kHostControl = 10003;
inline constexpr std::uint64_t kParticipants = 10004;
inline constexpr std::uint64_t kChat = 10005;
inline constexpr std::uint64_t kShareNew = 10006;
inline constexpr std::uint64_t kRecord = 10007;
inline constexpr std::uint64_t kMore = 10010;
inline constexpr std::uint64_t kLeave = 10011;
inline constexpr std::uint64_t kAnnotate = 10012;
inline constexpr std::uint64_t kRemoteControl = 10013;
inline constexpr std::uint64_t kStopSharing = 10014;
inline constexpr std::uint64_t kMicrophones = 10015;
inline constexpr std::uint64_t kSpeakers = 10016;
inline constexpr std::uint64_t kTestDevice = 10017;
inline constexpr std::uint64_t kCameras = 10018;
inline constexpr std::uint64_t kMembershipPermissions = 10019;
inline constexpr std::uint64_t kJoinOption1 = 10020;
inline constexpr std::uint64_t kJoinOption2 = 10021;
inline constexpr std::uint64_t kJoinOption3 = 10022;
inline constexpr std::uint64_t kJoinOption4 = 10023;
inline constexpr std::uint64_t kMoveNew = 10024;
inline constexpr std::uint64_t kSharingPermissions = 10025;
inline constexpr std::uint64_t kOnlyHostShare = 10026;
inline constexpr std::uint64_t kOnlyHostReshare = 10027;
inline constexpr std::uint64_t kOnlyThePresenterCanAnnotate = 10028;
inline constexpr std::uint64_t kMicPermissions = 10029;
inline constexpr std::uint64_t kNewParticipantMic = 10030;
inline constexpr std::uint64_t kMicOperate = 10031;
inline constexpr std::uint64_t kMuteAll = 10032;
inline constexpr std::uint64_t kCancelMuteAll = 10033;
inline constexpr std::uint64_t kSubtitles = 10034;
inline constexpr std::uint64_t kLiveStream = 10035;
inline constexpr std::uint64_t kLabs = 10036;
inline constexpr std::uint64_t kSettings = 10037;
inline constexpr std::uint64_t kPhoneInvite = 10043;
inline constexpr std::uint64_t kSipInvite = 10044;
inline constexpr std::uint64_t kShareAudio = 10045;
inline constexpr std::uint64_t kSharingOptions = 10046;
inline constexpr std::uint64_t kOptimizeForVideoClips = 10047;
inline constexpr std::uint64_t kKeepMyVideoOnTheScreen = 10048;
inline constexpr std::uint64_t kSketchSelect = 10051;
inline constexpr std::uint64_t kSketchMouse = 10052;
inline constexpr std::uint64_t kSketchPen1 = 10053;
inline constexpr std::uint64_t kSketchPen2 = 10054;
inline constexpr std::uint64_t kSketchPen3 = 10055;
inline constexpr std::uint64_t kSketchPen5 = 10056;
inline constexpr std::uint64_t kSketchUndo = 10057;
inline constexpr std::uint64_t kSketchClearMine = 10058;
inline constexpr std::uint64_t kSketchClearAll =
    10059;  // also of OnlyHostShare and OnlyHostReshare as buttons, which no bar shows
inline constexpr std::uint64_t kSketchClearOthers = 10060;
inline constexpr std::uint64_t kSketchPen = 10061;
inline constexpr std::uint64_t kSketchColor = 10062;
inline constexpr std::uint64_t kSketchClear = 10063;
inline constexpr std::uint64_t kSketchPen4 = 10064;
inline constexpr std::uint64_t kGiveControl = 10065;
inline constexpr std::uint64_t kControlledBy =
    10066;  // with a place for the name of who has the control
inline constexpr std::uint64_t kStopRemoteControl = 10068;
inline constexpr std::uint64_t kMeetingNumber = 10069;  // with a place for the number
inline constexpr std::uint64_t kInterpretationCaption = 10070;
inline constexpr std::uint64_t kManageInterpretation = 10071;
inline constexpr std::uint64_t kInterpretation = 10072;
inline constexpr std::uint64_t kStopScreenShare =
    10074;  // of StopSharing while a screen or a screen box is shared
inline constexpr std::uint64_t kShareNewScreen = 10075;  // of ShareNew then
inline constexpr std::uint64_t kMuteOrigin = 10077;
inline constexpr std::uint64_t kReaction = 10078;
inline constexpr std::uint64_t kInfoTip = 10084;
inline constexpr std::uint64_t kRecordingTip = 10085;
inline constexpr std::uint64_t kLive = 10086;          // with a place for the number of viewers
inline constexpr std::uint64_t kExpandedTip = 10087;   // of the switch while the bar is expanded
inline constexpr std::uint64_t kCollapsedTip = 10088;  // while it is collapsed
inline constexpr std::uint64_t kInfoExpandTip =
    10089;  // of the part of the info text that opens its list
inline constexpr std::uint64_t kExternalMeeting = 10090;
inline constexpr std::uint64_t kLeaveRoom = 10092;  // of Leave in a sub-room
inline constexpr std::uint64_t kLeaveTitle = 10093;
inline constexpr std::uint64_t kLeaveQuestion = 10094;  // with a place for the room or the topic
inline constexpr std::uint64_t kLeaveConfirm = 10095;
inline constexpr std::uint64_t kAskHostForHelp = 10096;

}  // namespace VELLOMAR_CONTROLBAR::text_id
