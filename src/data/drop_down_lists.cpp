// SPDX-License-Identifier: MIT
#include "data/drop_down_lists.h"

#include <string>
#include <utility>

#include "common/text.h"
#include "data/text_ids.h"
#include "frame/log/log.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using text_id::kNone;
using VELLOMAR_LORIMEL::kStatusDisabled;
using VELLOMAR_LORIMEL::kStatusOn;

}  // namespace

// --- Building

// Its texts stay as long as it does.
DropDownLists::List DropDownLists::NewList() const {
  return {{}, {m_from.texts.Keep()}};
}

BtnParams& DropDownLists::AddRow(List& list, const Row& row) const {
  BtnParams& item = list.rows.emplace_back();  // zero-filled
  item.key = row.key;
  item.objectName = row.object_name;
  item.text = row.text_id != kNone ? m_from.find_text(row.text_id) : nullptr;
  item.status = row.status;
  return item;
}

void DropDownLists::AddRows(List& list, std::span<const Row> rows) const {
  for (const Row& row : rows) {
    AddRow(list, row);
  }
}

void DropDownLists::AddDeviceRows(List& list, const Row& row, const SharedDevices& devices) const {
  list.owners.push_back(devices);
  for (const Device& device : devices->devices) {
    BtnParams& item = AddRow(list, row);
    item.text = device.name.c_str();
    item.valueText = device.id.c_str();
    item.status = device.id == devices->current_id ? kStatusOn : 0;
  }
}

BtnParams* DropDownLists::Finish(Window window, List list, int& count) {
  List& kept = m_open[window];
  kept = std::move(list);
  count = static_cast<int>(kept.rows.size());
  return kept.rows.data();
}

BtnParams* DropDownLists::Fixed(Window window, std::span<const Row> rows, int& count) {
  List list = NewList();
  AddRows(list, rows);
  return Finish(window, std::move(list), count);
}

void DropDownLists::CloseAll() {
  m_closed.reserve(m_closed.size() + m_open.size());
  for (List& list : m_open) {
    if (!list.rows.empty()) {
      m_closed.push_back(std::exchange(list, {}));
    }
  }
}

// --- The lists

BtnParams* DropDownLists::Audio(int& count) {
  List list = NewList();
  AddRow(list, {EventKey::GroupHeader, "Microphone", text_id::kMicrophones});
  AddDeviceRows(list, {EventKey::MicrophoneItem, "MicrophoneItem", kNone},
                m_from.meeting.microphones);
  AddRow(list, {EventKey::GroupHeader, "Speaker", text_id::kSpeakers});
  AddDeviceRows(list, {EventKey::Speaker, "SpeakerItem", kNone}, m_from.meeting.speakers);
  AddRow(list, {EventKey::TestSpeakMic, "TestDevice", text_id::kTestDevice});
  return Finish(kAudio, std::move(list), count);
}

BtnParams* DropDownLists::Cameras(int& count) {
  List list = NewList();
  AddRow(list, {EventKey::GroupHeader, "Camera", text_id::kCameras});
  AddDeviceRows(list, {EventKey::CameraItem, "CameraItem", kNone}, m_from.meeting.cameras);
  return Finish(kCameras, std::move(list), count);
}

