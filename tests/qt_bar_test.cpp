// SPDX-License-Identifier: MIT
// The bar as it is drawn: every language's buttons sit inside the bar and beside one another, and
// the picture shows them.
#include <gtest/gtest.h>

#include <QImage>
#include <QRect>
#include <QSet>
#include <filesystem>
#include <map>
#include <sstream>

#include "host/scenario.h"
#include "host/session.h"
#include "host/tables.h"
#include "vellomar/lorimel.h"

namespace {

using nlohmann::json;
using VELLOMAR_LORIMEL::EventKey;

class QtBarTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    Send("setMeetingSubType", {{"type", 1}});
    Send("setTextMap", Texts(GetParam()));
    Send("setHostType", {{"type", 1}});
    Send("setMeetingNumber", {{"number", "482 913 770"}});
    Send("setSketchVisible", {{"visible", true}});
    Send("setParticipantsCount", {{"count", 128}});
    Send("setChatMessageCount", {{"count", 7}});
    const json display = {{"x", 0}, {"y", 0}, {"width", 1920}, {"height", 1080}};
    ASSERT_EQ(Send("showSharedControlbar", {{"display", display}}), json({{"result", true}}));
  }

  json Send(const char* name, const json& arguments) {
    json answer = session.Send(*vellomar_host::FindCommand(name), arguments);
    EXPECT_TRUE(session.loop().RunUntilIdle(Deadline())) << name;
    return answer;
  }

  static vellomar_host::EventLoop::Clock::time_point Deadline() {
    return vellomar_host::EventLoop::Clock::now() + std::chrono::seconds(30);
  }

  static json Texts(const std::string& language) {
    json arguments = {{"ids", json::array()}, {"texts", json::array()}};
    const json texts = json::parse(vellomar_host::ReadFile(
        std::filesystem::path(VELLOMAR_SCENARIOS) / "texts" / (language + ".json")));
    for (const auto& [id, text] : texts.items()) {
      arguments["ids"].push_back(std::stoll(id));
      arguments["texts"].push_back(text);
    }
    return arguments;
  }

  static std::map<int, QRect> ShownButtons() {
    std::map<int, QRect> shown;
    for (int key = 1000; key <= 1091; ++key) {
      int x = 0;
      int y = 0;
      int width = 0;
      int height = 0;
      auto* const library = VELLOMAR_LORIMEL::Lorimel::GetInstance();
      if (library->GetPositionByEventKey(static_cast<EventKey>(key), x, y, width, height)) {
        shown[key] = QRect(x, y, width, height);
      }
    }
    return shown;
  }

  std::ostringstream lines;
  vellomar_host::Transcript transcript{lines, vellomar_host::Transcript::Form::kNone};
  vellomar_host::Session session{{VELLOMAR_PLUGIN_PATH, VELLOMAR_LORIMEL_PATH, ""}, {}, transcript};
};

TEST_P(QtBarTest, ButtonsSitInsideTheBarAndDoNotOverlap) {
  std::map<int, QRect> shown = ShownButtons();
  const QRect bar = shown.at(1000);
  shown.erase(1000);
  EXPECT_GE(shown.size(), 15u);
  EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(bar));
  for (const auto& [key, area] : shown) {
    EXPECT_TRUE(bar.contains(area)) << key;
    EXPECT_GE(area.width(), 16) << key;
    for (const auto& [other, other_area] : shown) {
      EXPECT_TRUE(other == key || !area.intersects(other_area)) << key << " and " << other;
    }
  }
}

TEST_P(QtBarTest, ThePictureShowsThem) {
  const std::string path =
      (std::filesystem::path(VELLOMAR_PICTURES) / (std::string("bar-") + GetParam() + ".png"))
          .string();
  std::filesystem::create_directories(VELLOMAR_PICTURES);
  std::filesystem::remove(path);
  ASSERT_TRUE(session.driver()->screenshot(path.c_str()));
  const QImage picture(QString::fromStdString(path));
  ASSERT_FALSE(picture.isNull());
  EXPECT_GE(picture.width(), ShownButtons().at(1000).width());
  QSet<QRgb> colours;
  int red = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      colours.insert(colour.rgb());
      if (colour.red() > 180 && colour.green() < 90 && colour.blue() < 90) ++red;
    }
  }
  EXPECT_GT(colours.size(), 100) << "texts and icons have smooth edges";
  EXPECT_GT(red, 1000) << "the stop button";
}

INSTANTIATE_TEST_SUITE_P(Languages, QtBarTest, testing::Values("en", "de", "zh", "ar"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
