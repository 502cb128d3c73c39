// SPDX-License-Identifier: MIT
// Commands that change the bar: status words, labels, what is pushed and what is logged.
#include <gmock/gmock.h>

#include "support/bar_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class StateCommandsTest : public BarTest {
 protected:
  void SetUp() override {
    InstallTexts({{10004, "People"}, {10069, "No. {{number}}"}, {10086, "LIVE {{n}}"}});
    ShowBar();
    Forget();
  }

  std::int32_t Status(std::int32_t key) { return Button(key).status; }
};

// A command with one argument, the key that it changes, the status words before and after it, and
// its log line.
struct StatusCase {
  const char* command;
  nlohmann::json arguments;
  std::int32_t key;
  std::int32_t before;
  std::int32_t after;
  const char* log;
};

const StatusCase kStatusCases[] = {
    {"setAudioStatus", {{"status", 0}}, 1001, 7, 32, "[Controlbar] Mute audio."},
    {"setAudioStatus", {{"status", 2}}, 1001, 7, 68, "AudioStatus:2"},
    {"setAudioStatus", {{"status", 1}}, 1001, 7, 0, "[Controlbar] Unmute audio."},
    {"setAudioStatus", {{"status", -2147483647 - 1}}, 1001, 7, 0, "AudioStatus:-2147483648"},
    {"setCameraStatus", {{"status", 0}}, 1002, 7, 32, "[Controlbar] Mute camera."},
    {"setCameraStatus", {{"status", 3}}, 1002, 7, 0, "CameraStatus:3"},
    {"setParticipantsStatus", {{"open", true}}, 1003, 4, 5, "SetParticipantsStatus:true"},
    {"setParticipantsStatus", {{"open", false}}, 1003, 5, 4, "SetParticipantsStatus:false"},
    {"setInteraction",
     {{"enable", false}, {"isShow", true}},
     1007,
     1,
     5,
     "SetInteraction: enable = false, isShow = true"},
    {"setInteraction",
     {{"enable", true}, {"isShow", false}},
     1007,
     5,
     3,
     "[Controlbar] Set chat enable true."},
    {"setRemoteControlEnabled",
     {{"enable", false}},
     1006,
     5,
     2,
     "[Controlbar] Set remote control enable false."},
    {"setRemoteControlEnabled",
     {{"enable", true}},
     1006,
     7,
     0,
     "[Controlbar] Set remote control enable true."},
    {"setSubtitleEnable",
     {{"enable", false}},
     1031,
     5,
     2,
     "[Controlbar] Set subtitle enable false."},
    {"setPhoneInviteEnable",
     {{"enable", false}},
     1034,
     5,
     2,
     "[Controlbar] Set phone invite enable false."},
    {"setSipInviteEnable",
     {{"enable", false}},
     1035,
     2,
     6,
     "[Controlbar] Set sip invite enable false."},
    {"setLiveEnable", {{"enable", true}}, 1032, 7, 3, "[Controlbar] Set live enable true."},
    {"setRecordVisible",
     {{"visible", false}},
     1015,
     5,
     7,
     "[Controlbar] Set record visible false."},
    {"setReactionVisible", {{"visible", true}}, 1010, 7, 5, "SetReactionVisible: true"},
    {"setExternalMeeting", {{"external", true}}, 1078, 2, 0, "SetExternalMeeting: true"},
    {"setAskHostForHelpVisible",
     {{"visible", false}},
     1011,
     0,
     2,
     "SetAskHostForHelpVisible: false"},
    {"setAskHostForHelpEnable", {{"enable", false}}, 1011, 2, 6, "SetAskHostForHelpEnable: false"},
    {"setInterpretationEnable", {{"enable", false}}, 1009, 5, 7, "Hide Interpreation"},
    {"setInterpretationEnable",
     {{"enable", true}},
     1009,
     6,
     4,
     "GetInterpretationEnable Show Interpreation"},
    {"setInterpretationOriginEnable",
     {{"enable", false}},
     1085,
     1,
     5,
     "SetInterpretationOriginEnable: enable = false"},
    {"setInterpretationCloseOrigin",
     {{"status", true}},
     1085,
     4,
     5,
     "SetInterpretationCloseOrigin: status = true"},
    {"setNetworkStrength", {{"sta", 3}}, 1067, 7, 3, "SetNetworkStrength sta = 3"},
    {"setSketchEnable", {{"enable", false}}, 1042, 1, 5, "[Controlbar] Set annotate enable false."},
    {"setSketchVisible",
     {{"visible", false}},
     1042,
     1,
     3,
     "[Controlbar] Set annotate visible false."},
    {"setSketchLoading", {{"loading", true}}, 1042, 1, 20, "[Controlbar] Set sketch loading true."},
    {"setSketchLoading",
     {{"loading", false}},
     1042,
     20,
     0,
     "[Controlbar] Set sketch loading false."},
    {"setSketchbarBtnEnable",
     {{"key", 1045}, {"enable", false}},
     1045,
     1,
     4,
     "[Controlbar] SetSketchbarBtnEnable key: 1045, enable: false."},
    {"setShareAudioStatus",
     {{"started", true}},
     1037,
     6,
     7,
     "[Controlbar] SetShareAudioStatus status true."},
    {"setRecordStatus", {{"recording", true}}, 1015, 2, 3, "[Controlbar] Set record status true."},
};

