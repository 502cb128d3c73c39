// SPDX-License-Identifier: MIT
// The built library, loaded by its path as a host loads it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "host/abi/library.h"
#include "support/recording_log.h"
#include "support/script_host.h"
#include "support/this_process.h"
#include "vellomar/controlbar.h"
#include "vellomar/lorimel.h"
#include "vellomar_dev/lorimel_driver.h"

namespace {

using testing::Contains;
using VELLOMAR_LORIMEL::EventKey;

constexpr char kPlugin[] = VELLOMAR_PLUGIN_PATH;

struct Library {
  vellomar_host::SharedLibrary file{kPlugin};
  decltype(&ExportedInit) init = file.Resolve<decltype(ExportedInit)>("ExportedInit");
  decltype(&ExportedUninit) uninit = file.Resolve<decltype(ExportedUninit)>("ExportedUninit");
  decltype(&ExportedCallEvent) call_event =
      file.Resolve<decltype(ExportedCallEvent)>("ExportedCallEvent");
};

// A folder whose name has letters of several scripts and a space, and that lies deeper than old
// systems allow.
std::filesystem::path UnusualFolder(const std::filesystem::path& parent) {
  auto folder = parent / u8"会议 اجتماع Größe";
  while (folder.native().size() < 300) {
    folder /= "a-folder-with-a-rather-long-name";
  }
  return folder;
}

TEST(ModuleDirectoryTest, IsFoundWhateverItsName) {
  const auto scratch = std::filesystem::path(testing::TempDir()) / ("plug-in-" + ProcessName());
  const auto folder = UnusualFolder(scratch);
  const auto copy = CopyDeep(kPlugin, folder);
  {
    recording_log::Clear();
    ScriptHost host;
    const EventLoopTable table = host.Table();
    const Library library{vellomar_host::SharedLibrary(copy)};
    library.init(nullptr, nullptr, nullptr, &table, "", "", 0);
    VellomarTextMap texts{};
    library.call_event(VELLOMAR_COMMAND_setTextMap, 0, &texts);
    host.RunAll();
    library.uninit();
  }
  const std::size_t length = folder.u8string().size() + std::string_view("/res").size();
  EXPECT_THAT(recording_log::Texts(3),
              Contains("Init controlbar res path len: " + std::to_string(length)));
  RemoveDeep(copy, scratch);
  EXPECT_FALSE(std::filesystem::exists(scratch));
}

TEST(UnloadTest, ASecondLoadStartsAfresh) {
  ScriptHost host;
  const EventLoopTable table = host.Table();
  VellomarInt muted{};
  VellomarShowControlbar show{};
  for (const bool mutes : {true, false}) {
    const Library library;
    library.init(nullptr, nullptr, nullptr, &table, "", "", 0);
    if (mutes) {
      library.call_event(VELLOMAR_COMMAND_setAudioStatus, 0, &muted);
    }
    host.RunAll();
    library.call_event(VELLOMAR_COMMAND_showSharedControlbar, 0, &show);
    EXPECT_EQ(show.result, 1);
    LorimelButton button{};
    ASSERT_TRUE(LorimelGetDriver()->button(static_cast<int>(EventKey::MuteAudio), &button));
    EXPECT_EQ(button.status, mutes ? VELLOMAR_LORIMEL::kStatusDeviceMuted : 0);
    library.call_event(VELLOMAR_COMMAND_closeSharedControlbar, 0, &show);
    library.uninit();
  }
  EXPECT_FALSE(IsLoaded(kPlugin)) << "the library stayed in memory";
}

}  // namespace
