// SPDX-License-Identifier: MIT
// What is kept for the host: the resources of an answer, and copies of texts.
#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>

#include "bridge/resources.h"
#include "host/tables.h"
#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using VELLOMAR_CONTROLBAR::__ResourceCollection__;
using VELLOMAR_CONTROLBAR::__ResourceCollectionPool__;

class AnswersTest : public BarTest {
 protected:
  // What an answer of this id left behind; true as long as it is kept.
  static std::weak_ptr<__ResourceCollection__> Leave(std::uint64_t id) {
    auto entry = __ResourceCollectionPool__::MakeEntry(id);
    const std::weak_ptr<__ResourceCollection__> answer = entry.mapped();
    __ResourceCollectionPool__::GetInstance()->Add(std::move(entry));
    return answer;
  }
};

TEST_F(AnswersTest, AreKeptUntilTheHostDropsThemOrTheNextOne) {
  for (const char* name : {"showSharedControlbar", "closeSharedControlbar", "getControlbarPosition",
                           "showSketchControlbar"}) {
    SCOPED_TRACE(name);
    const std::uint64_t id = vellomar_host::FindCommand(name)->id;
    const auto low = static_cast<std::uint32_t>(id);
    std::uint64_t payload[8] = {};
    const auto first = Leave(id);
    EXPECT_TRUE(ExportedCallDrop(low, 1)) << "another key";
    EXPECT_FALSE(first.expired());
    EXPECT_TRUE(ExportedCallEvent(low, 0, payload));
    EXPECT_TRUE(first.expired()) << "the next answer replaces it";
    EXPECT_EQ(__ResourceCollectionPool__::GetInstance()->Drop(id), 1u) << "and is kept";
    const auto last = Leave(id);
    EXPECT_TRUE(ExportedCallDrop(low, 0));
    EXPECT_TRUE(last.expired());
  }
}

TEST(ResourcesTest, TextsAreCopiedUpToTheirFirstZero) {
  __ResourceCollection__ texts;
  const char* text = nullptr;
  VELLOMAR_CONTROLBAR::MakeCString(std::string_view("ab\0cd", 5), text, texts);
  EXPECT_EQ(std::string(text, 6), std::string("ab\0\0\0\0", 6));
  VELLOMAR_CONTROLBAR::MakeCString("", text, texts);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(texts.Size(), 2u);
}

}  // namespace