TEST_F(StateCommandsTest, StatusWords) {
  for (const StatusCase& c : kStatusCases) {
    Manager().Data().SetEventKeyParams(Key(c.key), c.before);
    Forget();
    Send(c.command, c.arguments);
    const std::string what = c.command + c.arguments.dump();
    EXPECT_EQ(Status(c.key), c.after) << what;
    EXPECT_THAT(PushedKeys(), Contains(c.key)) << what;
    EXPECT_EQ(Library().Button(Key(c.key))->status, c.after) << what;
    EXPECT_TRUE(Logged(c.log)) << what;
    EXPECT_THAT(Told(), IsEmpty()) << what;
  }
}

TEST_F(StateCommandsTest, ComposedLabels) {
  Send("setParticipantsCount", {{"count", 12}});
  EXPECT_STREQ(Button(1003).text, "People (12)");
  EXPECT_THAT(PushedKeys(), ElementsAre(1003, 1006));
  Send("setParticipantsCount", {{"count", -5}});
  EXPECT_STREQ(Button(1003).text, "People (0)");
  Send("setMeetingNumber", {{"number", "42"}});
  EXPECT_STREQ(Button(1070).text, "No. 42");
  EXPECT_TRUE(Logged("[Controlbar] Set meeting number 42"));
  Send("setShareScreenMeetingName", {{"name", "Plan"}});
  EXPECT_STREQ(Button(1074).text, "Plan");
  EXPECT_TRUE(Logged("SetSharingMeetingNumber = Plan"));
  Send("setLiveStatus", {{"status", 1}, {"count", 250}});
  EXPECT_STREQ(Button(1076).text, "LIVE 250");
  EXPECT_EQ(Status(1076), 0);
  EXPECT_TRUE(Logged("[Controlbar] Set live status 1,count 250."));
  Send("setLiveStatus", {{"status", 0}, {"count", 0}});
  EXPECT_EQ(Status(1076), 2);
  Library().ReadEveryText();
}

TEST_F(StateCommandsTest, TheChatCountIsShortenedAndMarksTheSwitch) {
  const std::pair<std::int64_t, std::string> cases[] = {
      {1, "1"}, {999, "999"}, {1000, "..."}, {0, ""}, {-5, ""}};
  for (const auto& [count, label] : cases) {
    Send("setChatMessageCount", {{"count", count}});
    EXPECT_EQ(Library().Button(EventKey::Chat)->sub_label, label) << count;
    EXPECT_EQ(Status(1041), label.empty() ? 0 : 8) << count;
  }
}

TEST_F(StateCommandsTest, CountsOfMoreThan32BitsAreHeldToTheRange) {
  constexpr std::int64_t kMany = std::int64_t{1} << 32;
  Send("setChatMessageCount", {{"count", kMany}});
  EXPECT_EQ(Library().Button(EventKey::Chat)->sub_label, "...");
  Send("setChatMessageCount", {{"count", -kMany + 1}});
  EXPECT_EQ(Library().Button(EventKey::Chat)->sub_label, "");
  Send("setParticipantsCount", {{"count", kMany + 3}});
  EXPECT_STREQ(Button(1003).text, "People (2147483647)");
  Send("setMicVolume", {{"volume", -kMany}});
  EXPECT_EQ(Library().MicVolume(), -2147483647 - 1);
}

