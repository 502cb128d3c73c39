// SPDX-License-Identifier: MIT
// The rows of the drop-down windows.
#include <gmock/gmock.h>

#include <sstream>

#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using testing::ElementsAre;

class ListsTest : public BarTest {
 protected:
  void SetUp() override {
    InstallTexts({{10065, "Nobody"}, {10066, "Controlled by {{name}}"}});
    ShowBar();
    Forget();
  }

  // "key name text status" of every row.
  std::vector<std::string> Described(std::int32_t window) {
    std::vector<std::string> lines;
    for (const auto& row : Rows(window)) {
      std::ostringstream line;
      line << static_cast<int>(row.key) << ' ' << row.object_name << ' ' << row.text << ' '
           << row.status;
      lines.push_back(line.str());
    }
    return lines;
  }

  // The host info: all settings on but for what `changes` says.
  void SetHostInfo(const Json& changes = Json::object()) {
    Json info = {{"selectedSecurityLevel", 2},
                 {"enableNeedMoveToLobby", true},
                 {"needMoveToLobby", true},
                 {"showShareAccess", true},
                 {"onlyHostCanReshare", 1},
                 {"onlyHostCanShare", 1},
                 {"reserved", 0},
                 {"entryOnMuted", true},
                 {"showEnableOpenMicBySelf", true},
                 {"enableUseEnableOpenMicBySelf", true},
                 {"enableOpenMicBySelf", true}};
    info.update(changes);
    Send("setHostControlInfo", info);
  }

  void SetMoveNewTag(const char* tag) {
    Send("setItemValue", {{"key", 1023},
                          {"hasExpend", false},
                          {"itemName", ""},
                          {"itemText", ""},
                          {"tag", tag},
                          {"sta", 0}});
  }
};

TEST_F(ListsTest, CamerasAndAudioDevicesMarkTheCurrentOne) {
  EXPECT_THAT(Described(1020), ElementsAre("-1 Camera 10018 0"));
  const Json devices = {{{"id", "a"}, {"name", "First"}}, {{"id", "b"}, {"name", "Second"}}};
  Send("setCameraInfo", {{"cameras", devices}, {"currentCameraId", "b"}});
  EXPECT_THAT(Described(1020), ElementsAre("-1 Camera 10018 0", "1081 CameraItem First 0",
                                           "1081 CameraItem Second 1"));
  EXPECT_EQ(Rows(1020)[1].value_text, "a");
  Send("setAudioAndPlaybackInfo", {{"microphones", devices},
                                   {"currentMicrophoneId", "a"},
                                   {"speakers", devices},
                                   {"currentSpeakerId", "x"}});
  EXPECT_THAT(Described(1018), ElementsAre("-1 Microphone 10015 0", "1080 MicrophoneItem First 1",
                                           "1080 MicrophoneItem Second 0", "-1 Speaker 10016 0",
                                           "1019 SpeakerItem First 0", "1019 SpeakerItem Second 0",
                                           "1089 TestDevice 10017 0"));
}

TEST_F(ListsTest, HostControlWithEverythingOn) {
  SetHostInfo();
  EXPECT_THAT(
      Described(1065),
      ElementsAre("-1 MembershipPermissions 10019 0", "1022 ParticipantOption 10020 0",
                  "1022 ParticipantOption 10021 0", "1022 ParticipantOption 10022 0",
                  "1022 ParticipantOption 10023 0", "1023 MoveNew 10024 1",
                  "-1 SharingPermissions 10025 0", "1024 OnlyHostShare 10026 1",
                  "1025 OnlyHostReshare 10027 5", "1088 OnlyThePresenterCanAnnotate 10028 0",
                  "-1 MicPermissions 10029 0", "1026 NewParticipantMic 10030 1",
                  "1027 MicOperate 10031 1", "1028 MuteAll 10032 0", "1029 CancelMuteAll 10033 0"));
  for (std::size_t row = 1; row <= 4; ++row) EXPECT_EQ(Rows(1065)[row].group_value, 1);
}

TEST_F(ListsTest, HostControlFollowsTheHostInfo) {
  const auto status = [this](std::size_t row) { return Rows(1065)[row].status; };
  SetHostInfo({{"enableNeedMoveToLobby", false},
               {"needMoveToLobby", false},
               {"showShareAccess", false},
               {"entryOnMuted", false},
               {"showEnableOpenMicBySelf", false}});
  EXPECT_EQ(status(5), 4);
  EXPECT_EQ(status(6), 2);
  EXPECT_EQ(status(7), 2);
  EXPECT_EQ(status(8), 6);
  EXPECT_EQ(status(11), 0);
  EXPECT_EQ(status(12), 2);
  SetHostInfo({{"onlyHostCanShare", 0}, {"enableUseEnableOpenMicBySelf", false}});
  EXPECT_EQ(status(7), 0);
  EXPECT_EQ(status(8), 1);
  EXPECT_EQ(status(12), 4);
  SetHostInfo({{"enableOpenMicBySelf", false}});
  EXPECT_EQ(status(12), 0);
  EXPECT_TRUE(
      Logged("host operation: selectedSecurityLevel 2,enableNeedMoveToLobby true,"
             "needMoveToLobby true,showShareAccess true,entryOnMuted true,"
             "showEnableOpenMicBySelf true,enableUseEnableOpenMicBySelf true,"
             "enableOpenMicBySelf false"));
  Click(1023, 0);  // the user unchecks the lobby
  EXPECT_EQ(status(5), 0);
}

