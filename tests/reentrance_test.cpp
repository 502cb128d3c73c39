// SPDX-License-Identifier: MIT
// A host that comes back in while it is told something: what it does then takes effect at once, and
// nothing that the plug-in was about to read may be gone. The address sanitizer sees the reads.
#include <gmock/gmock.h>

#include "bridge/server_api.h"
#include "support/bar_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using VELLOMAR_SERVER_API::VellomarServerApiResponser;

class ReentranceTest : public BarTest {
 protected:
  void SetUp() override {
    host.run_at_once = true;
    InstallTexts();
    ShowBar();
    Forget();
  }

  void CloseTwice() {
    Send("closeSharedControlbar");
    Send("closeSharedControlbar");
  }
};

// The second close frees the lists that the first one kept.
TEST_F(ReentranceTest, AnEventOfTheBarsOwnRowOutlivesTheList) {
  Send("setCameraInfo",
       {{"cameras", {{{"id", "camera-id"}, {"name", "Camera name"}}}}, {"currentCameraId", ""}});
  int count = 0;
  BtnParams* const rows = Manager().OnGetWindowInfo(EventKey::CameraDevices, count);
  ASSERT_EQ(count, 2);
  inside["uiEvent"] = [this] { CloseTwice(); };
  Manager().OnUIEvent(rows[1]);
  EXPECT_THAT(Told(), Contains("selectCamera {\"deviceId\":\"camera-id\"}"));
  EXPECT_TRUE(Logged("Controlbar select camera camera-id."));
}

// The library's record may change, too, as soon as the host was told.
TEST_F(ReentranceTest, AnEventIsWhatItWasWhenItCame) {
  std::string tag = "microphone";
  BtnParams event{};
  event.key = EventKey::MicrophoneItem;
  event.valueText = tag.c_str();
  inside["uiEvent"] = [&] {
    tag = "speaker";
    event.key = EventKey::Speaker;
  };
  Manager().OnUIEvent(event);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre("selectMicrophone {\"deviceId\":\"microphone\"}"));
}

TEST_F(ReentranceTest, TheHostMayEndThePlugInInsideANotification) {
  inside["uiEvent"] = [] { ExportedUninit(); };
  Click(1007, 1);
  EXPECT_THAT(ToldBesidesEvents(), ElementsAre()) << "there is nobody to tell any more";
  EXPECT_TRUE(Logged("Controlbar open chat."));
}

TEST_F(ReentranceTest, AResponseMayReplaceItsOwnCallableAndEndThePlugIn) {
  constexpr std::uint64_t kResponse = 15000753;
  int payload = 0;
  std::string heard;
  VellomarServerApiResponser::GetInstance()->SetCallback(
      kResponse, [&heard, first = std::string(100, '1')](std::uint64_t, void*) {
        VellomarServerApiResponser::GetInstance()->SetCallback(
            kResponse, [&heard](std::uint64_t, void*) { heard += '2'; });
        heard += first[99];
      });
  ExportedOnReceive(kResponse, 0, &payload);
  ExportedOnReceive(kResponse, 0, &payload);
  EXPECT_EQ(heard, "12");
  VellomarServerApiResponser::GetInstance()->SetAvatarCallback(
      [&heard, kept = std::string(100, '3')](const std::string&, const std::string&) {
        ExportedUninit();
        heard += kept[99];
      });
  VellomarAvatarResponse avatar{"key", "path"};
  ExportedOnReceive(VELLOMAR_RESPONSE_AVATAR, 0, &avatar);
  EXPECT_EQ(heard, "123");
}

}  // namespace
