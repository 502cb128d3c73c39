// SPDX-License-Identifier: MIT
// The bar's windows: shown, refused, re-created and closed, and what the host is told of it.
#include <gmock/gmock.h>

#include "support/bar_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class WindowsTest : public BarTest {
 protected:
  void Close() { Send("closeSharedControlbar"); }
};

TEST_F(WindowsTest, ShowingCreatesTheBarWithAllRecords) {
  InstallTexts();
  Send("setWindowTitle", {{"title", "Stand-up"}});
  Send("setMeetingDuration", {{"seconds", "61"}});
  Send("setMeetingSubType", {{"type", 2}});
  Send("setControlBarSimplifyEnable", {{"enable", true}});
  Forget();
  const Json display = {{"x", -1920}, {"y", 10}, {"width", 1920}, {"height", 1080}};
  EXPECT_EQ(Send("showSharedControlbar", {{"display", display}}), Json({{"result", true}}));

  ASSERT_EQ(Library().Creations().size(), 1u);
  const auto& creation = Library().Creations().front();
  EXPECT_EQ(creation.title, "Stand-up");
  EXPECT_EQ(creation.x, -1920);
  EXPECT_EQ(creation.height, 1080);
  EXPECT_EQ(creation.records.size(), 92u);
  EXPECT_EQ(creation.records.front().key, EventKey::MainWindow);
  EXPECT_EQ(creation.records[12].text, "10075");
  EXPECT_EQ(creation.type, 2);
  EXPECT_TRUE(creation.simplify);
  EXPECT_EQ(Library().Duration(), 61u);
  EXPECT_TRUE(Library().IsBarVisible());
  EXPECT_THAT(Told(),
              ElementsAre("controlbarCreated {\"nativeHandle\":4711,\"position\":{\"height\":"
                          "60,\"width\":1000,\"x\":100,\"y\":20}}"));
  EXPECT_TRUE(Logged("[Controlbar] main controlbar Created,position: 100,20,1000,60."));
  EXPECT_TRUE(Logged(
      "ShowSharedControlbar displayRect.x = -1920, displayRect.y = 10, displayRect.width = 1920, "
      "displayRect.height = 1080,nParamsCount = 92,type = 2 "));
}

TEST_F(WindowsTest, TheDefaultTitleIsUsedUntilTheHostSetsOne) {
  ShowBar();
  EXPECT_EQ(Library().Creations().front().title, "Default SDK Title");
}

TEST_F(WindowsTest, ANullTitleKeepsTheOldOne) {
  Send("setWindowTitle", {{"title", "Stand-up"}});
  Send("setWindowTitle", {{"title", nullptr}});
  EXPECT_TRUE(LoggedFault("set windows title is nullptr"));
  EXPECT_EQ(Manager().Data().GetWindowTitle(), "Stand-up");
  Send("setMeetingNumber", {{"number", "42"}});
  Send("setMeetingNumber", {{"number", nullptr}});
  EXPECT_EQ(Manager().Data().GetMeetingNumber(), "") << "other texts are empty";
  Send("setWindowTitle", {{"title", ""}});
  EXPECT_EQ(Manager().Data().GetWindowTitle(), "");
}

TEST_F(WindowsTest, RecordsHaveTheirKeysBeforeTheFirstTextMap) {
  ShowBar();
  ASSERT_NE(Library().Button(EventKey::SketchColor), nullptr);
  EXPECT_EQ(Library().Button(EventKey::SketchColor)->group_value, 1055);
  Send("showSketchControlbar", {{"show", true}});
  Send("selectSketchBtn", {{"key", 1044}, {"unread", false}});
  Send("setSketchbarBtnEnable", {{"key", 1047}, {"enable", false}});
  Send("setSketchLoading", {{"loading", true}});
  Send("setMeetingSubType", {{"type", 1}});
  EXPECT_THAT(PushedKeys(), Not(Contains(0)));
  EXPECT_EQ(Library().Pushed(EventKey::SketchColor).front().copy.group_value, 1055);
  EXPECT_EQ(Library().Button(EventKey::SketchUndo)->status, 4);
}

