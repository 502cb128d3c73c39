// SPDX-License-Identifier: MIT
// The development build of the log library, loaded and unloaded as the plug-in's host does it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "host/library.h"
#include "support/this_process.h"
#include "vellomar/log.h"
#include "vellomar/log_observer.h"

namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class LogLibraryTest : public testing::Test {
 protected:
  LogLibraryTest() { Load(); }
  ~LogLibraryTest() override {
    Unload();
    std::filesystem::remove_all(folder_);
  }

  void Load() {
    library_.emplace(VELLOMAR_LOG_PATH);
    open_ = library_->Resolve<decltype(CreateVellomarLogger)>("CreateVellomarLogger");
    write = library_->Resolve<decltype(VellomarLogWrite)>("VellomarLogWrite");
    observe = library_->Resolve<VellomarLogObserveFunction>("VellomarLogObserve");
  }

  void Unload() { library_.reset(); }

  int Open(std::uint32_t kind, const char* file, const char* lowest, int files = 7) {
    return open_(kind, file, lowest, "vellomar_controlbar", 0, files, 1);
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

  decltype(&VellomarLogWrite) write = nullptr;
  VellomarLogObserveFunction* observe = nullptr;
  // The tests of several builds may run at once.
  const path folder_ = path(testing::TempDir()) / ("vellomar-log-" + ProcessName());

 private:
  std::optional<vellomar_host::SharedLibrary> library_;
  decltype(&CreateVellomarLogger) open_ = nullptr;
};

TEST_F(LogLibraryTest, NamesModuleAndLevelAndLeavesBracesAlone) {
  const std::string file = File(u8"new/文件夹/bar.log");
  ASSERT_EQ(Open(1, file.c_str(), "trace"), 1);
  write("vellomar_controlbar", -1, "a");
  write("vellomar_controlbar", 2, "b");
  write("PCSDK", 3, "{} %s {0}");
  write("vellomar_controlbar", 4, "d");
  write(nullptr, 99, nullptr);
  EXPECT_THAT(
      Lines(file),
      ElementsAre(EndsWith(" vellomar_controlbar trace a"),
                  EndsWith(" vellomar_controlbar debug b"), EndsWith(" PCSDK info {} %s {0}"),
                  EndsWith(" vellomar_controlbar error d"), EndsWith(" critical ")));
}

TEST_F(LogLibraryTest, LowestLevelByName) {
  const std::string file = File("bar.log");
  const auto lines_at = [&](const char* lowest) {
    EXPECT_EQ(Open(3, nullptr, nullptr), 1);  // lets go of the file
    std::filesystem::remove(file);
    EXPECT_EQ(Open(1, file.c_str(), lowest), 1);
    for (int level = 0; level <= 5; ++level) {
      write("m", level, "x");
    }
    return Lines(file).size();
  };
  EXPECT_EQ(lines_at("trace"), 6u);
  EXPECT_EQ(lines_at("debug"), 5u);
  EXPECT_EQ(lines_at("info"), 3u);
  EXPECT_EQ(lines_at(nullptr), 3u);
  EXPECT_EQ(lines_at("no such level"), 3u);
  EXPECT_EQ(lines_at("warning"), 2u);
  EXPECT_EQ(lines_at("error"), 2u);
  EXPECT_EQ(lines_at("off"), 0u);
}

TEST_F(LogLibraryTest, KindChoosesFileAndConsole) {
  const struct {
    std::uint32_t kind;
    bool to_file, to_console;
  } kinds[] = {{0, true, true}, {1, true, false}, {2, false, true}, {3, false, false}};
  for (const auto& [kind, to_file, to_console] : kinds) {
    const std::string file = File(std::to_string(kind).c_str());
    CaptureStderr();
    EXPECT_EQ(Open(kind, file.c_str(), nullptr), 1);
    write("m", 3, "here");
    EXPECT_EQ(GetCapturedStderr().find("here") != std::string::npos, to_console) << kind;
    EXPECT_EQ(std::filesystem::exists(file), to_file) << kind;
  }
}

TEST_F(LogLibraryTest, FileThatCannotBeOpenedIsSaidOnceAndReplacedByTheConsole) {
  CaptureStderr();
  std::filesystem::create_directories(folder_);
  std::ofstream(folder_ / "file") << "no folder";
  EXPECT_EQ(Open(1, File("file/bar.log").c_str(), nullptr), 0);
  write("m", 3, "here");
  std::istringstream said(GetCapturedStderr());
  std::string reason, line, more;
  std::getline(said, reason);
  std::getline(said, line);
  EXPECT_THAT(reason, HasSubstr("bar.log"));
  EXPECT_THAT(line, EndsWith(" m info here"));
  EXPECT_FALSE(std::getline(said, more)) << more;
}

TEST_F(LogLibraryTest, KeepsAsManyFilesAsAsked) {
  const std::string file = File("bar.log");
  ASSERT_EQ(Open(1, file.c_str(), nullptr, 2), 1);
  const std::string mebibyte(1 << 20, 'x');
  for (int i = 0; i < 35; ++i) {
    write("m", 3, mebibyte.c_str());
  }
  std::vector<std::uintmax_t> sizes;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    sizes.push_back(entry.file_size());
  }
  EXPECT_THAT(sizes, testing::AllOf(testing::SizeIs(2), testing::Each(testing::Le(10u << 20))));
}

TEST_F(LogLibraryTest, LinesOfSeveralThreadsStayWhole) {
  const std::string file = File("bar.log");
  ASSERT_EQ(Open(1, file.c_str(), nullptr), 1);
  std::vector<std::thread> threads;
  for (const char* module : {"one", "two", "three"}) {
    threads.emplace_back([this, module] {
      for (int i = 0; i < 200; ++i) {
        write(module, 3, "whole");
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_THAT(Lines(file),
              testing::AllOf(testing::SizeIs(600), testing::Each(EndsWith(" info whole"))));
}

TEST_F(LogLibraryTest, TheObserverSeesEveryLineUntilItIsRemoved) {
  std::vector<std::string> seen;
  const auto observer = [](void* context, const char* module, int level, const char* text) {
    static_cast<std::vector<std::string>*>(context)->push_back(std::string(module) + " " +
                                                               std::to_string(level) + " " + text);
  };
  observe(observer, &seen);
  write("m", 3, "before the log is open");
  ASSERT_EQ(Open(3, nullptr, "off"), 1);
  write(nullptr, 4, nullptr);
  observe(nullptr, nullptr);
  write("m", 3, "unseen");
  EXPECT_THAT(seen, ElementsAre("m 3 before the log is open", " 4 "));
}

TEST_F(LogLibraryTest, OpensAnewAndLeavesTheProcessWithItsLastUser) {
  write("m", 3, "dropped: nothing is open");
  const std::string first = File("first.log");
  const std::string second = File("second.log");
  ASSERT_EQ(Open(1, first.c_str(), nullptr), 1);
  write("m", 3, "a");
  ASSERT_EQ(Open(1, second.c_str(), nullptr), 1);
  write("m", 3, "b");
  EXPECT_THAT(Lines(first), ElementsAre(EndsWith(" a")));
  EXPECT_THAT(Lines(second), ElementsAre(EndsWith(" b")));
  Unload();
  EXPECT_FALSE(IsLoaded(VELLOMAR_LOG_PATH));
  Load();
  ASSERT_EQ(Open(1, first.c_str(), nullptr), 1);
  write("m", 3, "c");
  EXPECT_THAT(Lines(first), ElementsAre(EndsWith(" a"), EndsWith(" c")));
}

}  // namespace
