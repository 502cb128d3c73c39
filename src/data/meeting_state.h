// SPDX-License-Identifier: MIT
// The meeting as the host last reported it: plain values, and what follows from them alone.
// [loop thread]
//
//     meeting.host_type = kHostTypeHost;
//     if (meeting.HasLiveStreamPermission()) ...
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/meeting_codes.h"
#include "data/meeting_types.h"
#include "data/participant.h"
#include "vellomar/command_records.h"

namespace VELLOMAR_CONTROLBAR {

struct MeetingState {
  static constexpr char kDefaultWindowTitle[] = "Default SDK Title";

  // --- Kept when the meeting is left. The codes stand in meeting_codes.h.

  std::int64_t host_type = 0;
  std::int64_t sub_type = 0;
  std::int64_t source = 0;
  std::int64_t role = 0;
  std::int64_t share_option = kShareOptionHostControl;
  bool is_live = false;
  bool is_recording = false;
  bool is_under_control = false;
  bool is_expanded = false;  // the bar
  bool is_subtitle_opened = false;
  bool is_share_audio_opened = false;
  bool sketch_enabled = false;
  bool sketch_visible = false;
  bool only_host_can_share = false;
  bool only_host_can_reshare = false;
  bool only_presenter_can_annotate = false;
  bool interpretation_enabled = false;
  bool interpretation_switch_enabled = false;
  VellomarHostControlInfo host_info{};
  MeetingDetail detail;
  std::string number;
  std::string number_text;             // with the words around it
  std::string remote_controller_text;  // likewise

  // --- Forgotten with the meeting. Lists are shared with the rows that show them.

  const SharedDevices no_devices = std::make_shared<DeviceList>();
  SharedDevices microphones = no_devices;
  SharedDevices speakers = no_devices;
  SharedDevices cameras = no_devices;
  SharedDevices languages = no_devices;
  InterpretationInfo interpretation;             // without its languages
  std::optional<Participant> remote_controller;  // who controls this user's screen
  std::optional<std::string> window_title;       // kDefaultWindowTitle where there is none
  std::string participant_count_text;
  std::string chat_count_text;  // empty: no messages wait
  std::string move_new_text;    // shown in the row of MoveNew
  std::string sub_room_name;
  std::string sub_room_id;

  // The operations that may fail change nothing then.
  void SetAudioDevices(DeviceList new_microphones, DeviceList new_speakers);
  void SetInterpretation(InterpretationInfo info);
  void SetChatCount(std::int64_t count);
  void Forget() noexcept;

  bool HasLiveStreamPermission() const;
  bool IsInSubRoom() const { return !sub_room_name.empty() || !sub_room_id.empty(); }

  // Status words of rows. `own` is the word of the row's key in the button store.
  std::int32_t SharingPermissionsStatus() const;
  std::int32_t OnlyHostShareStatus() const;
  std::int32_t OnlyHostReshareStatus() const;
  std::int32_t PresenterAnnotateStatus() const;
  std::int32_t NewParticipantMicStatus() const;
  std::int32_t MicOperateStatus() const;
  std::int32_t ManageInterpretationStatus() const;
  std::int32_t MoveNewStatus(std::int32_t own) const;
  std::int32_t SubtitlesStatus(std::int32_t own) const;
  std::int32_t LiveStreamStatus(std::int32_t own) const;
};

}  // namespace VELLOMAR_CONTROLBAR
