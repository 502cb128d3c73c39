// SPDX-License-Identifier: MIT
// What the user does on the bar, and what the host is told of it.
#include <gmock/gmock.h>

#include "support/bar_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UserActionsTest : public BarTest {
 protected:
  void SetUp() override {
    InstallTexts();
    Send("setHostType", {{"type", 1}});
    ShowBar();
    Forget();
  }

  void FireItem(std::int32_t key, const char* tag, std::int32_t status = 1) {
    BtnParams item{};
    item.key = Key(key);
    item.valueText = tag;
    item.status = status;
    Fire(item);
  }
};

// A press in both states: what is told, and the log line.
struct Press {
  std::int32_t key;
  const char* told_on;
  const char* log_on;
  const char* told_off;
  const char* log_off;
};

const Press kPresses[] = {
    {1001, "muteAudio {\"mute\":false}", "Controlbar unmute audio.", "muteAudio {\"mute\":true}",
     "Controlbar mute audio."},
    {1002, "muteCamera {\"mute\":false}", "Controlbar unmute camera.", "muteCamera {\"mute\":true}",
     "Controlbar mute camera."},
    {1003, "participants {\"show\":true}", "Controlbar show participant list.",
     "participants {\"show\":false}", "Controlbar hide participant list."},
    {1004, "hostControl {\"open\":true}", "Controlbar open host control.",
     "hostControl {\"open\":false}", "Controlbar close host control."},
    {1006, "remoteControl {\"open\":true}", "Controlbar open remote control.",
     "remoteControl {\"open\":false}", "Controlbar close remote control."},
    {1007, "chat {\"open\":true}", "Controlbar open chat.", "chat {\"open\":false}",
     "Controlbar close chat."},
    {1008, "more {\"open\":true}", "Controlbar open more.", "more {\"open\":false}",
     "Controlbar close more."},
    {1015, "record {\"open\":true}", "Controlbar open record metting.", "record {\"open\":false}",
     "Controlbar close record metting."},
    {1023, "enableLobby {\"enabled\":true}", "Controlbar enabled Lobby.",
     "enableLobby {\"enabled\":false}", "Controlbar disabled Lobby."},
    {1026, "muteOnEntry {\"enabled\":true}", "Controlbar enabled mute on entry.",
     "muteOnEntry {\"enabled\":false}", "Controlbar disabled mute on entry."},
    {1027, "allowMemberEnableMicrophone {\"enabled\":true}",
     "Controlbar enabled allow mute sleves.", "allowMemberEnableMicrophone {\"enabled\":false}",
     "Controlbar disabled allow mute sleves."},
    {1032, "liveStream {\"open\":true}", "Controlbar open live stream.",
     "liveStream {\"open\":false}", "Controlbar close live stream."},
    {1033, "labs {\"open\":true}", "Controlbar open labs.", "labs {\"open\":false}",
     "Controlbar close labs."},
    {1042, "annotate {\"open\":true}", "Controlbar open annotate.", "annotate {\"open\":false}",
     "Controlbar close annotate."},
    {1085, "interpretationCloseOrigin {\"status\":true}",
     "Notify Interpretation origin channel status = true",
     "interpretationCloseOrigin {\"status\":false}",
     "Notify Interpretation origin channel status = false"},
    {1086, "optimizeForVideoClips {\"checked\":true}", "OnOptimizeForVideoClips: true",
     "optimizeForVideoClips {\"checked\":false}", "OnOptimizeForVideoClips: false"},
    {1087, "keepMyVideoOnTheScreen {\"checked\":true}", "OnKeepMyVideoOnTheScreen: true",
     "keepMyVideoOnTheScreen {\"checked\":false}", "OnKeepMyVideoOnTheScreen: false"},
    {1090, "settings {\"open\":true}", "Controlbar open settings.", "settings {\"open\":false}",
     "Controlbar close settings."},
};

class PressTest : public UserActionsTest, public testing::WithParamInterface<Press> {};

TEST_P(PressTest, TellsTheHostTheNewState) {
  const Press& press = GetParam();
  // Other bits of the status word do not matter.
  Click(press.key, 1 | 32);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre(press.told_on));
  EXPECT_TRUE(Logged(press.log_on));
  Forget();
  Click(press.key, 32);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre(press.told_off));
  EXPECT_TRUE(Logged(press.log_off));
}

