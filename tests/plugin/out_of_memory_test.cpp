// SPDX-License-Identifier: MIT
// Memory runs out at every point at which the plug-in asks for some, in a run of commands, lists,
// clicks and tasks. Nothing may leave an export or a callback as an exception, crash or leak (the
// address sanitizer watches); every text handed out stays readable; and afterwards the plug-in
// works as if nothing had happened. The test's own code and the widgets, which the benchmarks have
// too, ask for no memory while the plug-in's requests are refused.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <new>
#include <span>
#include <string>
#include <tuple>

#include "manager/controlbar_manager.h"
#include "plugin/messages.h"
#include "plugin/text.h"
#include "stubs/observer.h"
#include "support/counted_memory.h"
#include "vellomar/controlbar.h"
#include "vellomar/lorimel.h"

namespace {

using namespace counted_memory;
using VELLOMAR_CONTROLBAR::ControlbarManager;
using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::kKeyCount;

// --- Every text that is handed out is read

std::uint64_t read = 0;

void ReadText(const char* text) {
  if (text != nullptr) {
    read += std::strlen(text);
  }
}
void Read(const BtnParams& params) {
  for (const char* text :
       {params.objectName, params.text, params.valueText, params.toolTip, params.secondToolTip,
        params.iconPath, params.subLabel, params.extraText}) {
    ReadText(text);
  }
}

// --- The run

constexpr char kText[] = "a text that is longer than any small string";
constexpr char kOther[] = "another text that is longer than any small string";

// Commands as plugin/streams/README.md has them, and the one response; the host's loop runs them at
// once. $1 and $2 are the texts above.
class Steps {
 public:
  Steps(std::initializer_list<std::string> lines) {
    for (std::string line : lines) {
      for (std::size_t at = 0; (at = line.find('$')) != line.npos;) {
        line.replace(at, 2, streams::Quoted(line[at + 1] == '1' ? kText : kOther));
      }
      const std::string name = line.substr(0, line.find(' '));
      const streams::Message* const command = streams::FindMessage("command", name);
      const auto& message = command != nullptr ? *command : *streams::FindMessage("response", name);
      steps_.emplace_back(
          command != nullptr ? &ExportedCallEvent : &ExportedOnReceive, message.id,
          streams::Payload(message, streams::ParseArguments(line.substr(name.size()))));
    }
  }

  void Send() {
    for (auto& [function, id, payload] : steps_) {
      posted = nullptr;
      function(static_cast<std::uint32_t>(id), 0, payload.data());
      if (posted != nullptr) {
        RunPosted();
      }
    }
  }