BtnParams* DropDownLists::HostControl(int& count) {
  const MeetingState& meeting = m_from.meeting;
  List list = NewList();
  AddRow(list, {EventKey::GroupHeader, "MembershipPermissions", text_id::kMembershipPermissions});
  for (const std::uint64_t option : {text_id::kJoinOption1, text_id::kJoinOption2,
                                     text_id::kJoinOption3, text_id::kJoinOption4}) {
    AddRow(list, {EventKey::JoinPermission, "ParticipantOption", option}).groupValue =
        static_cast<std::int32_t>(meeting.host_info.selectedSecurityLevel - 1);
  }
  const auto move_new = std::make_shared<const std::string>(meeting.move_new_text);
  list.owners.push_back(move_new);
  AddRow(list, {EventKey::MoveNew, "MoveNew", text_id::kMoveNew,
                meeting.MoveNewStatus(OwnStatus(EventKey::MoveNew))})
      .extraText = move_new->c_str();
  AddSharingPermissions(list);
  const Row rows[] = {
      {EventKey::GroupHeader, "MicPermissions", text_id::kMicPermissions},
      {EventKey::NewParticipantMic, "NewParticipantMic", text_id::kNewParticipantMic,
       meeting.NewParticipantMicStatus()},
      {EventKey::MicOperate, "MicOperate", text_id::kMicOperate, meeting.MicOperateStatus()},
      {EventKey::MuteAll, "MuteAll", text_id::kMuteAll},
      {EventKey::CancelMuteAll, "CancelMuteAll", text_id::kCancelMuteAll},
  };
  AddRows(list, rows);
  return Finish(kHostControl, std::move(list), count);
}

void DropDownLists::AddSharingPermissions(List& list) const {
  const MeetingState& meeting = m_from.meeting;
  const Row rows[] = {
      {EventKey::GroupHeader, "SharingPermissions", text_id::kSharingPermissions,
       meeting.SharingPermissionsStatus()},
      {EventKey::OnlyHostShare, "OnlyHostShare", text_id::kOnlyHostShare,
       meeting.OnlyHostShareStatus()},
      {EventKey::OnlyHostReshare, "OnlyHostReshare", text_id::kOnlyHostReshare,
       meeting.OnlyHostReshareStatus()},
      {EventKey::OnlyThePresenterCanAnnotate, "OnlyThePresenterCanAnnotate",
       text_id::kOnlyThePresenterCanAnnotate, meeting.PresenterAnnotateStatus()},
  };
  AddRows(list, rows);
}

BtnParams* DropDownLists::SharingPermissions(int& count) {
  List list = NewList();
  AddSharingPermissions(list);
  return Finish(kSharingPermissions, std::move(list), count);
}

BtnParams* DropDownLists::SharingOptions(int& count) {
  List list = NewList();
  const Row rows[] = {
      {EventKey::GroupHeader, "SharingOptions", text_id::kSharingOptions},
      {EventKey::OptimizeForVideoClips, "OptimizeForVideoClips", text_id::kOptimizeForVideoClips,
       OwnStatus(EventKey::OptimizeForVideoClips)},
      {EventKey::KeepMyVideoOnTheScreen, "KeepMyVideoOnTheScreen", text_id::kKeepMyVideoOnTheScreen,
       OwnStatus(EventKey::KeepMyVideoOnTheScreen)},
      {EventKey::ShareAudio, "ShareComputerAudio", text_id::kShareAudio,
       OwnStatus(EventKey::ShareAudio)},
  };
  AddRows(list, rows);
  AddSharingPermissions(list);
  return Finish(kSharingOptions, std::move(list), count);
}

BtnParams* DropDownLists::More(int& count) {
  const MeetingState& meeting = m_from.meeting;
  const Row rows[] = {
      {EventKey::Subtitles, "Subtitles", text_id::kSubtitles,
       meeting.SubtitlesStatus(OwnStatus(EventKey::Subtitles))},
      {EventKey::LiveStream, "LiveStream", text_id::kLiveStream,
       meeting.LiveStreamStatus(OwnStatus(EventKey::LiveStream))},
      {EventKey::PhoneInvite, "PhoneInvite", text_id::kPhoneInvite,
       OwnStatus(EventKey::PhoneInvite)},
      {EventKey::SipInvite, "SipInvite", text_id::kSipInvite, OwnStatus(EventKey::SipInvite)},
      {EventKey::Labs, "Labs", text_id::kLabs, OwnStatus(EventKey::Labs)},
      {EventKey::Settings, "Settings", text_id::kSettings, OwnStatus(EventKey::Settings)},
  };
  return Fixed(kMore, rows, count);
}

