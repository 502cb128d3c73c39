// SPDX-License-Identifier: MIT
// What assistive technology is told: names, roles, states, actions; and that everything is
// readable.
#include <gmock/gmock.h>

#include <QAccessible>
#include <algorithm>
#include <cstdlib>
#include <map>

#include "support/qt_session.h"

namespace {

using testing::Contains;

class QtAccessibilityTest : public QtSession {
 protected:
  static QAccessibleInterface* Of(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
  }
  static QAccessible::State StateOf(const QString& name) { return Of(Named(name))->state(); }

  // What is below, can be seen and has no parts.
  static std::vector<QAccessibleInterface*> PartsOf(QAccessibleInterface& whole) {
    std::vector<QAccessibleInterface*> parts;
    for (int i = 0; i < whole.childCount(); ++i) {
      QAccessibleInterface* child = whole.child(i);
      if (child == nullptr || child->state().invisible) {
        continue;
      }
      const auto below = PartsOf(*child);
      parts.insert(parts.end(), below.begin(), below.end());
      if (child->childCount() == 0) {
        parts.push_back(child);
      }
    }
    return parts;
  }

  // From what there is most of, by the shades that a reader needs. Edges are blended, so a few
  // pixels have to.
  static bool StandsOut(const QImage& image) {
    std::map<int, int> count;
    Count(image, [&count](const QColor& c) { return ++count[qGray(c.rgb())] > 0; });
    const int most = std::ranges::max_element(count, {}, &std::pair<const int, int>::second)->first;
    return Count(image, [most](const QColor& c) { return std::abs(qGray(c.rgb()) - most) > 80; }) >
           12;
  }

  // Every text and icon of the window, on a picture of this area, which is twice as large and has a
  // margin.
  static void ExpectToStandOut(QWidget& window, const QImage& picture, const QRect& area) {
    constexpr int kMargin = 24;
    for (QAccessibleInterface* item : PartsOf(*Of(&window))) {
      if (item->role() == QAccessible::Separator) {
        continue;
      }
      const QPoint at = item->rect().topLeft() - area.topLeft() + QPoint(kMargin, kMargin);
      EXPECT_TRUE(StandsOut(picture.copy(QRect(at * 2, item->rect().size() * 2))))
          << item->role() << item->text(QAccessible::Name).toStdString();
    }
  }
};

TEST_F(QtAccessibilityTest, EveryControlHasANameAndARole) {
  ShowBar({.language = "zh"});
  Send("setButtonVisible", {{"key", "SharingOptions"}, {"visible", true}});
  Send("setNetworkStrength", {{"sta", 3}});
  Send("showSketchControlbar", {{"show", true}});
  Send("setUnderControl", {{"status", 1}, {"userId", "u"}, {"displayName", "n"}});
  int controls = 0;
  for (QWidget* window : {BarWidget(), Named("颜色")->window()}) {
    EXPECT_EQ(Of(window)->role(), QAccessible::ToolBar);
    for (QAccessibleInterface* item : PartsOf(*Of(window))) {
      ++controls;
      EXPECT_FALSE(item->text(QAccessible::Name).isEmpty());
      EXPECT_NE(item->role(), QAccessible::Client) << item->text(QAccessible::Name).toStdString();
      EXPECT_TRUE(window->geometry().contains(item->rect()));
    }
  }
  EXPECT_GE(controls, 30);
}

TEST_F(QtAccessibilityTest, StatesFollowTheRecords) {
  ShowBar();
  EXPECT_TRUE(StateOf("Audio").checked);
  Send("setAudioStatus", {{"status", 0}});
  EXPECT_FALSE(StateOf("Audio").checked) << "muted";
  Send("setAudioStatus", {{"status", 2}});
  EXPECT_TRUE(StateOf("Audio").disabled) << "there is none";
  const QImage idle = Grab(*Named("Annotate"));
  Send("setSketchLoading", {{"loading", true}});
  EXPECT_TRUE(StateOf("Annotate").busy);
  EXPECT_NE(Grab(*Named("Annotate")), idle) << "the ring";
  Send("setSketchLoading", {{"loading", false}});
  EXPECT_EQ(Grab(*Named("Annotate")), idle);
  EXPECT_EQ(Of(Named("Chat"))->text(QAccessible::Value), "7");

  EXPECT_TRUE(StateOf("More").hasPopup);
  EXPECT_FALSE(StateOf("More").expanded);
  Of(Named("More"))->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  Settle();
  EXPECT_TRUE(StateOf("More").expanded);
}

TEST_F(QtAccessibilityTest, RowsHaveNamesRolesAndStates) {
  ShowBar();
  Send("setHostControlInfo", json::parse(R"({
    "selectedSecurityLevel": 3, "enableNeedMoveToLobby": true, "needMoveToLobby": true,
    "showShareAccess": false, "onlyHostCanReshare": 1, "onlyHostCanShare": 0, "reserved": 0,
    "entryOnMuted": false, "showEnableOpenMicBySelf": true, "enableUseEnableOpenMicBySelf": false,
    "enableOpenMicBySelf": true})"));
  ASSERT_EQ(Open(HostControl), 15);
  QWidget* list = Window("Host Controls");
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(Of(list)->role(), QAccessible::PopupMenu);
  std::map<QString, QAccessibleInterface*> rows;
  for (QAccessibleInterface* item : PartsOf(*Of(list))) {
    rows[item->text(QAccessible::Name)] = item;
  }
  EXPECT_EQ(rows.at("Who can join")->role(), QAccessible::StaticText);
  EXPECT_EQ(rows.at("Signed-in users")->role(), QAccessible::RadioButton);
  EXPECT_FALSE(rows.at("Signed-in users")->state().checked);
  EXPECT_TRUE(rows.at("Members of my organisation")->state().checked);
  EXPECT_EQ(rows.at("Newcomers wait in the lobby")->role(), QAccessible::CheckBox);
  EXPECT_TRUE(rows.at("Newcomers wait in the lobby")->state().checked);
  EXPECT_TRUE(rows.at("Participants can unmute themselves")->state().disabled);
  EXPECT_EQ(rows.count("Only the host can share"), 0u) << "not offered";

  Forget();
  rows.at("Mute All")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  Settle();
  EXPECT_THAT(Told(), Contains("muteAll"));
}

TEST_F(QtAccessibilityTest, TextsAndIconsStandOut) {
  ShowBar();
  Send("setNetworkStrength", {{"sta", 1}});
  Send("setAudioStatus", {{"status", 2}});
  Send("setUnderControl", {{"status", 1}, {"userId", "u"}, {"displayName", "n"}});
  Send("setSharingStatus", {{"pause", true}, {"sta", 1}});
  Named("Stop")->setAttribute(Qt::WA_UnderMouse);
  ExpectToStandOut(*BarWidget(), Picture("contrast-bar"), BarWidget()->geometry());
  ASSERT_GT(Open(HostControl), 0);
  QWidget* list = Window("Host Controls");
  ExpectToStandOut(*list, Picture("contrast-list"), BarWidget()->geometry() | list->geometry());
}

}  // namespace