TEST_F(WindowsTest, ARefusedCreationAnswersFalse) {
  Library().behaviour.refuse_create = true;
  EXPECT_FALSE(ShowBar());
  EXPECT_TRUE(LoggedFault("[Controlbar] create share controlbar failed."));
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(WindowsTest, ABarThatIsReportedTooLateIsNotShown) {
  Library().behaviour.created_later = true;
  EXPECT_FALSE(ShowBar());
  EXPECT_TRUE(LoggedFault("[Controlbar Data] m_handleControlbar == nullptr!"));
  EXPECT_EQ(Library().CallCount("ShowControlbar"), 0u);
  Library().DeliverPending();
  EXPECT_THAT(Told(), ElementsAre(StartsWith("controlbarCreated")));
}

TEST_F(WindowsTest, ThePositionIsZeroUntilThereIsABar) {
  const Json nowhere = {{"x", 0}, {"y", 0}, {"width", 0}, {"height", 0}};
  EXPECT_EQ(Send("getControlbarPosition").at("position"), nowhere);
  EXPECT_TRUE(LoggedFault("main window handle is nil!"));
  Library().behaviour.bar = {-50, 20, 1000, 60};
  ShowBar();
  EXPECT_EQ(Send("getControlbarPosition").at("position"),
            Json({{"x", -50}, {"y", 20}, {"width", 1000}, {"height", 60}}));
}

TEST_F(WindowsTest, ClosingTellsTheHostOnce) {
  Send("setWindowTitle", {{"title", "Stand-up"}});
  ShowBar();
  Forget();
  EXPECT_EQ(Send("closeSharedControlbar"), Json({{"result", true}}));
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));
  EXPECT_EQ(Manager().Data().GetWindowTitle(), "Default SDK Title") << "cached data is dropped";
  EXPECT_EQ(Send("closeSharedControlbar"), Json({{"result", false}}));
}

TEST_F(WindowsTest, PopUpWindowsAreReportedAndTheirCloseIsNot) {
  InstallTexts();
  ShowBar();
  Forget();
  Library().Open(EventKey::More);
  EXPECT_THAT(Told(), Contains(StartsWith("popupCreated {\"position\":")));
  Forget();
  Library().CloseList();
  EXPECT_THAT(Told(), IsEmpty());
  EXPECT_TRUE(LoggedFault("OnControlbarCreated handle is not controlbar"));
}

class RecreationTest : public WindowsTest, public testing::WithParamInterface<bool> {};

TEST_P(RecreationTest, ASwitchOfTheSubTypeCreatesTheBarAnew) {
  Library().behaviour.closed_later = GetParam();
  InstallTexts({{10069, "No. {{number}}"}});
  Send("setMeetingNumber", {{"number", "42"}});
  ShowBar();
  Forget();
  Send("setMeetingSubType", {{"type", 5}});
  Library().DeliverPending();
  EXPECT_TRUE(Logged("switch form subtype:0 to 5"));
  ASSERT_EQ(Library().Creations().size(), 2u);
  EXPECT_EQ(Library().Creations().back().type, 5);
  EXPECT_EQ(Library().Creations().back().width, 1920);
  EXPECT_THAT(Told(), Not(Contains("controlbarClosed")));
  EXPECT_THAT(Told(), Contains(StartsWith("controlbarCreated")));
  EXPECT_THAT(PushedKeys(), Contains(1070)) << "the meeting number is shown again";
  EXPECT_STREQ(Button(1070).text, "No. 42");
  Forget();
  Close();
  Library().DeliverPending();
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));
}

TEST_P(RecreationTest, AHostThatClosesTheNewBarAtOnceEndsIt) {
  Library().behaviour.closed_later = GetParam();
  ShowBar();
  inside["controlbarCreated"] = [this] { Close(); };
  Forget();
  Send("setMeetingSubType", {{"type", 5}});
  Library().DeliverPending();
  EXPECT_EQ(Library().Creations().size(), 2u);
  EXPECT_THAT(Told(), ElementsAre(StartsWith("controlbarCreated"), "controlbarClosed"));
  EXPECT_EQ(Library().BarHandle(), nullptr);
}