INSTANTIATE_TEST_SUITE_P(Keys, PressTest, testing::ValuesIn(kPresses),
                         [](const auto& press) { return std::to_string(press.param.key); });

TEST_F(UserActionsTest, ActionsWithoutAPayload) {
  const struct {
    std::int32_t key;
    const char* told;
    const char* log;
  } cases[] = {{1011, "askHostForHelp", nullptr},
               {1012, "reshare", "Controlbar execute re-share."},
               {1013, "stopSharing", "Controlbar execute stop sharing."},
               {1028, "muteAll {\"mute\":true}", "Controlbar mute all."},
               {1029, "muteAll {\"mute\":false}", "Controlbar unmute all."},
               {1034, "inviteByPhone", "Controlbar invite by phone."},
               {1035, "inviteBySip", "Controlbar sip invite."},
               {1040, "stopRemoteControl", "Controlbar stop remote control."},
               {1070, "infoText", nullptr},
               {1083, "manageInterpretation", nullptr},
               {1089, "testSpeakMic", nullptr},
               {1092, "leaveSubRoom", nullptr}};
  for (const auto& [key, told, log] : cases) {
    Forget();
    Click(key, 1);
    EXPECT_THAT(ToldBesidesEvents(), ElementsAre(told)) << key;
    EXPECT_TRUE(log == nullptr || Logged(log)) << key;
  }
}

TEST_F(UserActionsTest, ItemsSendTheirTag) {
  const struct {
    std::int32_t key;
    const char* told;
    const char* log;
    const char* fault;
  } cases[] = {
      {1019, "selectSpeaker {\"deviceId\":\"t\"}", "Controlbar select speaker t.",
       "OnSelectSpeaker tag is nullptr!"},
      {1080, "selectMicrophone {\"deviceId\":\"t\"}", "Controlbar select microphone t.",
       "OnSelectMicrophone tag is nullptr!"},
      {1081, "selectCamera {\"deviceId\":\"t\"}", "Controlbar select camera t.",
       "OnSelectCamera tag is nullptr!"},
      {1082, "selectInterpretation {\"languageId\":\"t\"}",
       "OnInterpretationSelection languageId = t", "OnInterpretationSelection tag is nullptr!"},
      {1002, "muteCamera {\"mute\":false}", "Controlbar unmute camera.",
       "OnMuteCamera tag is nullptr!"}};
  for (const auto& [key, told, log, fault] : cases) {
    Forget();
    FireItem(key, "t");
    EXPECT_THAT(ToldBesidesEvents(), ElementsAre(told)) << key;
    EXPECT_TRUE(Logged(log)) << key;
    Forget();
    FireItem(key, nullptr);
    EXPECT_THAT(ToldBesidesEvents(), IsEmpty()) << key;
    EXPECT_TRUE(LoggedFault(fault)) << key;
  }
  Forget();
  FireItem(1039, nullptr);
  EXPECT_THAT(ToldBesidesEvents(), IsEmpty());
  EXPECT_TRUE(LoggedFault("OnRemoteControlGrant tag is nullptr!"));
}

TEST_F(UserActionsTest, SomeButtonsRememberTheirStatus) {
  for (const std::int32_t key : {1001, 1002, 1003, 1007}) {
    Click(key, 33);
    EXPECT_EQ(Button(key).status, 33) << key;
  }
  Click(1004, 33);
  EXPECT_EQ(Button(1004).status, 0) << "the host decides";
}

TEST_F(UserActionsTest, TheJoinPermissionIsTheCheckedRadioRow) {
  BtnParams row{};
  row.key = EventKey::JoinPermission;
  row.groupValue = 2;
  Fire(row);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre("joinPermissionChanged {\"level\":3}"));
  EXPECT_TRUE(Logged("Controlbar join meeting permission changed to 3."));
  EXPECT_EQ(Manager().Data().GetCurrentSecurityLevel(), 3);
  EXPECT_EQ(Rows(1065)[1].group_value, 2);
}

TEST_F(UserActionsTest, TheAnnotatePermissionReportsBothInOrder) {
  Manager().Data().SetCurrentSecurityLevel(3);
  Click(1005, 1);
  EXPECT_THAT(ToldBesidesEvents(),
              ElementsAre("annotate {\"open\":true}", "joinPermissionChanged {\"level\":3}"));
}

