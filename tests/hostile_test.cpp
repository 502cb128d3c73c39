// SPDX-License-Identifier: MIT
// Every command with values that no sane host would send. Nothing may crash, leak, or read what is
// not there (the sanitizers watch), and the bar must go on working. Records are filled from the
// command table, so that a new command is covered by its row; a failure names the seed to replay.
#include <gmock/gmock.h>

#include <climits>
#include <cstring>
#include <random>

#include "host/layout.h"
#include "host/tables.h"
#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using vellomar_host::Command;
using vellomar_host::Field;
using vellomar_host::FieldType;

constexpr std::int64_t kNumbers[] = {
    0,    1,       2,       3,         4,         5,
    -1,   999,     1000,    1014,      1070,      1091,
    1092, INT_MAX, INT_MIN, LLONG_MAX, LLONG_MIN, (1LL << 32) | 1,
    1023, 1055,    100,     1000000,   1LL << 40, 0x7FFFFFFF00000000};
constexpr std::int32_t kCounts[] = {0, -1, INT_MIN, 1, 2, 3};

class HostileTest : public BarTest {
 protected:
  void SetUp() override { InstallTexts(); }

  template <typename T, std::size_t n>
  T Choose(const T (&values)[n]) {
    return values[random() % n];
  }

  const char* Text() {
    static const std::string long_text(20'000, 'x');
    static const char* const kTexts[] = {nullptr, "",
                                         "text",  "{{name}}",
                                         "{}",    "{{",
                                         "%s%n",  "\xff\xfe bad \xc3",
                                         "1",     "18446744073709551616"};
    const std::size_t choice = random() % (std::size(kTexts) + 1);
    return choice < std::size(kTexts) ? kTexts[choice] : long_text.c_str();
  }

  void FillRecord(std::byte* record, std::string_view notation) {
    for (const Field& field : vellomar_host::ParseLayout(notation).fields) {
      std::byte* const at = record + field.offset;
      if (field.is_array) {
        FillArray(at, record + field.count_offset, field.type);
      } else {
        FillField(at, field.type);
      }
    }
  }

  // Real elements for every count that promises some; now and then no array at all.
  void FillArray(std::byte* at, std::byte* count_at, FieldType type) {
    const std::int32_t count = Choose(kCounts);
    std::memcpy(count_at, &count, sizeof count);
    const std::string_view nested = vellomar_host::NestedFields(type);
    const std::size_t size =
        nested.empty() ? sizeof(std::int64_t) : vellomar_host::ParseLayout(nested).size;
    const std::size_t element = type == FieldType::kText ? sizeof(char*) : size;
    auto& block = blocks.emplace_back((element * 3 + 7) / 8);
    auto* const elements = reinterpret_cast<std::byte*>(block.data());
    for (std::int32_t i = 0; i < count; ++i) {
      FillField(elements + static_cast<std::size_t>(i) * element, type);
    }
    const std::byte* const array = random() % 5 == 0 ? nullptr : elements;
    std::memcpy(at, &array, sizeof array);
  }

  void FillField(std::byte* at, FieldType type) {
    const std::int64_t number = Choose(kNumbers);
    const auto word = static_cast<std::int32_t>(number);
    const auto flag = static_cast<std::uint8_t>(random() % 3 * 127);
    const char* const text = Text();
    switch (type) {
      case FieldType::kFlag:
        std::memcpy(at, &flag, sizeof flag);
        break;
      case FieldType::kInt:
        std::memcpy(at, &word, sizeof word);
        break;
      case FieldType::kText:
        std::memcpy(at, &text, sizeof text);
        break;
      case FieldType::kLong:
      case FieldType::kULong:
      case FieldType::kSlot:
        std::memcpy(at, &number, sizeof number);
        break;
      case FieldType::kRect:
      case FieldType::kDevice:
      case FieldType::kParticipant:
        FillRecord(at, vellomar_host::NestedFields(type));
        break;
    }
  }

  void SendHostile(const Command& command) {
    blocks.clear();
    auto& block = blocks.emplace_back(64);
    auto* const record = reinterpret_cast<std::byte*>(block.data());
    FillRecord(record, command.fields);
    EXPECT_TRUE(ExportedCallEvent(static_cast<std::uint32_t>(command.id), 0, record));
    blocks.clear();  // the host's memory is gone before the command runs
    if (random() % 4 != 0) host.RunAll();
  }

  // What a user and the library may do at any moment.
  void ActSomehow() {
    static const std::int32_t kWindows[] = {1018, 1020, 1065, 1012, 1008, 1006,
                                            1075, 1045, 1048, 1009, 1071};
    Rows(Choose(kWindows));
    BtnParams event{};
    event.key = static_cast<EventKey>(static_cast<std::int32_t>(Choose(kNumbers)));
    event.status = static_cast<std::int32_t>(Choose(kNumbers));
    event.groupValue = static_cast<std::int32_t>(Choose(kNumbers));
    event.valueText = Text();
    Library().Fire(event);
    Library().ReadEveryText();
  }

  std::minstd_rand random;
  std::deque<std::vector<std::uint64_t>> blocks;
};

TEST_F(HostileTest, EveryCommandSurvivesEveryValue) {
  for (const Command& command : vellomar_host::Commands()) {
    SCOPED_TRACE(std::string(command.name));
    for (unsigned seed = 1; seed <= 25; ++seed) {
      random.seed(seed);
      SendHostile(command);
      ActSomehow();
    }
  }
  host.RunAll();
}

TEST_F(HostileTest, RandomOrdersLeaveAWorkingBar) {
  for (unsigned seed = 1; seed <= 15; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random.seed(seed);
    Library().behaviour.closed_later = seed % 2 == 0;
    for (int step = 0; step < 150; ++step) {
      const auto commands = vellomar_host::Commands();
      SendHostile(commands[random() % commands.size()]);
      ActSomehow();
      if (step % 10 == 0) Library().DeliverPending();
    }
    host.RunAll();
    Library().DeliverPending();
    Send("closeSharedControlbar");
    Library().DeliverPending();
    InstallTexts();
    ASSERT_TRUE(ShowBar());
    Forget();
    Send("setAudioStatus", {{"status", 2}});
    Click(1013);
    EXPECT_EQ(Button(1001).status, 68);
    EXPECT_STREQ(Button(1001).text, "10001");
    EXPECT_THAT(ToldBesidesEvents(), testing::ElementsAre("stopSharing"));
  }
}

}  // namespace
