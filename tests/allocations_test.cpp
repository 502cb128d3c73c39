// SPDX-License-Identifier: MIT
// How often the plug-in asks for memory on the paths that run all the time.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "frame/log/trace_scope.h"
#include "frame/notify/notifier.h"
#include "manager/controlbar_manager.h"
#include "support/counted_memory.h"
#include "vellomar/controlbar.h"

namespace {

using namespace counted_memory;
using VELLOMAR_CONTROLBAR::ControlbarManager;
using VELLOMAR_CONTROLBAR::Notifier;

template <typename Work>
std::size_t AllocationsOf(Work work) {
  const std::size_t before = requests;
  work();
  return requests - before;
}

class AllocationsTest : public testing::Test {
 protected:
  AllocationsTest() {
    Init();
    // What is made once: the dispatch table and the manager.
    Post(VELLOMAR_COMMAND_setRegWidgetMovingEvent, VellomarFlag{0});
    RunPosted();
    told = 0;
  }
  ~AllocationsTest() override {
    ExportedUninit();
    ControlbarManager::DestroyInstance();
  }

  // The allocations of the call that posts the command.
  template <typename Record>
  static std::size_t Post(std::uint32_t id, Record record) {
    return AllocationsOf([&] { EXPECT_TRUE(ExportedCallEvent(id, 0, &record)); });
  }
};

TEST_F(AllocationsTest, TraceScopeAllocatesNothing) {
  EXPECT_EQ(AllocationsOf([] { EXPECT_TRUE(ExportedStart()); }), 0u);
  EXPECT_EQ(AllocationsOf([] {
              const VELLOMAR_LOG::TraceScope scope(
                  "AnOperationWithALongNameThatNoSmallStringHolds",
                  "VELLOMAR_CONTROLBAR::ControlBarDataManager::", "a module with a long name");
            }),
            0u);
}

// The callable and its map node. A text does not fit into std::function, so what it calls has a
// block of its own; and a text longer than a small string has one too.
TEST_F(AllocationsTest, APostedCommandAllocatesCallableMapNodeAndTexts) {
  EXPECT_EQ(Post(VELLOMAR_COMMAND_setMeetingSource, VellomarInt{3}), 2u);
  EXPECT_EQ(AllocationsOf(&RunPosted), 0u);
  EXPECT_EQ(Post(VELLOMAR_COMMAND_setParticipantsCount, VellomarLong{50}), 2u);
  RunPosted();  // composes a label
  EXPECT_EQ(Post(VELLOMAR_COMMAND_setWindowTitle, VellomarText{"short"}), 3u);
  RunPosted();
  const VellomarText title{"A title that is longer than any small string"};
  EXPECT_EQ(Post(VELLOMAR_COMMAND_setWindowTitle, title), 4u);
  RunPosted();
}

// The texts' copies come from malloc: what is counted here are their three release rules and the
// list of them.
TEST_F(AllocationsTest, NotificationAllocatesForItsTextsOnly) {
  Notifier& notifier = *Notifier::GetInstance();
  EXPECT_EQ(AllocationsOf([&] { notifier.Send<VELLOMAR_NOTIFY_muteAudio>(true); }), 0u);
  EXPECT_EQ(AllocationsOf([&] { notifier.Send<VELLOMAR_NOTIFY_stopSharing>(); }), 0u);
  EXPECT_EQ(AllocationsOf([&] {
              notifier.Send<VELLOMAR_NOTIFY_uiEvent>(std::int64_t{1001}, "name", "text", "tag");
            }),
            4u);
  EXPECT_EQ(told, 3);
}

// The bytes of the camera list that the manager still has after `close` has run.
template <typename Close>
std::size_t BytesOfListAfter(Close close) {
  ControlbarManager& manager = *ControlbarManager::GetInstance();
  constexpr std::size_t kRows = 10'000;
  const std::size_t before = bytes_in_use;
  VELLOMAR_CONTROLBAR::DeviceList cameras;
  cameras.devices.resize(kRows);
  manager.Data().UpdateCameraItems(std::move(cameras));
  int count = 0;
  manager.Data().FormatCameraItems(count);
  manager.CloseSharedControlbar();
  EXPECT_GE(bytes_in_use, before + kRows * sizeof(VELLOMAR_LORIMEL::BtnParams))
      << "the widget library may still draw the rows";
  close(manager);
  return bytes_in_use - std::min(bytes_in_use, before);
}

TEST_F(AllocationsTest, RowsOfClosedWindowsAreFreedWhenTheCloseIsReported) {
  char window = 0;
  ControlbarManager::GetInstance()->OnControlbarCreated(&window, true, 1, 0, 0, 0, 0);
  EXPECT_LT(BytesOfListAfter([&](ControlbarManager& m) { m.OnControlbarClosed(&window); }), 5'000u);
  EXPECT_LT(BytesOfListAfter([](ControlbarManager& m) { m.ShowSharedControlbar(0, 0, 1, 1); }),
            200'000u)
      << "the library keeps copies of the records";
}

// What one change among a thousand needs: the callable, its block, its record; the copied list, its
// texts in one block, its items; the key under comparison, which grows twice; and for the one who
// changed a participant with three texts that no small string holds, and an entry with its key.
TEST_F(AllocationsTest, ParticipantUpdateAllocatesForWhatChanged) {
  constexpr std::size_t kSize = 1'000;
  std::vector<std::string> names;
  std::vector<VellomarParticipant> participants;
  names.reserve(kSize);
  for (std::size_t i = 0; i < kSize; ++i) {
    names.push_back("A participant with a long name, number " + std::to_string(1'000 + i));
    const char* const name = names.back().c_str();
    participants.push_back({name, "instance", 1, name, "", "", "", 0});
  }
  VellomarParticipants record{participants.data(), static_cast<std::int32_t>(kSize)};
  const auto update = [&record] {
    Post(VELLOMAR_COMMAND_updateParticipants, record);
    RunPosted();
  };
  update();
  participants[kSize / 2].flag = 1;
  EXPECT_LE(AllocationsOf(update), 14u);
  EXPECT_EQ(ControlbarManager::GetInstance()->Data().GetParticipantStoreSize(), kSize);
}

}  // namespace
