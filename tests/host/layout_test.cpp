// SPDX-License-Identifier: MIT
// The field notation against the records that it describes: the records are the truth.
#include "host/layout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "host/host_error.h"
#include "vellomar/command_records.h"
#include "vellomar/notification_records.h"

namespace vellomar_host {
namespace {

// Offset and size of every plain value, with records taken apart.
using Leaves = std::vector<std::pair<std::size_t, std::size_t>>;

struct Anything {
  template <typename T>
  operator T() const;  // NOLINT(google-explicit-constructor): stands for any member
};

template <typename Record, typename... Members>
consteval std::size_t MemberCount() {
  if constexpr (requires { Record{Members{}..., Anything{}}; }) {
    return MemberCount<Record, Members..., Anything>();
  } else {
    return sizeof...(Members);
  }
}

template <typename Record, typename Function>
void ForEachMember(const Record& record, Function function) {
  const auto each = [&](const auto&... member) { (function(member), ...); };
  constexpr std::size_t kCount = MemberCount<Record>();
  static_assert(kCount >= 1 && (kCount <= 8 || kCount == 11), "add the count below");
  if constexpr (kCount == 1) {
    const auto& [a] = record;
    each(a);
  } else if constexpr (kCount == 2) {
    const auto& [a, b] = record;
    each(a, b);
  } else if constexpr (kCount == 3) {
    const auto& [a, b, c] = record;
    each(a, b, c);
  } else if constexpr (kCount == 4) {
    const auto& [a, b, c, d] = record;
    each(a, b, c, d);
  } else if constexpr (kCount == 5) {
    const auto& [a, b, c, d, e] = record;
    each(a, b, c, d, e);
  } else if constexpr (kCount == 6) {
    const auto& [a, b, c, d, e, f] = record;
    each(a, b, c, d, e, f);
  } else if constexpr (kCount == 7) {
    const auto& [a, b, c, d, e, f, g] = record;
    each(a, b, c, d, e, f, g);
  } else if constexpr (kCount == 8) {
    const auto& [a, b, c, d, e, f, g, h] = record;
    each(a, b, c, d, e, f, g, h);
  } else {
    const auto& [a, b, c, d, e, f, g, h, i, j, k] = record;
    each(a, b, c, d, e, f, g, h, i, j, k);
  }
}

template <typename Value>
void AddLeaves(const Value& value, const char* base, Leaves& leaves) {
  if constexpr (std::is_class_v<Value>) {
    ForEachMember(value, [&](const auto& member) { AddLeaves(member, base, leaves); });
  } else {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer, its own size is meant
    leaves.emplace_back(reinterpret_cast<const char*>(&value) - base, sizeof(Value));
  }
}

std::size_t PlainSize(FieldType type, std::size_t pointer_size) {
  if (type == FieldType::kFlag) return 1;
  if (type == FieldType::kInt) return 4;
  return type == FieldType::kText ? pointer_size : 8;
}

void AddLeaves(const Layout& layout, std::size_t base, std::size_t pointer_size, Leaves& leaves) {
  for (const Field& field : layout.fields) {
    if (field.is_array) {
      leaves.emplace_back(base + field.offset, pointer_size);
      leaves.emplace_back(base + field.count_offset, 4);
    } else if (const auto nested = NestedFields(field.type); !nested.empty()) {
      AddLeaves(ParseLayout(nested, pointer_size), base + field.offset, pointer_size, leaves);
    } else {
      leaves.emplace_back(base + field.offset, PlainSize(field.type, pointer_size));
    }
  }
}

template <typename Record>
void ExpectSame(const char* name, const char* notation) {
  const Layout layout = ParseLayout(notation);
  if (layout.fields.empty()) return;  // a record of one unread byte
  const Record record{};
  Leaves in_header;
  AddLeaves(record, reinterpret_cast<const char*>(&record), in_header);
  Leaves in_notation;
  AddLeaves(layout, 0, sizeof(void*), in_notation);
  EXPECT_EQ(in_notation, in_header) << name;
  EXPECT_EQ(layout.size, sizeof(Record)) << name;
  EXPECT_EQ(layout.alignment, alignof(Record)) << name;
}

TEST(Layout, IsThatOfEveryRecordInTheTables) {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields) \
  ExpectSame<record>(#name, fields);
#include "vellomar/command_table.def"
#define VELLOMAR_NOTIFICATION(id, name, record, fields) ExpectSame<record>(#name, fields);
#include "vellomar/notification_table.def"
}

// The 32-bit interface, with the offsets that vellomar/command_records.h fixes for it.
TEST(Layout, FollowsThePointerSize) {
  const auto leaves = [](const char* notation) {
    Leaves result;
    AddLeaves(ParseLayout(notation, 4), 0, 4, result);
    return result;
  };
  EXPECT_EQ(leaves("long[] ids, text[] texts"), (Leaves{{0, 4}, {4, 4}, {8, 4}, {12, 4}}));
  EXPECT_EQ(leaves("slot key, text text, flag a, int b, int bHigh, flag c"),
            (Leaves{{0, 8}, {8, 4}, {12, 1}, {16, 4}, {20, 4}, {24, 1}}));
  EXPECT_EQ(leaves("participant p"),
            (Leaves{{0, 4}, {4, 4}, {8, 8}, {16, 4}, {20, 4}, {24, 4}, {28, 4}, {32, 1}}));
  EXPECT_EQ(ParseLayout("participant p", 4).size, 40U);
}

TEST(Layout, RefusesWhatIsNotANotation) {
  for (const char* notation : {"flag", "flag ", "short x", "flag a,flag b", "out", "flag a, "}) {
    EXPECT_THROW(ParseLayout(notation), HostError) << notation;
  }
}

}  // namespace
}  // namespace vellomar_host
