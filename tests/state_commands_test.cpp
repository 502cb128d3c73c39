// SPDX-License-Identifier: MIT
// The host's test content, which stands in place of the buttons' labels.
#include <gmock/gmock.h>

#include "support/bar_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StateCommandsTest : public BarTest {
 protected:
  void SetUp() override {
    InstallTexts();
    ShowBar();
    Forget();
  }
};

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

}  // namespace