TEST_F(StateCommandsTest, ABarThatIsShownAgainShowsNothingOfTheLastMeeting) {
  Send("setParticipantsCount", {{"count", 12}});
  Send("setChatMessageCount", {{"count", 3}});
  Send("enterMeetingSubRoom", {{"roomName", "Room 5"}, {"roomId", "r5"}});
  Forget();
  Send("closeSharedControlbar");
  EXPECT_THAT(PushedKeys(), IsEmpty());
  ShowBar();
  EXPECT_EQ(Library().Button(EventKey::Participants)->text, "People");
  EXPECT_EQ(Library().Button(EventKey::Chat)->sub_label, "");
  EXPECT_EQ(Library().Button(EventKey::ControlbarSwitch)->status, 0);
  EXPECT_EQ(Library().Button(EventKey::Leave)->text, "10011");
  EXPECT_EQ(Library().Button(EventKey::Leave)->icon_path, "icon_call_end_filled.icon");
  EXPECT_EQ(Library().Button(EventKey::SubRoomName)->status, 2);
  EXPECT_EQ(Library().Button(EventKey::SubRoomName)->text, "");
}

TEST_F(StateCommandsTest, TheHostTypeDecidesWhatIsOffered) {
  const std::pair<int, std::int32_t> types[] = {{0, 2}, {1, 0}, {2, 0}, {3, 2}, {7, 0}};
  for (const auto& [type, status] : types) {
    Forget();
    Send("setHostType", {{"type", type}});
    EXPECT_EQ(Status(1004), status) << type;
    EXPECT_EQ(Status(1009), type == 1 ? 0 : 2) << type;
    EXPECT_TRUE(Logged(type == 1 ? "Show Host Interpreation" : "Hide Interpreation"));
    EXPECT_THAT(PushedKeys(), ElementsAre(1004, 1009, 1012, 1015, 1069, 1014));
  }
  Send("setInterpretationEnable", {{"enable", true}});
  EXPECT_EQ(Status(1009), 0);
  EXPECT_TRUE(Logged("GetInterpretationEnable Show Interpreation"));
}

TEST_F(StateCommandsTest, TheHostTypeKeepsTheRecordingState) {
  Send("setRecordStatus", {{"recording", true}});
  EXPECT_EQ(Status(1069), 0);
  InstallTexts();  // sets every status word back
  EXPECT_EQ(Status(1069), 2);
  Send("setHostType", {{"type", 1}});
  EXPECT_EQ(Status(1015), 1);
  EXPECT_EQ(Status(1069), 0);
}

TEST_F(StateCommandsTest, TheLeaveButtonFollowsTheSubRoom) {
  Send("enterMeetingSubRoom", {{"roomName", "Room 5"}, {"roomId", "r5"}});
  EXPECT_STREQ(Button(1014).text, "10092");
  EXPECT_STREQ(Button(1014).iconPath, "icon_leaveroom_filled.icon");
  EXPECT_FALSE(Logged("sub room host: leave button icon switch"));
  EXPECT_STREQ(Button(1079).text, "Room 5");
  EXPECT_EQ(Status(1079), 0);
  Send("setHostType", {{"type", 0}});
  EXPECT_TRUE(Logged("sub room host: leave button icon switch"));
  EXPECT_STREQ(Button(1014).text, "10092");
  Send("setHostType", {{"type", 1}});
  EXPECT_STREQ(Button(1014).text, "10011");
  EXPECT_STREQ(Button(1014).iconPath, "icon_call_end_filled.icon");
  EXPECT_TRUE(Logged("sub room participant: leave button icon switch"));
  Forget();
  Send("leaveMeetingSubRoom");
  EXPECT_EQ(Status(1079), 2);
  EXPECT_THAT(PushedKeys(), ElementsAre(1014, 1079));
  Send("setHostType", {{"type", 0}});
  EXPECT_STREQ(Button(1014).text, "10011");
}

TEST_F(StateCommandsTest, TheSketchButtonIsNeverShownInAScreenBox) {
  Send("setSketchVisible", {{"visible", true}});
  Send("setSketchEnable", {{"enable", true}});
  EXPECT_EQ(Status(1042), 0);
  Forget();
  Send("setMeetingSubType", {{"type", 5}});
  EXPECT_EQ(Status(1042), 2);
  EXPECT_TRUE(Logged("meeting sub type is SCREEN_BOX. sketch button is invalid."));
  EXPECT_STREQ(Button(1012).text, "10075");
  EXPECT_EQ(Library().Button(EventKey::StopSharing)->text, "10074") << "the bar was created anew";
  EXPECT_THAT(PushedKeys(), testing::IsSupersetOf({1003, 1042, 1012, 1074}));
  Send("setMeetingSubType", {{"type", 0}});
  EXPECT_EQ(Status(1042), 0) << "the stored values are applied again";
  EXPECT_STREQ(Button(1012).text, "10006");
}