TEST_P(RecreationTest, ARecreationThatFailsIsReportedAsAClose) {
  Library().behaviour.closed_later = GetParam();
  ShowBar();
  Forget();
  Library().behaviour.refuse_create = true;
  Send("setMeetingSubType", {{"type", 5}});
  Library().DeliverPending();
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));

  Library().behaviour.refuse_create = false;
  ShowBar();
  Forget();
  Library().behaviour.refuse_show = true;
  Send("setMeetingSubType", {{"type", 1}});
  Library().DeliverPending();
  EXPECT_THAT(Told(), ElementsAre(StartsWith("controlbarCreated"), "controlbarClosed"));
  EXPECT_EQ(Library().BarHandle(), nullptr) << "a bar that nobody sees is not left behind";
}

INSTANTIATE_TEST_SUITE_P(Close, RecreationTest, testing::Bool(),
                         [](const auto& later) { return later.param ? "Later" : "AtOnce"; });

TEST_F(WindowsTest, ASecondSwitchBeforeTheCloseIsReportedKeepsTheRecreation) {
  Library().behaviour.closed_later = true;
  ShowBar();
  Forget();
  Send("setMeetingSubType", {{"type", 5}});
  Send("setMeetingSubType", {{"type", 1}});  // there is nothing left to close
  Library().DeliverPending();
  ASSERT_EQ(Library().Creations().size(), 2u);
  EXPECT_EQ(Library().Creations().back().type, 1);
  EXPECT_THAT(Told(), ElementsAre(StartsWith("controlbarCreated")));
}

TEST_F(WindowsTest, ACloseByTheHostCancelsTheRecreation) {
  Library().behaviour.closed_later = true;
  ShowBar();
  Forget();
  Send("setMeetingSubType", {{"type", 5}});
  Close();
  Library().DeliverPending();
  EXPECT_EQ(Library().Creations().size(), 1u);
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));
}

TEST_F(WindowsTest, ACloseThatIsReportedAfterUninitCreatesNothing) {
  Library().behaviour.closed_later = true;
  ShowBar();
  Send("setMeetingSubType", {{"type", 5}});
  ExportedUninit();
  Library().DeliverPending();
  EXPECT_EQ(Library().Creations().size(), 1u);
}

TEST_F(WindowsTest, ABarThatTheHostShowsMeanwhileTakesThePlaceOfTheRecreation) {
  Library().behaviour.closed_later = true;
  ShowBar();
  Send("setMeetingSubType", {{"type", 5}});
  ShowBar();
  Library().DeliverPending();
  Forget();
  Close();
  Library().DeliverPending();
  EXPECT_EQ(Library().Creations().size(), 2u);
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));
}

TEST_F(WindowsTest, TheSameSubTypeKeepsTheBar) {
  Send("setMeetingSubType", {{"type", 1}});
  ShowBar();
  Send("setMeetingSubType", {{"type", 1}});
  EXPECT_EQ(Library().Creations().size(), 1u);
  Manager().SwitchSubType(1, 1);
  EXPECT_TRUE(Logged("invalid switch,subtype:1"));
  EXPECT_EQ(Library().CallCount("CloseSharedControlbar"), 0u);
}

TEST_F(WindowsTest, ASwitchAfterTheBarWasClosedDoesNotBringItBack) {
  ShowBar();
  Close();
  Send("setMeetingSubType", {{"type", 1}});
  EXPECT_EQ(Library().Creations().size(), 1u);
  ShowBar();
  Forget();
  Close();
  EXPECT_THAT(Told(), ElementsAre("controlbarClosed"));
}

TEST_F(WindowsTest, ANewTextMapReachesTheOpenBar) {
  InstallTexts();
  ShowBar();
  Forget();
  InstallTexts({{10001, "Ton"}});
  EXPECT_EQ(PushedKeys().size(), 92u);
  EXPECT_EQ(Library().Button(EventKey::MuteAudio)->text, "Ton");
  EXPECT_GT(Library().ReadEveryText(), 0u);
}