TEST_F(ListsTest, SharingListsShareTheirPermissionRows) {
  SetHostInfo({{"onlyHostCanShare", 0}, {"onlyHostCanReshare", 0}});
  const std::vector<std::string> permissions = Described(1012);
  EXPECT_THAT(permissions, ElementsAre("-1 SharingPermissions 10025 0",
                                       "1024 OnlyHostShare 10026 0", "1025 OnlyHostReshare 10027 0",
                                       "1088 OnlyThePresenterCanAnnotate 10028 0"));
  Send("setOptimizeForVideoClipsStatus", {{"visible", 1}, {"enabled", 1}, {"checked", 1}});
  std::vector<std::string> options = {
      "-1 SharingOptions 10046 0", "1086 OptimizeForVideoClips 10047 1",
      "1087 KeepMyVideoOnTheScreen 10048 0", "1037 ShareComputerAudio 10045 0"};
  options.insert(options.end(), permissions.begin(), permissions.end());
  EXPECT_EQ(Described(1075), options);
}

TEST_F(ListsTest, MoreShowsWhatIsOpen) {
  Send("setSubtitleOpened", {{"opened", true}});
  Send("setLiveStatus", {{"status", 1}, {"count", 0}});
  Send("setPhoneInviteEnable", {{"enable", false}});
  EXPECT_THAT(Described(1008), ElementsAre("1031 Subtitles 10034 1", "1032 LiveStream 10035 1",
                                           "1034 PhoneInvite 10043 2", "1035 SipInvite 10044 0",
                                           "1033 Labs 10036 0", "1090 Settings 10037 0"));
}

TEST_F(ListsTest, InterpretationNamesTheLanguages) {
  Send("setInterpretationEnable", {{"enable", true}});
  EXPECT_EQ(Rows(1009).size(), 6u);
  const Json languages = {{{"id", "de"}, {"name", "Deutsch"}}, {{"id", "en"}, {"name", "English"}}};
  Send("setInterpretationInfo", {{"languages", languages},
                                 {"currentLanguageId", "en"},
                                 {"first", false},
                                 {"second", false},
                                 {"canManage", true}});
  Send("setInterpretationCloseOrigin", {{"status", true}});
  EXPECT_THAT(Described(1009),
              ElementsAre("1082 Interpretation 10070 0", "1082 InterpretationItem Deutsch 0",
                          "1082 InterpretationItem English 1", "1084 SpliteRectangle1  0",
                          "1085 MuteOrigin 10077 1", "1084 SpliteRectangle2  2",
                          "1083 Manage 10071 2", "1084 icon_right_outlined  2"));
  Send("setHostType", {{"type", 1}});
  EXPECT_EQ(Described(1009)[6], "1083 Manage 10071 0");
  EXPECT_TRUE(Logged("LanguageInfo: languageId = de, languageName = Deutsch"));
}

TEST_F(ListsTest, SketchAndAudioLists) {
  EXPECT_THAT(Described(1045), ElementsAre("1050  10053 0", "1051  10054 0", "1052  10055 0",
                                           "1053  10064 0", "1054  10056 0"));
  EXPECT_THAT(Described(1048), ElementsAre("1060  10058 0", "1061  10060 0", "1062  10059 0"));
  Send("setShareAudioStatus", {{"started", true}});
  EXPECT_THAT(Described(1071), ElementsAre("1037 ShareAudio 10045 1"));
  Send("setMeetingSubType", {{"type", 2}});
  int count = 9;
  EXPECT_EQ(Library().Ask(EventKey::SketchClear, count), nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(Logged("SketchClearItems SCREEN_SHARE count = 0."));
}

TEST_F(ListsTest, ParticipantsOfTheRoomAreListedByKey) {
  UpdateParticipants({Person("b"), Person("a", {{"flag", false}}), Person("c", {{"room", "r5"}})});
  EXPECT_THAT(Described(1006), ElementsAre("-1 ControllingText Nobody 0", "1039 ListView Name a 4",
                                           "1039 ListView Name b 0"));
  EXPECT_EQ(Rows(1006)[1].value_text, "a-1");
  EXPECT_EQ(Rows(1006)[1].icon_path, "path a");
  Send("enterMeetingSubRoom", {{"roomName", "Room 5"}, {"roomId", "r5"}});
  Send("setUnderControl", {{"status", 1}, {"userId", "b"}, {"displayName", "Bo"}});
  EXPECT_THAT(Described(1006), ElementsAre("-1 ControllingText Controlled by Bo 0",
                                           "1040 ControlButton 10068 0", "1039 ListView Name c 0"));
}

TEST_F(ListsTest, RowsOutliveWhatTheyWereMadeFrom) {
  const std::string long_name(100, 'n');
  const Json devices = {{{"id", std::string(50, 'i')}, {"name", long_name}}};
  Send("setCameraInfo", {{"cameras", devices}, {"currentCameraId", ""}});
  UpdateParticipants({Person("a", {{"displayName", long_name}, {"avatarKey", "k"}})});
  SetHostInfo();
  SetMoveNewTag("old");
  for (const std::int32_t window : {1020, 1006, 1065, 1008}) Rows(window);
  const std::size_t before = Library().ReadEveryText();
  VellomarAvatarResponse response{"k", "/another/path.png"};
  ExportedOnReceive(VELLOMAR_RESPONSE_AVATAR, 0, &response);
  Send("setCameraInfo", {{"cameras", Json::array()}, {"currentCameraId", ""}});
  UpdateParticipants({Person("a", {{"displayName", "short"}, {"avatarKey", "k"}})});
  SetMoveNewTag("new");
  EXPECT_EQ(Library().ReadEveryText(), before);
}

}  // namespace