 private:
  std::deque<std::tuple<decltype(&ExportedCallEvent), std::uint64_t, streams::Payload>> steps_;
};

// Of the participants one joins, one leaves, one changes; then comes the answer about an avatar.
void SendMeeting() {
  static Steps steps = {
      // NOLINTNEXTLINE(bugprone-suspicious-missing-comma)
      "setTextMap ids=[10001,10004,10069,10094] "
      "texts=[$1,$2,\"the number of it: {{number}}\",\"leave {{roomName}}\"]",
      "showSharedControlbar",
      "setWindowTitle title=$1",
      "setMeetingNumber number=$1",
      "setShareScreenMeetingName name=$1",
      "setParticipantsCount count=12",
      "setChatMessageCount count=1000",
      "setLiveStatus status=1 count=5",
      "setUnderControl status=1 userId=user-2 displayName=$1",
      "setMeetingDetailInfo topic=$1 hostName=$2 meetingLink=$1",
      "enterMeetingSubRoom roomName=$1 roomId=\"\"",
      "setHostType type=1",
      "setItemValue key=1023 itemName=$1 itemText=$2 tag=$1",
      "setTestContentMap keys=[1007,1042] texts=[$1,$2]",
      "setCameraInfo cameras=[$1 $2,$2 $1] currentCameraId=$1",
      "setAudioAndPlaybackInfo microphones=[$1 $2,$2 $1] currentMicrophoneId=$1"
      " speakers=[$1 $2,$2 $1] currentSpeakerId=$2",
      "setInterpretationInfo languages=[$1 $2,$2 $1] currentLanguageId=$1",
      "setInterpretationEnable enable=1",
      "updateParticipants participants=[user-1 instance 1 $1 \"\" $1 $1 1,"
      "user-2 instance 1 $2 \"\" $2 $1 1,user-3 instance 1 Li \"\" \"\" $1 1]",
      "updateParticipants participants=[user-2 instance 1 renamed \"\" $1 $1 1,"
      "user-3 instance 1 Li \"\" $2 $1 1,user-4 instance 1 $1 \"\" \"\" $1 1]",
      "avatar avatarKey=$1 avatarPath=$2",
      "showChatMessageTip userId=user-2 instanceId=instance number=1 senderName=$1 message=$2",
  };
  steps.Send();
}

// The bar is closed and created anew, twice, then closed for good.
void SendEnd() {
  static Steps steps = {"setMeetingSubType type=5", "setMeetingSubType type=1",
                        "showSketchControlbar show=1", "getControlbarPosition",
                        "closeSharedControlbar"};
  steps.Send();
  ExportedCallDrop(VELLOMAR_COMMAND_getControlbarPosition, 0);
}

constexpr std::array kWindows = {
    EventKey::AudioDevices,   EventKey::CameraDevices,  EventKey::HostControlWindow,
    EventKey::ShareNew,       EventKey::More,           EventKey::RemoteControl,
    EventKey::SharingOptions, EventKey::SketchPen,      EventKey::SketchClear,
    EventKey::Interpretation, EventKey::MeetingIdExpand};

template <typename Look>
void OpenLists(Look look) {
  for (const EventKey key : kWindows) {
    int count = 3;  // of another list
    BtnParams* const rows = bench::Callbacks().on_show_window(key, count);
    look(std::span(rows, static_cast<std::size_t>(count)));
  }
}

void ClickEverywhere() {
  for (std::int32_t i = 0; i <= kKeyCount; ++i) {  // and the one behind the last
    BtnParams event{};
    event.key = EventKey{VELLOMAR_LORIMEL::kFirstKey + i};
    if (event.key == EventKey::ControlbarSwitch) {
      continue;  // turns a flag with every click
    }
    event.objectName = event.text = kText;
    const bool of_a_person =
        event.key == EventKey::ParticipantRow || event.key == EventKey::RemoteControl;
    event.valueText = of_a_person ? "user-2instance1" : kOther;
    bench::Callbacks().on_event(event);
  }
}

void WholeRun() {
  SendMeeting();
  OpenLists([](std::span<BtnParams> rows) {
    for (const BtnParams& row : rows) {
      Read(row);
    }
    if (rows.size() > 1) {
      bench::Callbacks().on_event(rows[1]);  // the plug-in's own row comes back
    }
  });
  ClickEverywhere();
  SendEnd();
}

// Everything that shows, in the middle of a meeting.
std::string Picture() {
  Steps({"setMeetingSubType type=1"}).Send();
  SendMeeting();
  std::string picture;
  const auto append = [&picture](std::span<const BtnParams> records) {
    for (const BtnParams& record : records) {
      picture += std::to_string(static_cast<int>(record.key)) +
                 streams::Changes(streams::FieldsOf({}), streams::FieldsOf(record)) + '\n';
    }
  };
  append({bench::Callbacks().records, kKeyCount});
  OpenLists(append);
  return picture;
}

class OutOfMemoryTest : public testing::TestWithParam<bool> {
 protected:
  OutOfMemoryTest() {
    bench::ReadTexts(&ReadText);
    Init();
  }
  ~OutOfMemoryTest() override {
    VELLOMAR_LORIMEL::Lorimel::GetInstance()->CloseSharedControlbar();
    ExportedUninit();
    ControlbarManager::DestroyInstance();
  }
};

INSTANTIATE_TEST_SUITE_P(Requests, OutOfMemoryTest, testing::Bool(),
                         [](const auto& all) { return all.param ? "All" : "One"; });

// One request is refused, or all from the n-th of a run on; n goes up until a run needs no more.
TEST_P(OutOfMemoryTest, ThePlugInWorksAfterwards) {
  WholeRun();
  const std::string expected = Picture();
  ASSERT_NE(expected.find("\n1003 text=\"another text that is longer than any small string (12)\""),
            std::string::npos);
  std::uint64_t point = 1;
  for (;; ++point) {
    escapes = 0;
    refused = false;
    refuse_all_from_then = GetParam();
    until_refusal = point;
    WholeRun();
    until_refusal = 0;
    for (int i = 0; i < kKeyCount; ++i) {
      Read(bench::Callbacks().records[i]);
    }
    if (!refused) {
      break;
    }
    ASSERT_GE(escapes, 1) << "point " << point << ": an exception that nobody logged";
    if (!GetParam()) {
      ASSERT_EQ(escapes, 1) << "point " << point << ", " << last_escape.data();
    }
    // Each picture builds the meeting anew: a difference is something that stayed half done.
    ASSERT_EQ(Picture(), expected) << "point " << point << ", " << last_escape.data();
  }
  EXPECT_GT(point, 100u);
  EXPECT_GT(read, 0u);
  RecordProperty("points", static_cast<int>(point - 1));
  std::printf("%d points at which memory ran out\n", static_cast<int>(point - 1));
}

// What an export answers, and what stays as it was.
TEST_F(OutOfMemoryTest, ACommandWithoutMemoryIsNotHandled) {
  Steps({"setWindowTitle title=$1"}).Send();
  VellomarText title{kOther};
  std::uint64_t point = 1;
  for (;; ++point) {
    posted = nullptr;
    escapes = 0;
    until_refusal = point;
    const bool handled = ExportedCallEvent(VELLOMAR_COMMAND_setWindowTitle, 0, &title);
    until_refusal = 0;
    if (handled) {
      break;
    }
    EXPECT_STREQ(last_escape.data(), "[Controlbar] ExportedCallEvent failed: std::bad_alloc");
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(posted, nullptr)
        << "the host has a task of a command that it was told is not handled";
    EXPECT_EQ(ControlbarManager::GetInstance()->Data().GetWindowTitle(), kText);
  }
  EXPECT_EQ(point, 5u);  // the text, the callable and its block, the record
  RunPosted();
  EXPECT_EQ(ControlbarManager::GetInstance()->Data().GetWindowTitle(), kOther);
}

// Init alone tells its caller, and can be called again.
TEST_F(OutOfMemoryTest, InitLetsTheFailureOut) {
  ExportedUninit();
  std::uint64_t point = 0;
  for (bool failed = true; failed;) {
    failed = false;
    until_refusal = ++point;
    try {
      Init();
    } catch (const std::bad_alloc&) {
      failed = true;
      until_refusal = 0;
      ExportedUninit();
    }
    until_refusal = 0;
  }
  EXPECT_GE(point, 6u);  // log, requester, responser, slot, notifier, host, loop
  EXPECT_FALSE(Picture().empty());
}

}  // namespace