TEST_F(WindowsTest, ARefusedTextMapPushesNothing) {
  InstallTexts();
  ShowBar();
  Forget();
  Send("setTextMap", {{"ids", {10001, 10002}}, {"texts", {"Ton"}}});
  EXPECT_THAT(PushedKeys(), IsEmpty());
}

TEST_F(WindowsTest, ButtonCommandsChangeOneBitAndPushTheRecord) {
  InstallTexts();
  ShowBar();
  Forget();
  Send("setButtonVisible", {{"key", "Chat"}, {"visible", false}});
  Send("setButtonEnable", {{"key", "Chat"}, {"enable", false}});
  Send("setButtonVisible", {{"key", "Chat"}, {"visible", true}});
  EXPECT_EQ(PushedStatus(1007), (std::vector<std::int32_t>{2, 6, 4}));
  EXPECT_TRUE(Logged("SetButtonVisible: 1007,false"));
  EXPECT_TRUE(Logged("update lorimel ui: 1007"));
}

TEST_F(WindowsTest, KeysOutsideTheStoreAreNeverPushed) {
  ShowBar();
  Forget();
  for (const int key : {-1, 0, 999}) {
    Send("setButtonVisible", {{"key", key}, {"visible", false}});
    EXPECT_FALSE(LoggedFault("[Controlbar Data] key out of range!")) << key;
  }
  for (const int key : {1092, 2147483647}) {
    Forget();
    Send("setButtonEnable", {{"key", key}, {"enable", false}});
    EXPECT_TRUE(LoggedFault("[Controlbar Data] key out of range!")) << key;
    EXPECT_TRUE(LoggedFault("[Controlbar Data] params == nullptr!")) << key;
  }
  EXPECT_THAT(PushedKeys(), IsEmpty());
}

TEST_F(WindowsTest, EveryUserActionIsReportedRawFirst) {
  InstallTexts();
  ShowBar();
  Forget();
  BtnParams item{};
  item.key = EventKey::CameraItem;
  item.objectName = "CameraItem";
  item.text = "Front camera";
  item.valueText = "cam-1";
  Fire(item);
  EXPECT_THAT(Told(), ElementsAre("uiEvent {\"itemName\":\"CameraItem\",\"itemText\":\"Front "
                                  "camera\",\"key\":1081,\"tag\":\"cam-1\"}",
                                  "selectCamera {\"deviceId\":\"cam-1\"}"));
  EXPECT_TRUE(Logged("OnUIEvent type:1081"));
  Forget();
  Click(1000);
  Click(2000);
  EXPECT_THAT(Told(), ElementsAre(StartsWith("uiEvent"), StartsWith("uiEvent")));
}

TEST_F(WindowsTest, MovesOfTheBarAreReportedOnlyOnRequest) {
  ShowBar();
  Forget();
  Click(1077);
  EXPECT_THAT(Told(), IsEmpty());
  EXPECT_THAT(recording_log::Texts(), Not(Contains(StartsWith("OnUIEvent"))));
  Send("setRegWidgetMovingEvent", {{"enable", true}});
  Forget();
  Click(1077);
  EXPECT_THAT(Told(), ElementsAre(StartsWith("uiEvent {"), "widgetMoving"));
}

TEST_F(WindowsTest, WindowsWithoutRowsAnswerNull) {
  InstallTexts();
  ShowBar();
  for (const std::int32_t window : {1000, 1003, 1014, 1092, -1}) {
    int count = 17;
    EXPECT_EQ(Library().Ask(Key(window), count), nullptr) << window;
    EXPECT_EQ(count, 17) << "the count is left alone";
  }
  EXPECT_THAT(Rows(1009), IsEmpty());
  Send("setInterpretationEnable", {{"enable", true}});
  EXPECT_EQ(Rows(1009).size(), 6u);
}

TEST_F(WindowsTest, AMissingHostIsNoFault) {
  const EventLoopTable table = host.Table();
  ExportedInit(nullptr, nullptr, nullptr, &table, nullptr, nullptr, 0);
  EXPECT_TRUE(ShowBar());
  Click(1013);
  EXPECT_THAT(Told(), IsEmpty());
}

}  // namespace