TEST_F(StateCommandsTest, WhileTheSketchBarLoadsTheAnnotateButtonSaysSo) {
  const auto after_loading = [this](const char* command, const Json& arguments) {
    Send("setSketchLoading", {{"loading", true}});
    Send(command, arguments);
    EXPECT_EQ(Status(1042), 20) << command;
    Send("setSketchLoading", {{"loading", false}});
    return Status(1042);
  };
  EXPECT_EQ(after_loading("setSketchEnable", {{"enable", false}}), 0);
  EXPECT_FALSE(Manager().Data().GetSketchEnabled());
  EXPECT_EQ(after_loading("setSketchVisible", {{"visible", false}}), 2);
  EXPECT_EQ(after_loading("setSketchEnable", {{"enable", true}}), 2) << "it was hidden before";
  EXPECT_EQ(after_loading("setSketchVisible", {{"visible", true}}), 0);
  EXPECT_EQ(after_loading("setMeetingSubType", {{"type", 5}}), 2);
  InstallTexts();  // sets every status word back
  EXPECT_EQ(after_loading("setSketchEnable", {{"enable", true}}), 2) << "still a screen box";
  EXPECT_EQ(after_loading("setMeetingSubType", {{"type", 0}}), 0);
}

TEST_F(StateCommandsTest, TheSubTypeThatIsSetAlreadyRewritesNoLabel) {
  Send("setMeetingSubType", {{"type", 1}});
  Send("setItemValue", {{"key", 1012},
                        {"hasExpend", false},
                        {"itemName", ""},
                        {"itemText", "Share more"},
                        {"tag", ""},
                        {"sta", 0}});
  Send("setMeetingSubType", {{"type", 1}});
  EXPECT_STREQ(Button(1012).text, "Share more");
  Send("setMeetingSubType", {{"type", 0}});
  EXPECT_STREQ(Button(1012).text, "10006");
}

TEST_F(StateCommandsTest, IndicatorsShowSharingOrItsPause) {
  const auto indicators = [this] { return std::pair(Status(1072), Status(1073)); };
  const std::pair<int, int> none(2, 2);
  const std::pair<int, int> sharing(0, 2);
  const std::pair<int, int> paused(2, 0);
  Send("setSharingStatus", {{"pause", false}, {"sta", 1}});
  EXPECT_EQ(indicators(), sharing);
  Send("setSharingStatus", {{"pause", true}, {"sta", 1}});
  EXPECT_EQ(indicators(), paused);
  Send("setSharingStatus", {{"pause", false}, {"sta", 0}});
  EXPECT_EQ(indicators(), none);
  Send("setUnderControl", {{"status", 1}, {"userId", "u1"}, {"displayName", "Ada"}});
  EXPECT_EQ(indicators(), sharing);
  EXPECT_EQ(Status(1040), 0);
  EXPECT_TRUE(Logged("Set remote control status 1,controler: u1,Ada."));
  EXPECT_THAT(PushedKeys(), testing::Contains(1040));
  Send("setRemoteControlPause", {{"pause", true}});
  EXPECT_EQ(indicators(), paused);
  Send("setUnderControl", {{"status", 0}, {"userId", ""}, {"displayName", ""}});
  EXPECT_EQ(indicators(), none);
  EXPECT_EQ(Status(1040), 2);
  EXPECT_FALSE(Manager().Data().IsUnderControl());
}

