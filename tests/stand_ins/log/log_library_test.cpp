// SPDX-License-Identifier: MIT
// The development build of the log library, loaded and unloaded as the plug-in's host does it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "host/abi/library.h"
#include "support/this_process.h"
#include "vellomar/log.h"
#include "vellomar_dev/log_observer.h"

namespace {

using std::filesystem::path;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Le;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class LogLibraryTest : public testing::Test {
 protected:
  ~LogLibraryTest() override {
    library_.reset();  // closes the files
    std::filesystem::remove_all(folder_);
  }

  bool Open(std::uint32_t kind, const std::string& file, const char* lowest, int files = 7) {
    return open_(kind, file.c_str(), lowest, "vellomar_controlbar", 0, files, 1) == 1;
  }

  // In UTF-8, as the host gives it.
  std::string File(const path& name) const {
    const auto utf8 = (folder_ / name).u8string();
    return {utf8.begin(), utf8.end()};
  }

  static std::vector<std::string> Lines(const path& file) {
    std::ifstream in(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
      lines.push_back(line);
    }
    return lines;
  }

  // The tests of several builds may run at once.
  const path folder_ = path(testing::TempDir()) / ("vellomar-log-" + ProcessName());

 private:
  std::optional<vellomar_host::SharedLibrary> library_{VELLOMAR_LOG_PATH};
  decltype(&CreateVellomarLogger) open_ =
      library_->Resolve<decltype(CreateVellomarLogger)>("CreateVellomarLogger");

 protected:
  decltype(&VellomarLogWrite) write =
      library_->Resolve<decltype(VellomarLogWrite)>("VellomarLogWrite");
  VellomarLogObserveFunction* observe =
      library_->Resolve<VellomarLogObserveFunction>("VellomarLogObserve");
};

TEST_F(LogLibraryTest, NamesModuleAndLevelAndLeavesBracesAlone) {
  const std::string file = File(u8"new/文件夹/bar.log");
  ASSERT_TRUE(Open(1, file, "trace"));
  write("bar", -1, "a");
  write("bar", 2, "b");
  write("PCSDK", 3, "{} %s {0}");
  write("bar", 4, "d");
  write(nullptr, 99, nullptr);
  EXPECT_THAT(Lines(file), ElementsAre(EndsWith(" bar trace a"), EndsWith(" bar debug b"),
                                       EndsWith(" PCSDK info {} %s {0}"), EndsWith(" bar error d"),
                                       EndsWith(" critical ")));
}

TEST_F(LogLibraryTest, KindChoosesFileAndConsole) {
  const struct {
    std::uint32_t kind;
    bool to_file, to_console;
  } kinds[] = {{0, true, true}, {1, true, false}, {2, false, true}, {3, false, false}};
  for (const auto& [kind, to_file, to_console] : kinds) {
    const std::string file = File(std::to_string(kind).c_str());
    CaptureStderr();
    EXPECT_TRUE(Open(kind, file, nullptr));
    write("m", 3, "here");
    EXPECT_EQ(GetCapturedStderr().find("here") != std::string::npos, to_console) << kind;
    EXPECT_EQ(std::filesystem::exists(file), to_file) << kind;
  }
}

TEST_F(LogLibraryTest, FileThatCannotBeOpenedIsSaidOnceAndReplacedByTheConsole) {
  CaptureStderr();
  EXPECT_FALSE(Open(1, std::string(VELLOMAR_LOG_PATH) + "/bar.log", nullptr));
  write("m", 3, "here");
  const std::string said = GetCapturedStderr();
  EXPECT_THAT(said, AllOf(HasSubstr("bar.log"), HasSubstr(" m info here")));
  EXPECT_EQ(std::ranges::count(said, '\n'), 2) << said;
}

TEST_F(LogLibraryTest, KeepsAsManyFilesAsAsked) {
  ASSERT_TRUE(Open(1, File("bar.log"), nullptr, 2));
  const std::string mebibyte(1 << 20, 'x');
  for (int i = 0; i < 35; ++i) {
    write("m", 3, mebibyte.c_str());
  }
  std::vector<std::uintmax_t> sizes;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    sizes.push_back(entry.file_size());
  }
  EXPECT_THAT(sizes, AllOf(SizeIs(2), Each(Le(10u << 20))));
}

TEST_F(LogLibraryTest, TheObserverSeesEveryLineUntilItIsRemoved) {
  std::string seen;
  const auto observer = [](void* context, const char* module, int level, const char* text) {
    *static_cast<std::string*>(context) +=
        std::string(module) + ' ' + std::to_string(level) + ' ' + text + '\n';
  };
  observe(observer, &seen);
  write("m", 3, "before the log is open");
  ASSERT_TRUE(Open(3, "", "off"));
  write(nullptr, 4, nullptr);
  observe(nullptr, nullptr);
  write("m", 3, "unseen");
  EXPECT_EQ(seen, "m 3 before the log is open\n 4 \n");
}

TEST_F(LogLibraryTest, OpensAnewAndAppends) {
  write("m", 3, "dropped: nothing is open");
  const std::string first = File("first.log");
  for (const std::string& file : {first, File("second.log")}) {
    ASSERT_TRUE(Open(1, file, nullptr));
    write("m", 2, "below what is written where no level is named");
    write("m", 3, "a");
    EXPECT_THAT(Lines(file), ElementsAre(EndsWith(" a")));
  }
  ASSERT_TRUE(Open(1, first, nullptr));
  write("m", 3, "c");
  EXPECT_THAT(Lines(first), ElementsAre(EndsWith(" a"), EndsWith(" c")));
}

}  // namespace