TEST_F(UserActionsTest, SharingPermissionsSendThePair) {
  Click(1024, 1);
  Click(1025, 1);
  Click(1024, 0);
  EXPECT_THAT(
      ToldBesidesEvents(),
      ElementsAre("onlyHostShare {\"onlyHostCanReshare\":false,\"onlyHostCanShare\":true}",
                  "onlyHostShare {\"onlyHostCanReshare\":true,\"onlyHostCanShare\":true}",
                  "onlyHostShare {\"onlyHostCanReshare\":true,\"onlyHostCanShare\":false}"));
  EXPECT_TRUE(Logged("Controlbar enabled only host share. IsOnlyHostCanReshare is false"));
  EXPECT_TRUE(Logged("Controlbar enabled only host break share. HostCanShare is true"));
  EXPECT_TRUE(Logged("Controlbar disabled only host share. IsOnlyHostCanReshare is true"));
}

TEST_F(UserActionsTest, ThePresenterAnnotationNamesTheListItWasOpenedFrom) {
  const std::pair<std::int32_t, int> windows[] = {{1012, 1}, {1075, 2}, {1065, 0}};
  for (const auto& [window, option] : windows) {
    Rows(window);
    Forget();
    Click(1088, 1);
    EXPECT_THAT(ToldBesidesEvents(),
                ElementsAre("onlyThePresenterCanAnnotate {\"checked\":true,\"shareOption\":" +
                            std::to_string(option) + "}"));
    EXPECT_TRUE(Logged("OnOnlyThePresenterCanAnnotate: true"));
  }
}

TEST_F(UserActionsTest, AParticipantMayNotRecord) {
  Send("setHostType", {{"type", 0}});
  Forget();
  Click(1015, 1);
  EXPECT_THAT(ToldBesidesEvents(), IsEmpty());
  EXPECT_TRUE(Logged("Recording...Participants skip onRecord!"));
}

TEST_F(UserActionsTest, LiveStreamingWithoutPermissionAsksForIt) {
  const std::pair<std::int64_t, const char*> types[] = {
      {0, "requestLiveStream"}, {1, "liveStream"}, {2, "requestLiveStream"}, {3, "liveStream"}};
  for (const auto& [type, name] : types) {
    Send("setHostType", {{"type", type}});
    Forget();
    Click(1032, 1);
    EXPECT_THAT(ToldBesidesEvents(), ElementsAre(std::string(name) + " {\"open\":true}")) << type;
  }
}

TEST_F(UserActionsTest, SubtitlesAndAudioGoTheOppositeWayOfTheHostsState) {
  Click(1031, 1);
  Send("setSubtitleOpened", {{"opened", true}});
  Click(1031, 1);
  Click(1037);
  Send("setShareAudioStatus", {{"started", true}});
  Click(1037);
  EXPECT_THAT(ToldBesidesEvents(),
              ElementsAre("subtitles {\"open\":true}", "subtitles {\"open\":false}",
                          "shareAudio {\"start\":true}", "shareAudio {\"start\":false}"));
  EXPECT_TRUE(Logged("GetShareAudioStatus isStart = true"));
}

TEST_F(UserActionsTest, TheInterpretationButtonSendsTheStoredState) {
  Click(1009);
  Send("setInterpretationEnable", {{"enable", true}});
  Click(1009);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre("interpretationSwitch {\"enable\":false}",
                                               "interpretationSwitch {\"enable\":true}"));
  EXPECT_TRUE(Logged("OnInterpretationSwitch enable = true"));
}

TEST_F(UserActionsTest, PositionsComeFromTheWidgetLibrary) {
  const auto at = Library().AreaOf(EventKey::Reaction);
  ASSERT_TRUE(at.has_value());
  const Json reaction = {{"x", at->x}, {"y", at->y}, {"width", at->width}, {"height", at->height}};
  Click(1010);
  EXPECT_THAT(ToldBesidesEvents(),
              ElementsAre("reaction " + Json({{"position", reaction}}).dump()));
  Forget();
  Click(1071, 1);
  const Json nowhere = {{"x", 0}, {"y", 0}, {"width", 0}, {"height", 0}};
  EXPECT_THAT(
      ToldBesidesEvents(),
      ElementsAre("meetingIdExpand " + Json({{"open", true}, {"position", nowhere}}).dump()));
  EXPECT_FALSE(Logged("share screen expand share video"));

  Send("setMeetingSubType", {{"type", 2}});
  const auto info = Library().AreaOf(EventKey::InfoText);
  ASSERT_TRUE(info.has_value());
  Forget();
  Click(1071, 3);  // only the whole word 1 is open
  const Json there = {
      {"x", info->x}, {"y", info->y}, {"width", info->width}, {"height", info->height}};
  EXPECT_THAT(
      ToldBesidesEvents(),
      ElementsAre("meetingIdExpand " + Json({{"open", false}, {"position", there}}).dump()));
  EXPECT_TRUE(Logged("share screen expand share video"));
  EXPECT_TRUE(Logged("Controlbar close meeting id."));
}