TEST_F(StateCommandsTest, TheShareButtonExpandsWhereThereIsAnOption) {
  Send("setOptimizeForVideoClipsStatus", {{"visible", 0}, {"enabled", 1}, {"checked", 0}});
  Send("setKeepMyVideoOnTheScreenStatus", {{"visible", 0}, {"enabled", 0}, {"checked", 1}});
  EXPECT_EQ(Status(1086), 2);
  EXPECT_EQ(Status(1087), 7);
  EXPECT_TRUE(Button(1012).hasExpand) << "sharing audio is still offered";
  Send("setButtonVisible", {{"key", 1037}, {"visible", false}});
  Forget();
  Send("setShareAccess",
       {{"onlyHost", 1}, {"onlyHostCanStartAnyTime", 2}, {"onlyThePresenterCanAnnotate", 1}});
  EXPECT_FALSE(Button(1012).hasExpand);
  EXPECT_THAT(PushedKeys(), ElementsAre(1012));
  EXPECT_TRUE(Manager().Data().IsOnlyHostCanShare());
  EXPECT_FALSE(Manager().Data().IsOnlyHostCanReshare()) << "on is 1 and nothing else";
  EXPECT_EQ(Rows(1012)[3].status, 1);
  EXPECT_TRUE(
      Logged("SetShareAccess onlyhost: 1,onlyHostCanStartAnyTime: 2, "
             "onlyThePresenterCanAnnotate: 1"));
}

TEST_F(StateCommandsTest, DevicesAreLoggedOneByOne) {
  const Json microphones = {{{"id", "m1"}, {"name", "Built-in"}}, {{"id", "m2"}, {"name", "USB"}}};
  Send("setAudioAndPlaybackInfo", {{"microphones", microphones},
                                   {"currentMicrophoneId", "m2"},
                                   {"speakers", Json::array()},
                                   {"currentSpeakerId", ""}});
  EXPECT_TRUE(
      Logged("[Controlbar] Start set audio info. Device count: 2, currentAudioDeviceId = m2"));
  EXPECT_TRUE(Logged("Device: deviceId = m1, deviceName = Built-in"));
  EXPECT_EQ(Manager().Data().GetAudioCount(), 2u);
  EXPECT_EQ(Manager().Data().GetPlaybackCount(), 0u);
}

TEST_F(StateCommandsTest, ItemValuesReplaceARecordAndKeepTheirTexts) {
  Send("setItemValue", {{"key", 1023},
                        {"hasExpend", true},
                        {"itemName", "Name"},
                        {"itemText", "Text"},
                        {"tag", "Tag"},
                        {"sta", 4}});
  const auto* const button = Library().Button(EventKey::MoveNew);
  EXPECT_TRUE(button->has_expand);
  EXPECT_EQ(button->object_name + button->text + button->value_text, "NameTextTag");
  EXPECT_EQ(button->status, 4);
  EXPECT_EQ(Rows(1065)[5].extra_text, "Tag");
  EXPECT_TRUE(
      Logged("[Controlbar] Set value btnKey: 1023, hasExpend: true, itemName: Name, item "
             "text: Text, tag: Tag, sta: 4."));
  Send("closeSharedControlbar");
  EXPECT_STREQ(Button(1023).valueText, "Tag") << "the record's own text outlives the cache";
  EXPECT_EQ(Rows(1065)[5].extra_text, "");
}

TEST_F(StateCommandsTest, TestContentLastsUntilTheNextTextMap) {
  Send("setTestContentMap", {{"keys", {1001, 2000, 999}}, {"texts", {"Try", "none", "spare"}}});
  EXPECT_EQ(Library().Button(EventKey::MuteAudio)->text, "Try");
  EXPECT_THAT(PushedKeys(), ElementsAre(1001));
  Send("setTestContentMap", {{"keys", {1003, 1012, 1014, 1070, 1001}},
                             {"texts", {"t1003", "t1012", "t1014", "t1070", "t1001"}}});
  Send("setAudioStatus", {{"status", 0}});
  Send("setParticipantsCount", {{"count", 5}});
  Send("setMeetingSubType", {{"type", 1}});
  Send("enterMeetingSubRoom", {{"roomName", "Room 5"}, {"roomId", "r5"}});
  Send("setMeetingNumber", {{"number", "42"}});
  Send("closeSharedControlbar");
  Send("setItemValue", {{"key", 1001},
                        {"hasExpend", false},
                        {"itemName", ""},
                        {"itemText", "item"},
                        {"tag", ""},
                        {"sta", 0}});
  for (const int key : {1001, 1003, 1012, 1014, 1070}) {
    EXPECT_EQ(Button(key).text, "t" + std::to_string(key));
  }
  InstallTexts();
  EXPECT_STREQ(Button(1001).text, "10001");
  Send("setTestContentMap", {{"keys", {1001}}, {"texts", Json::array()}});
  Send("setAudioStatus", {{"status", 0}});
  EXPECT_STREQ(Button(1001).text, "10001");
}

