// SPDX-License-Identifier: MIT
// Memory runs out at every point at which the plug-in asks for some, in a run of commands, lists,
// clicks and tasks. Nothing may leave an export or a callback as an exception, crash or leak (the
// address sanitizer watches); every text handed out stays readable; and afterwards the plug-in
// works as if nothing had happened. The program replaces operator new and the log, so it is one of
// its own; its own code and the widgets, which the benchmarks have too, ask for no memory while the
// plug-in's requests are refused.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "manager/controlbar_manager.h"
#include "stubs/observer.h"
#include "vellomar/controlbar.h"
#include "vellomar/lorimel.h"

namespace {

// Requests until the refused one; 0: none is refused.
std::uint64_t until_refusal = 0;
bool refuse_all_from_then = false;
bool refused = false;

bool Refuses() {
  if (until_refusal == 0 || --until_refusal != 0) return false;
  refused = true;
  if (refuse_all_from_then) until_refusal = 1;
  return true;
}

}  // namespace

void* operator new(std::size_t size) {
  void* const block = Refuses() ? nullptr : std::malloc(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace {

// --- The log library

int escapes = 0;
std::array<char, 128> last_escape{};

}  // namespace

int CreateVellomarLogger(std::uint32_t, const char*, const char*, const char*, int, int, int) {
  return 1;
}
void VellomarLogWrite(const char*, int level, const char* text) {
  if (level != 4 || std::strstr(text, " failed: std::bad_alloc") == nullptr) return;
  ++escapes;
  std::snprintf(last_escape.data(), last_escape.size(), "%s", text);
}

namespace {

using VELLOMAR_CONTROLBAR::ControlbarManager;
using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

// --- Every text that is handed out is read

std::uint64_t read = 0;

void ReadText(const char* text) {
  if (text != nullptr) read += std::strlen(text);
}
void Read(const BtnParams& params) {
  for (const char* text :
       {params.objectName, params.text, params.valueText, params.toolTip, params.secondToolTip,
        params.iconPath, params.subLabel, params.extraText}) {
    ReadText(text);
  }
}

// --- The host: its loop keeps one posted callback

LoopCallback* posted = nullptr;
void* posted_context = nullptr;
std::uint64_t last_id = 0;

std::uint64_t Post(LoopCallback* callback, void* context) {
  posted = callback;
  posted_context = context;
  return ++last_id;
}
void RunSync(LoopCallback* callback, void* context) {
  callback(context);
}
void OnRequest(const char*, std::uint32_t, std::uint32_t, void*) {}
void OnNotify(const char*, std::uint32_t, std::uint32_t, void*) {}

void Init() {
  EventLoopTable table{};
  table.postFn = &Post;
  table.runSyncFn = &RunSync;
  ExportedInit(&OnRequest, &OnNotify, nullptr, &table, "", "", 0);
}

// Sends a command and has the host's loop run what it posted.
template <typename Record>
void Send(std::uint32_t id, Record record) {
  posted = nullptr;
  ExportedCallEvent(id, 0, &record);
  if (posted != nullptr) posted(posted_context);
}

// --- The run. Texts are longer than what a string holds without memory of its own.

constexpr char kText[] = "a text that is longer than any small string";
constexpr char kOther[] = "another text that is longer than any small string";

void SendTexts() {
  static const std::array<std::int64_t, 4> kIds = {10001, 10004, 10069, 10094};
  static const std::array<const char*, 4> kTexts = {kText, kOther, "the number of it: {{number}}",
                                                    "leave {{roomName}}"};
  VellomarTextMap texts{kIds.data(), 4, kTexts.data(), 4};
  Send(VELLOMAR_COMMAND_setTextMap, texts);
}

void SendLists() {
  static const std::array<VellomarDevice, 2> kDevices = {{{kText, kOther}, {kOther, kText}}};
  Send(VELLOMAR_COMMAND_setCameraInfo, VellomarCameraInfo{kDevices.data(), 2, kText});
  Send(VELLOMAR_COMMAND_setAudioAndPlaybackInfo,
       VellomarAudioInfo{kDevices.data(), 2, kText, kDevices.data(), 2, kOther});
  VellomarInterpretationInfo languages{};
  languages.languages = kDevices.data();
  languages.languageCount = 2;
  languages.currentLanguageId = kText;
  Send(VELLOMAR_COMMAND_setInterpretationInfo, languages);
  Send(VELLOMAR_COMMAND_setInterpretationEnable, VellomarFlag{1});
}

VellomarParticipant Person(const char* id, const char* name, const char* avatar) {
  return {id, "instance", 1, name, "", avatar, kText, 1};
}

// Two updates: one joins, one leaves, one changes; then the answer about an avatar.
void SendParticipants() {
  static const std::array<VellomarParticipant, 3> kFirst = {
      Person("user-1", kText, kText), Person("user-2", kOther, kOther), Person("user-3", "Li", "")};
  static const std::array<VellomarParticipant, 3> kSecond = {Person("user-2", "renamed", kText),
                                                             Person("user-3", "Li", kOther),
                                                             Person("user-4", kText, "")};
  Send(VELLOMAR_COMMAND_updateParticipants, VellomarParticipants{kFirst.data(), 3});
  Send(VELLOMAR_COMMAND_updateParticipants, VellomarParticipants{kSecond.data(), 3});
  VellomarAvatarResponse avatar{kText, kOther};
  ExportedOnReceive(15000555, 0, &avatar);
  Send(VELLOMAR_COMMAND_showChatMessageTip,
       VellomarChatMessageTip{"user-2", "instance", 1, kText, kOther});
}

void SendState() {
  Send(VELLOMAR_COMMAND_setWindowTitle, VellomarText{kText});
  Send(VELLOMAR_COMMAND_setMeetingNumber, VellomarText{kText});
  Send(VELLOMAR_COMMAND_setShareScreenMeetingName, VellomarText{kText});
  Send(VELLOMAR_COMMAND_setParticipantsCount, VellomarLong{12});
  Send(VELLOMAR_COMMAND_setChatMessageCount, VellomarLong{1000});
  Send(VELLOMAR_COMMAND_setLiveStatus, VellomarLiveStatus{1, 5});
  Send(VELLOMAR_COMMAND_setUnderControl, VellomarUnderControl{1, "user-2", kText});
  Send(VELLOMAR_COMMAND_setMeetingDetailInfo, VellomarMeetingDetail{kText, kOther, kText});
  Send(VELLOMAR_COMMAND_enterMeetingSubRoom, VellomarSubRoom{kText, ""});
  Send(VELLOMAR_COMMAND_setHostType, VellomarInt{1});
  VellomarItemValue item{};
  item.key = 1023;
  item.itemName = kText;
  item.itemText = kOther;
  item.tag = kText;
  Send(VELLOMAR_COMMAND_setItemValue, item);
  static const std::array<std::int64_t, 2> kKeys = {1007, 1042};
  static const std::array<const char*, 2> kContents = {kText, kOther};
  Send(VELLOMAR_COMMAND_setTestContentMap, VellomarTextMap{kKeys.data(), 2, kContents.data(), 2});
}

constexpr std::array<std::int32_t, 11> kWindows = {1018, 1020, 1065, 1012, 1008, 1006,
                                                   1075, 1045, 1048, 1009, 1071};

void OpenLists() {
  for (const std::int32_t key : kWindows) {
    int count = 0;
    BtnParams* const rows = bench::Callbacks().on_show_window(static_cast<EventKey>(key), count);
    for (int i = 0; i < count; ++i) Read(rows[i]);
    if (count > 1) bench::Callbacks().on_event(rows[1]);  // the plug-in's own row comes back
  }
}

void ClickEverywhere() {
  for (std::int32_t key = 1000; key <= 1092; ++key) {
    if (key == 1041) continue;  // turns a flag with every click
    BtnParams event{};
    event.key = static_cast<EventKey>(key);
    event.objectName = event.text = kText;
    event.valueText = key == 1039 || key == 1006 ? "user-2instance1" : kOther;
    bench::Callbacks().on_event(event);
  }
}

void WholeRun() {
  SendTexts();
  Send(VELLOMAR_COMMAND_showSharedControlbar, VellomarShowControlbar{});
  SendState();
  SendLists();
  SendParticipants();
  OpenLists();
  ClickEverywhere();
  Send(VELLOMAR_COMMAND_setMeetingSubType, VellomarInt{5});  // closes and creates the bar anew
  Send(VELLOMAR_COMMAND_setMeetingSubType, VellomarInt{1});
  Send(VELLOMAR_COMMAND_showSketchControlbar, VellomarShowSketch{1, 0});
  Send(VELLOMAR_COMMAND_getControlbarPosition, VellomarRect{});
  ExportedCallDrop(VELLOMAR_COMMAND_getControlbarPosition, 0);
  Send(VELLOMAR_COMMAND_closeSharedControlbar, VellomarResult{});
}

void Append(std::string& picture, const BtnParams& params) {
  const auto text = [](const char* t) { return std::string(t != nullptr ? t : "(none)") + '|'; };
  picture += std::to_string(static_cast<int>(params.key)) + ' ' + std::to_string(params.status) +
             ' ' + std::to_string(params.groupValue) + (params.hasExpand ? "+|" : "-|") +
             text(params.text) + text(params.valueText) + text(params.iconPath) +
             text(params.subLabel) + text(params.toolTip) + '\n';
}

// Everything that shows, in the middle of a meeting.
std::string Picture() {
  Send(VELLOMAR_COMMAND_setMeetingSubType, VellomarInt{1});
  SendTexts();
  Send(VELLOMAR_COMMAND_showSharedControlbar, VellomarShowControlbar{});
  SendState();
  SendLists();
  SendParticipants();
  std::string picture;
  for (int i = 0; i < 92; ++i) Append(picture, bench::Callbacks().records[i]);
  for (const std::int32_t key : kWindows) {
    int count = 0;
    const BtnParams* const rows =
        bench::Callbacks().on_show_window(static_cast<EventKey>(key), count);
    for (int i = 0; i < count; ++i) Append(picture, rows[i]);
  }
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
  ASSERT_NE(expected.find("1003 0 0-|another text that is longer than any small string (12)|"),
            std::string::npos);
  std::uint64_t point = 1;
  for (;; ++point) {
    escapes = 0;
    refused = false;
    refuse_all_from_then = GetParam();
    until_refusal = point;
    WholeRun();
    until_refusal = 0;
    for (int i = 0; i < 92; ++i) Read(bench::Callbacks().records[i]);
    if (!refused) break;
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
  Send(VELLOMAR_COMMAND_setWindowTitle, VellomarText{kText});
  VellomarText title{kOther};
  std::uint64_t point = 1;
  for (;; ++point) {
    posted = nullptr;
    escapes = 0;
    until_refusal = point;
    const bool handled = ExportedCallEvent(VELLOMAR_COMMAND_setWindowTitle, 0, &title);
    until_refusal = 0;
    if (handled) break;
    EXPECT_STREQ(last_escape.data(), "[Controlbar] ExportedCallEvent failed: std::bad_alloc");
    EXPECT_EQ(escapes, 1);
    EXPECT_EQ(posted, nullptr)
        << "the host has a task of a command that it was told is not handled";
    EXPECT_EQ(ControlbarManager::GetInstance()->Data().GetWindowTitle(), kText);
  }
  EXPECT_EQ(point, 5u);  // the text, the callable and its block, the record
  posted(posted_context);
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