BtnParams* DropDownLists::Participants(int& count) {
  const std::optional<Participant>& controller = m_from.meeting.remote_controller;
  List list = NewList();
  const char* const text =
      m_from.find_text(controller ? text_id::kControlledBy : text_id::kGiveControl);
  const auto caption = std::make_shared<const std::string>(
      controller ? VELLOMAR_COMMON::FillPlaceholder(text, controller->display_name)
                 : std::string(VELLOMAR_COMMON::OrEmpty(text)));
  list.owners.push_back(caption);
  AddRow(list, {EventKey::GroupHeader, "ControllingText", kNone}).text = caption->c_str();
  if (controller) {
    AddRow(list, {EventKey::StopRemoteControl, "ControlButton", text_id::kStopRemoteControl});
  }
  m_from.participants.ForEach([&](const std::shared_ptr<const Participant>& participant) {
    if (participant->room != m_from.meeting.sub_room_id) {
      return;
    }
    list.owners.push_back(participant);
    BtnParams& row = AddRow(list, {EventKey::ParticipantRow, "ListView", kNone});
    row.text = participant->display_name.c_str();
    row.valueText = participant->key.c_str();
    row.iconPath = participant->avatar_path.c_str();
    row.status = participant->flag ? 0 : kStatusDisabled;
  });
  return Finish(kParticipants, std::move(list), count);
}

BtnParams* DropDownLists::SketchPens(int& count) {
  const Row rows[] = {
      {EventKey::SketchPen1, nullptr, text_id::kSketchPen1},
      {EventKey::SketchPen2, nullptr, text_id::kSketchPen2},
      {EventKey::SketchPen3, nullptr, text_id::kSketchPen3},
      {EventKey::SketchPen4, nullptr, text_id::kSketchPen4},
      {EventKey::SketchPen5, nullptr, text_id::kSketchPen5},
  };
  return Fixed(kSketchPens, rows, count);
}

BtnParams* DropDownLists::SketchClear(int& count) {
  if (IsScreenShare(m_from.meeting.sub_type)) {
    VELLOMAR_LOG::Info("SketchClearItems SCREEN_SHARE count = 0.");
    count = 0;
    return nullptr;
  }
  const Row rows[] = {
      {EventKey::SketchClearMine, nullptr, text_id::kSketchClearMine},
      {EventKey::SketchClearOthers, nullptr, text_id::kSketchClearOthers},
      {EventKey::SketchClearAll, nullptr, text_id::kSketchClearAll},
  };
  return Fixed(kSketchClear, rows, count);
}

BtnParams* DropDownLists::Interpretation(int& count) {
  const std::int32_t manage = m_from.meeting.ManageInterpretationStatus();
  List list = NewList();
  AddRow(list, {EventKey::InterpretationItem, "Interpretation", text_id::kInterpretationCaption});
  AddDeviceRows(list, {EventKey::InterpretationItem, "InterpretationItem", kNone},
                m_from.meeting.languages);
  // "Splite" is how the widget library spells it.
  const Row rows[] = {
      {EventKey::Separator, "SpliteRectangle1", kNone},
      {EventKey::MuteOrigin, "MuteOrigin", text_id::kMuteOrigin, OwnStatus(EventKey::MuteOrigin)},
      {EventKey::Separator, "SpliteRectangle2", kNone, manage},
      {EventKey::ManageInterpretation, "Manage", text_id::kManageInterpretation, manage},
      {EventKey::Separator, "icon_right_outlined", kNone, manage},
  };
  AddRows(list, rows);
  return Finish(kInterpretation, std::move(list), count);
}

BtnParams* DropDownLists::ShareAudio(int& count) {
  const Row rows[] = {
      {EventKey::ShareAudio, "ShareAudio", text_id::kShareAudio, OwnStatus(EventKey::ShareAudio)}};
  return Fixed(kShareAudio, rows, count);
}

}  // namespace VELLOMAR_CONTROLBAR
