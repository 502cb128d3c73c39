// SPDX-License-Identifier: MIT
// The store of the participants: updates, the question for each new one, and avatars.
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

  static void RespondAvatar(const char* key, const char* path) {
    VellomarAvatarResponse response{key, path};
    ExportedOnReceive(VELLOMAR_RESPONSE_AVATAR, 0, &response);
  }
  static std::string PathOf(const std::string& key) { return Manager().Data().GetAvatarPath(key); }

  // Texts of the list's participants, by key.
  std::vector<std::string> Listed() {
    std::vector<std::string> names;
    for (const auto& row : Rows(1006)) {
      if (row.key == EventKey::ParticipantRow) names.push_back(row.text);
    }
    return names;
  }
};

TEST_F(ParticipantsTest, AnUpdateAsksOnlyForThoseWhoAreNew) {
  answers["b"] = -1;
  UpdateParticipants({Person("a"), Person("b")});
  EXPECT_THAT(requests, ElementsAre("a", "b"));
  EXPECT_TRUE(Logged("add participant: userid a, avatarKey: key a"));
  EXPECT_EQ(PathOf("a-1"), "path a");
  EXPECT_EQ(PathOf("b-1"), "") << "the host has no avatar";
  Forget();
  UpdateParticipants({Person("a", {{"displayName", "New"}}), Person("c")});
  EXPECT_THAT(requests, ElementsAre("c"));
  EXPECT_TRUE(Logged("remove participant: userid b, avatarKey: key b"));
  EXPECT_FALSE(Logged("add participant: userid a, avatarKey: key a"));
  EXPECT_EQ(Manager().Data().FindParticipantByKey("a-1")->display_name, "New");
  UpdateParticipants({});
  EXPECT_EQ(Manager().Data().GetParticipantStoreSize(), 0u);
  EXPECT_EQ(PathOf("a-1"), "");
  EXPECT_TRUE(LoggedFault("GetAvatarPath value not found!"));
}

TEST_F(ParticipantsTest, AnAvatarThatArrivesReachesAllWithItsKey) {
  UpdateParticipants(
      {Person("a", {{"avatarKey", "k"}}), Person("b", {{"avatarKey", "k"}}), Person("c")});
  Rows(1006);
  RespondAvatar("k", "/new.png");
  EXPECT_EQ(Rows(1006)[1].icon_path, "/new.png");
  EXPECT_EQ(Rows(1006)[2].icon_path, "/new.png");
  EXPECT_EQ(Rows(1006)[3].icon_path, "path c");
  UpdateParticipants({Person("a", {{"avatarKey", "k"}, {"avatarPath", ""}})});
  EXPECT_EQ(PathOf("a-1"), "/new.png") << "no other path was named";
}

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

TEST_F(ParticipantsTest, AResponseInsideTheQuestionIsHeard) {
  answers["a"] = -1;  // what the response says counts
  in_request = [](const std::string& id) {
    RespondAvatar(("key " + id).c_str(), ("/response " + id).c_str());
  };
  UpdateParticipants({Person("a"), Person("b")});
  EXPECT_EQ(PathOf("a-1"), "/response a");
  EXPECT_EQ(PathOf("b-1"), "/response b");
}

TEST_F(ParticipantsTest, TheNewestListHoldsWhereverItComesFrom) {
  host.run_at_once = true;
  in_request = [this](const std::string& id) {
    if (id == "a") UpdateParticipants({Person("b", {{"displayName", "newer"}}), Person("c")});
  };
  answers["b"] = -1;
  UpdateParticipants({Person("a"), Person("b"), Person("d")});
  EXPECT_THAT(Listed(), ElementsAre("newer", "Name c"));
  EXPECT_THAT(requests, ElementsAre("a", "b", "c")) << "each once, and nobody who has left";
  EXPECT_EQ(PathOf("b-1"), "");
  RespondAvatar("key a", "/late.png");
  EXPECT_EQ(Manager().Data().GetParticipantStoreSize(), 2u);
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

TEST_F(ParticipantsTest, NoAvatarHoldsUntilAResponse) {
  answers["a"] = -1;
  UpdateParticipants({Person("a")});
  UpdateParticipants({Person("a")});
  EXPECT_EQ(PathOf("a-1"), "") << "the same record";
  UpdateParticipants({Person("a", {{"displayName", "New"}})});
  UpdateParticipants({Person("a", {{"avatarPath", "another"}, {"avatarKey", "k"}})});
  EXPECT_EQ(PathOf("a-1"), "");
  RespondAvatar("k", "/response.png");
  EXPECT_EQ(PathOf("a-1"), "/response.png");
}

TEST_F(ParticipantsTest, AResponseHoldsUntilTheListNamesAnotherPath) {
  UpdateParticipants({Person("a")});
  RespondAvatar("key a", "/response.png");
  UpdateParticipants({Person("a")});
  UpdateParticipants({Person("a", {{"flag", false}})});
  EXPECT_EQ(PathOf("a-1"), "/response.png");
  UpdateParticipants({Person("a", {{"avatarPath", "another"}})});
  EXPECT_EQ(PathOf("a-1"), "another");
}

TEST_F(ParticipantsTest, AListThatNamesSomebodyTwiceMeansTheLastRecord) {
  const Json moved = Person("a", {{"avatarKey", "k"}, {"displayName", "second"}});
  UpdateParticipants({Person("a"), moved});
  UpdateParticipants({Person("a", {{"flag", false}}), moved, moved});
  EXPECT_THAT(requests, ElementsAre("a"));
  EXPECT_THAT(Listed(), ElementsAre("second"));
  RespondAvatar("k", "/new key.png");
  RespondAvatar("key a", "/old key.png");
  EXPECT_EQ(PathOf("a-1"), "/new key.png");
}

TEST_F(ParticipantsTest, AvatarsAreHeardAgainAfterInit) {
  UpdateParticipants({Person("a")});
  ExportedUninit();
  const EventLoopTable table = host.Table();
  ExportedInit(nullptr, nullptr, nullptr, &table, "", "", 0);
  RespondAvatar("key a", "/response.png");
  EXPECT_EQ(PathOf("a-1"), "/response.png");
}

}  // namespace