TEST_F(StateCommandsTest, TestContentForAKeyOfMoreThan32BitsIsRefused) {
  for (const std::int64_t key :
       {(std::int64_t{1} << 32) + 1001, std::int64_t{1} << 62, -(std::int64_t{1} << 32) + 1001}) {
    Forget();
    Send("setTestContentMap", {{"keys", {key}}, {"texts", {"Try"}}});
    EXPECT_TRUE(LoggedFault("[Controlbar Data] key out of range!")) << key;
    EXPECT_THAT(PushedKeys(), IsEmpty());
  }
  EXPECT_STREQ(Button(1001).text, "10001");
}

TEST_F(StateCommandsTest, TheJoinPermissionNeedsAKnownLevel) {
  Manager().Data().SetCurrentSecurityLevel(0);
  Click(1065);
  EXPECT_TRUE(LoggedFault("Security level is nil!"));
  EXPECT_THAT(PushedKeys(), IsEmpty());
  Manager().Data().SetCurrentSecurityLevel(4);
  Click(1065);
  EXPECT_EQ(Library().Button(EventKey::JoinPermission)->group_value, 3);
}

TEST_F(StateCommandsTest, TipsReachTheLibrary) {
  Send("showButtonTip", {{"key", "MuteAudio"},
                         {"text", "You are muted"},
                         {"a", true},
                         {"b", 3000},
                         {"bHigh", 9},
                         {"c", false}});
  ASSERT_EQ(Library().ButtonTips().size(), 1u);
  EXPECT_EQ(Library().ButtonTips()[0].text, "You are muted");
  EXPECT_EQ(Library().ButtonTips()[0].b, 3000);
  EXPECT_TRUE(Library().ButtonTips()[0].a);
  const Json person = {{"userId", "u"},          {"instanceId", "i"}, {"number", 7},
                       {"displayName", "Ada"},   {"room", ""},        {"avatarKey", "k"},
                       {"avatarPath", "/a.png"}, {"flag", true}};
  Send("updateParticipants", {{"participants", {person}}});
  const Json message = {{"userId", "u"},
                        {"instanceId", "i"},
                        {"number", 7},
                        {"senderName", "Ada"},
                        {"message", "Hello"}};
  Send("showChatMessageTip", message);
  ASSERT_EQ(Library().ChatTips().size(), 1u);
  EXPECT_EQ(Library().ChatTips()[0].avatar_path, "/a.png");
  EXPECT_EQ(Library().ChatTips()[0].participant_key, "ui7");
  EXPECT_EQ(Library().ChatTips()[0].text, "Hello");
}

TEST_F(StateCommandsTest, TheSketchBarIsGivenItsButtons) {
  Send("showSketchControlbar", {{"show", true}});
  EXPECT_THAT(PushedKeys(),
              ElementsAre(1046, 1043, 1044, 1045, 1048, 1047, 1050, 1051, 1052, 1053, 1054, 1060,
                          1061, 1062, 1050, 1051, 1052, 1053, 1054, 1060, 1061, 1062));
  Forget();
  Send("showSketchControlbar", {{"show", false}});
  EXPECT_TRUE(Logged("Hide Sketch Controlbar"));
  Library().behaviour.refuse_sketch = true;
  EXPECT_EQ(Send("showSketchControlbar", {{"show", true}}), Json({{"result", false}}));
  EXPECT_THAT(PushedKeys(), IsEmpty());
}

TEST_F(StateCommandsTest, TheInterpretationSwitchIsStored) {
  Send("setInterpretationSwitchEnable", {{"enable", true}});
  EXPECT_TRUE(Manager().Data().GetInterpretationSwitchEnable());
}

TEST_F(StateCommandsTest, OneSketchToolIsSelectedAtATime) {
  for (const std::int32_t key : {1043, 1044, 1045}) {
    Send("selectSketchBtn", {{"key", key}, {"unread", false}});
    EXPECT_EQ(Status(1043), key == 1043 ? 1 : 0);
    EXPECT_EQ(Status(1044), key == 1044 ? 1 : 0);
  }
  const std::pair<int, std::int32_t> colors[] = {
      {1, 1056}, {4, 1059}, {0, 1055}, {5, 1055}, {-1, 1055}};
  for (const auto& [color, shown] : colors) {
    Send("setSketchColor", {{"color", color}});
    EXPECT_EQ(Library().Button(EventKey::SketchColor)->group_value, shown) << color;
  }
  EXPECT_TRUE(Logged("[Controlbar] SetSketchColor  1056, color: 1."));
}

}  // namespace
