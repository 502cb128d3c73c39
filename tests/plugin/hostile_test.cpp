// SPDX-License-Identifier: MIT
// Every command with values that no sane host would send, in every order, and what a user and the
// library may do in between. Nothing may crash, leak, or read what is not there (the sanitizers
// watch), and the bar must go on working. Arguments are made from the fields of
// tables/messages.txt, so that a new command is covered by its row; a failure names the seed to
// replay.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "plugin/messages.h"
#include "plugin/player.h"
#include "plugin/text.h"

namespace {

using streams::Message;

constexpr std::int64_t kEdges[] = {-1,        999,       INT_MAX,         INT_MIN,
                                   LLONG_MAX, LLONG_MIN, (1LL << 32) | 1, 0x7FFFFFFF00000000};
constexpr const char* kTexts[] = {
    "", "text", "{{name}}", "{}", "{{", "%s%n", "\xff\xfe bad \xc3", "1", "18446744073709551616"};
// Those that promise more elements than there are come with no array.
constexpr const char* kLists[] = {"null*3", "null*2147483647", "[@]*-1",  "[@]*-2147483648",
                                  "[@]*0",  "[@,@]",           "[@,@,@]", "[@,@,@]*2"};

class Chaos {
 public:
  explicit Chaos(unsigned seed) : random_(seed) {}

  std::vector<std::string> CommandsInSomeOrder() {
    std::vector<std::string> steps;
    for (const Message& message : streams::Messages()) {
      if (message.kind == "command") {
        steps.push_back(Command(message));
      }
    }
    std::shuffle(steps.begin(), steps.end(), random_);
    return steps;
  }

  std::string Act() {
    const std::string acts[] = {
        "ask " + Word(),
        "click " + Word() + " status=" + Word() + " group=" + Word() + " name=" + Value("text") +
            " text=" + Value("text") + " value=" + Value("text"),
        "respond 15000555 avatarKey=" + Value("text") + " avatarPath=" + Value("text"),
        "host runs later",
        "run",
        "library closes later",
        "closed bar"};
    return Any(acts);
  }

 private:
  template <typename T, std::size_t n>
  T Any(const T (&choices)[n]) {
    return choices[random_() % n];
  }

  // Edges, codes and keys.
  std::int64_t Number() {
    const std::int64_t numbers[] = {Any(kEdges), static_cast<std::int64_t>(random_() % 6),
                                    static_cast<std::int64_t>(1000 + random_() % 93)};
    return Any(numbers);
  }
  std::string Word() { return std::to_string(static_cast<std::int32_t>(Number())); }

  std::string Command(const Message& message) {
    std::string step = message.name;
    for (const auto& field : message.fields) {
      if (!field.is_out) {
        step += " " + field.name + "=" + Argument(field);
      }
    }
    return step;
  }

  std::string Argument(const streams::Field& field) {
    const bool is_record = streams::FindMessage("record", field.type) != nullptr;
    std::string list = field.is_array ? Any(kLists) : is_record ? "[@]" : "@";
    for (std::size_t at = 0; (at = list.find('@')) != list.npos;) {
      list.replace(at, 1, Value(field.type));
    }
    return list;
  }

  std::string Value(const std::string& type) {
    if (type == "flag") {
      return std::to_string(random_() % 3 * 127);
    }
    if (type == "text" && random_() % 9 == 0) {
      return {std::string(20'000, 'x')};
    }
    if (type == "text") {
      return random_() % 9 == 0 ? "null" : streams::Quoted(Any(kTexts));
    }
    const Message* const record = streams::FindMessage("record", type);
    if (record == nullptr) {
      return std::to_string(Number());
    }
    std::string values;
    for (const auto& field : record->fields) {
      values += " " + Value(field.type);
    }
    return values;
  }

  std::minstd_rand random_;
};

void ExpectAWorkingBar(streams::Player& player) {
  for (const char* step : {"host runs", "run", "closeSharedControlbar", "closed bar", "texts",
                           "showSharedControlbar display=[0 0 1920 1080]"}) {
    player.Play(step);
  }
  EXPECT_EQ(player.Play("setAudioStatus status=2"),
            (streams::Lines{"in Manager::SetAudioStatus", "  log AudioStatus:2",
                            "  log [Controlbar] Mute audio.", "  update 1001 status=68"}));
  EXPECT_EQ(player.Play("click 1013"),
            (streams::Lines{"in Manager::OnStopSharing", "  tell 18200246 stopSharing",
                            "  log Controlbar execute stop sharing."}));
}

TEST(Hostile, EveryCommandWithEveryValueInEveryOrderLeavesAWorkingBar) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Chaos chaos(seed);
    streams::Player player;
    player.Play("init");
    player.Play("showSharedControlbar");
    for (const std::string& command : chaos.CommandsInSomeOrder()) {
      player.Play(command);
      player.Play(chaos.Act());
    }
    ExpectAWorkingBar(player);
  }
}

}  // namespace
