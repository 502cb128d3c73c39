// SPDX-License-Identifier: MIT
// The field notation: where the fields lie for either size of a pointer, and that no record of the
// tables has another size.
#include "host/layout.h"

#include <gtest/gtest.h>

#include "host/tables.h"
#include "tests/host/error_of.h"

namespace vellomar_host {
namespace {

// Of each field; of an array, of its pointer and its count. The record's size comes last.
std::vector<std::size_t> OffsetsAndSize(const char* notation, std::size_t pointer_size) {
  const Layout layout = ParseLayout(notation, pointer_size);
  std::vector<std::size_t> offsets;
  for (const Field& field : layout.fields) {
    offsets.push_back(field.offset);
    if (field.is_array) offsets.push_back(field.count_offset);
  }
  offsets.push_back(layout.size);
  return offsets;
}

TEST(Layout, AlignsEveryFieldForEitherPointerSize) {
  struct Case {
    const char* notation;
    std::vector<std::size_t> with_4, with_8;
  };
  const Case cases[] = {
      {"int a, out flag b", {0, 4, 8}, {0, 4, 8}},
      {"flag a, ulong b, out rect c", {0, 8, 16, 48}, {0, 8, 16, 48}},
      {"long[] ids, text[] texts", {0, 4, 8, 12, 16}, {0, 8, 16, 24, 32}},
      {"flag a, device b, flag c", {0, 4, 12, 16}, {0, 8, 24, 32}},
      {"participant a, flag b", {0, 40, 48}, {0, 64, 72}},
      {"slot a, text b, flag c, int d, flag e", {0, 8, 12, 16, 20, 24}, {0, 8, 16, 20, 24, 32}},
  };
  for (const auto& [notation, with_4, with_8] : cases) {
    EXPECT_EQ(OffsetsAndSize(notation, 4), with_4) << notation;
    EXPECT_EQ(OffsetsAndSize(notation, 8), with_8) << notation;
  }
}

TEST(Layout, IsAsLargeAsEveryRecordInTheTables) {
  const auto check = [](const auto& row) {
    if (row.fields.empty()) return;  // a record of one unread byte, or none
    EXPECT_EQ(ParseLayout(row.fields).size, row.record_size) << row.name;
  };
  for (const Command& command : Commands()) check(command);
  for (const Notification& notification : Notifications()) check(notification);
}

TEST(Layout, RefusesWhatIsNotANotation) {
  for (const char* notation : {"flag", "flag ", "short x", "flag a,flag b", "out", "flag a, "}) {
    EXPECT_NE(ErrorOf([&] { ParseLayout(notation); }), "no error") << notation;
  }
}

}  // namespace
}  // namespace vellomar_host
