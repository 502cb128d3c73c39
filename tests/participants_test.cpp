// SPDX-License-Identifier: MIT
// The store of the participants where there are many of them, and where the host's answers nest.
#include <gmock/gmock.h>

#include <algorithm>

#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ParticipantsTest : public BarTest {
 protected:
  void SetUp() override {
    InstallTexts();
    ShowBar();
    Forget();
  }

  static std::string PathOf(const std::string& key) { return Manager().Data().GetAvatarPath(key); }
};

TEST_F(ParticipantsTest, TenThousandParticipantsAreOrdinary) {
  std::vector<Json> people;
  people.reserve(10'000);
  for (int i = 0; i < 10'000; ++i)
    people.push_back(Person(std::to_string(i), {{"avatarKey", "k"}}));
  UpdateParticipants(people);
  EXPECT_EQ(requests.size(), 10'000u);
  EXPECT_EQ(Rows(1006).size(), 10'001u);
  people[5000]["displayName"] = "Changed";
  Forget();
  UpdateParticipants(people);
  EXPECT_THAT(requests, IsEmpty());
  EXPECT_LT(recording_log::Lines().size(), 20u) << "no line for those who did not change";
  EXPECT_EQ(Manager().Data().FindParticipantByKey("5000-1")->display_name, "Changed");
}

TEST_F(ParticipantsTest, AHostThatAnswersWithTheSameListIsNotAskedForEver) {
  host.run_at_once = true;
  const std::vector<Json> people = {Person("a"), Person("b"), Person("c")};
  int depth = 0;
  int deepest = 0;
  in_request = [&](const std::string&) {
    deepest = std::max(deepest, ++depth);
    if (depth < 50) UpdateParticipants(people);
    --depth;
  };
  UpdateParticipants(people);
  EXPECT_EQ(deepest, 1);
  EXPECT_THAT(requests, ElementsAre("a", "b", "c"));
}

TEST_F(ParticipantsTest, AParticipantWhoComesBackInsideTheQuestionIsAskedForAnew) {
  host.run_at_once = true;
  answers["a"] = -1;  // to the first question
  in_request = [this](const std::string& id) {
    if (requests.size() > 1) answers["a"] = 0;
    if (id != "a" || requests.size() > 1) return;
    UpdateParticipants({});
    UpdateParticipants({Person("a"), Person("b")});
  };
  UpdateParticipants({Person("a")});
  EXPECT_THAT(requests, ElementsAre("a", "a", "b"));
  EXPECT_EQ(PathOf("a-1"), "path a");
}

}  // namespace