TEST_F(UserActionsTest, LeavingAsksForConfirmationAtTheButton) {
  InstallTexts({{10093, "Leave?"}, {10094, "You are in {{roomName}}."}, {10095, "Yes"}});
  Send("enterMeetingSubRoom", {{"roomName", "Room 5"}, {"roomId", "r5"}});
  Forget();
  Click(1014);
  ASSERT_EQ(Library().ConfirmTips().size(), 1u);
  const auto tip = Library().ConfirmTips().front();
  EXPECT_EQ(tip.key, EventKey::Leave);
  EXPECT_EQ(tip.title, "Leave?");
  EXPECT_EQ(tip.text, "You are in Room 5.");
  EXPECT_EQ(tip.confirm_text, "Yes");
  EXPECT_EQ(tip.button, Library().AreaOf(EventKey::Leave));
  Send("leaveMeetingSubRoom");
  Send("setMeetingDetailInfo", {{"topic", "Planning"}, {"hostName", ""}, {"meetingLink", ""}});
  Click(1014);
  EXPECT_EQ(Library().ConfirmTips().back().text, "You are in Planning.");
  Forget();
  Click(1014);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre("leaveMeeting"));
  EXPECT_TRUE(Logged("Controlbar leave metting."));
}

TEST_F(UserActionsTest, TheBarsSwitchTogglesItsTextAndIsNotReported) {
  Click(1041);
  EXPECT_STREQ(Button(1041).text, "10087");
  Click(1041);
  EXPECT_STREQ(Button(1041).text, "10088");
  EXPECT_EQ(Library().Button(EventKey::ControlbarSwitch)->text, "10088");
  EXPECT_THAT(ToldBesidesEvents(), IsEmpty());
}

TEST_F(UserActionsTest, SketchKeysAreForwarded) {
  std::vector<std::string> expected;
  for (std::int32_t key = 1043; key <= 1062; ++key) {
    Click(key);
    if (key != 1046) expected.push_back("sketchButton {\"key\":" + std::to_string(key) + "}");
  }
  EXPECT_EQ(ToldBesidesEvents(), expected);
  for (const int sub_type : {1, 2}) {
    Send("setMeetingSubType", {{"type", sub_type}});
    Forget();
    Click(1048);
    EXPECT_THAT(ToldBesidesEvents(), ElementsAre("sketchButton {\"key\":1060}")) << sub_type;
  }
}

TEST_F(UserActionsTest, RemoteControlIsGrantedToTheChosenParticipant) {
  const Json person = {{"userId", "u"},        {"instanceId", "i"}, {"number", 7},
                       {"displayName", "Ada"}, {"room", ""},        {"avatarKey", "k"},
                       {"avatarPath", "p"},    {"flag", true}};
  Send("updateParticipants", {{"participants", {person}}});
  const std::string grant = "remoteControlGrant " + Json({{"participant", person}}).dump();
  Forget();
  FireItem(1039, "ui7");
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre(grant));
  Forget();
  FireItem(1006, "ui7");
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre("remoteControl {\"open\":true}", grant));
  Forget();
  FireItem(1039, "nobody");
  EXPECT_THAT(ToldBesidesEvents(), IsEmpty());
  EXPECT_TRUE(LoggedFault("[Controlbar Data] params == nullptr!"));
}

TEST_F(UserActionsTest, HandlersTraceThemselvesWithTheirFullName) {
  const std::pair<std::int32_t, const char*> handlers[] = {
      {1001, "OnMuteAudio"}, {1014, "OnLeaveMeetting"},    {1015, "OnRecordMeetting"},
      {1029, "OnUnmuteAll"}, {1080, "OnSelectMicrophone"}, {1025, "OnEnableOnlyHostBreakShare"}};
  for (const auto& [key, name] : handlers) {
    Forget();
    Click(key);
    EXPECT_TRUE(Logged(std::string("entry VELLOMAR_CONTROLBAR::ControlbarManager::") + name));
  }
}

}  // namespace
