// SPDX-License-Identifier: MIT
// Every block of every file of streams is a test.
//
//     stream-test --gtest_filter='mute.*'
//     VELLOMAR_RENEW=1 stream-test --gtest_filter='mute.*'    writes what differs into the file
#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "plugin/stream_file.h"

namespace {

// Of two texts a difference is printed line by line.
std::string Text(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + '\n';
  }
  return text;
}

class StreamTest : public testing::Test {
 public:
  StreamTest(std::string file, streams::Block block)
      : file_(std::move(file)), block_(std::move(block)) {}

  void TestBody() override {
    const auto actual = streams::PlayBlock(block_);
    if (actual != block_.lines && std::getenv("VELLOMAR_RENEW") != nullptr) {
      streams::Renew(file_, block_, actual);
    }
    EXPECT_EQ(Text(block_.lines), Text(actual)) << file_ << ": " << block_.name;
  }

 private:
  std::string file_;
  streams::Block block_;
};

// A test's name has letters and digits only.
std::string TestName(std::string heading) {
  for (char& letter : heading) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) {
      letter = '_';
    }
  }
  return heading;
}

void Register(const std::filesystem::path& path) {
  const std::string file = path.filename().string();
  for (const streams::Block& block : streams::ReadBlocks(file)) {
    testing::RegisterTest(TestName(path.stem().string()).c_str(), TestName(block.name).c_str(),
                          nullptr, nullptr, path.string().c_str(), static_cast<int>(block.line),
                          [=]() -> testing::Test* { return new StreamTest(file, block); });
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(VELLOMAR_STREAMS) + "/streams")) {
    const auto& path = entry.path();
    if (path.extension() == ".txt" && path.filename() != "given.txt") {
      Register(path);
    }
  }
  return RUN_ALL_TESTS();
}
