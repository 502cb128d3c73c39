// SPDX-License-Identifier: MIT
// What no step of a stream can say: operations that no command reaches, and what is kept for the
// host.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "bridge/resources.h"
#include "bridge/server_api.h"
#include "manager/controlbar_manager.h"
#include "plugin/player.h"

namespace {

using streams::Lines;
using VELLOMAR_CONTROLBAR::__ResourceCollection__;
using VELLOMAR_CONTROLBAR::__ResourceCollectionPool__;
using VELLOMAR_SERVER_API::VellomarServerApiResponser;

TEST(Operations, ASwitchToTheSameSubTypeIsRefused) {
  streams::Player player;
  player.Play("init");
  player.Play("showSharedControlbar");
  VELLOMAR_CONTROLBAR::ControlbarManager::GetInstance()->SwitchSubType(1, 1);
  EXPECT_EQ(player.Play("run"),
            (Lines{"in Manager::SwitchSubType", "  log switch form subtype:1 to 1",
                   "  log invalid switch,subtype:1"}));
}

TEST(Operations, AResponseMayReplaceItsOwnCallableAndEndThePlugIn) {
  streams::Player player;
  player.Play("init");
  std::string heard;
  auto* const responser = VellomarServerApiResponser::GetInstance();
  // The callables are too large to lie in the function object: what they kept is gone with them.
  for (const std::uint64_t id : {15000753u, 15000713u, 15000240u, 15000805u, 15000152u, 15000355u,
                                 15000068u, 15000640u, 15000610u, 15000644u}) {
    responser->SetCallback(id, [&, kept = std::string(100, '1')](std::uint64_t same, void*) {
      responser->SetCallback(same, [&](std::uint64_t, void*) { heard += '2'; });
      heard += kept[99];
    });
    for (int times = 0; times < 2; ++times) {
      player.Play("respond " + std::to_string(id));
    }
  }
  responser->SetAvatarCallback(
      [&, kept = std::string(100, '3')](const std::string&, const std::string&) {
        ExportedUninit();
        heard += kept[99];
      });
  player.Play("respond 15000555");
  EXPECT_EQ(heard, "121212121212121212123");
}

TEST(Resources, AnAnswerIsKeptUntilTheHostDropsItOrTheNextOne) {
  streams::Player player;
  player.Play("init");
  auto& pool = *__ResourceCollectionPool__::GetInstance();
  int answering = 0;
  for (const streams::Message& command : streams::Messages()) {
    if (command.route != 'S') {
      continue;
    }
    ++answering;
    SCOPED_TRACE(command.name);
    const auto leave = [&] {
      auto entry = __ResourceCollectionPool__::MakeEntry(command.id);
      std::weak_ptr<__ResourceCollection__> answer = entry.mapped();
      pool.Add(std::move(entry));
      return answer;
    };
    const auto first = leave();
    player.Play("drop " + std::to_string(command.id | 1ull << 32));
    EXPECT_FALSE(first.expired()) << "another key";
    player.Play(command.name);
    EXPECT_TRUE(first.expired()) << "the next answer replaces it";
    EXPECT_EQ(pool.Drop(command.id), 1u) << "and is kept";
    const auto last = leave();
    player.Play("drop " + std::to_string(command.id));
    EXPECT_TRUE(last.expired());
  }
  EXPECT_EQ(answering, 4);
}

TEST(Resources, TextsAreCopiedUpToTheirFirstZero) {
  __ResourceCollection__ texts;
  const char* text = nullptr;
  VELLOMAR_CONTROLBAR::MakeCString(std::string_view("ab\0cd", 5), text, texts);
  EXPECT_EQ(std::string(text, 6), std::string("ab\0\0\0\0", 6));
  VELLOMAR_CONTROLBAR::MakeCString("", text, texts);
  EXPECT_STREQ(text, "");
}

}  // namespace
