// SPDX-License-Identifier: MIT
// A bar on Qt's offscreen platform, with the plug-in behind it: commands go in by name, mouse and
// keyboard events take the way that the windowing system's take.
//
//     class ListTest : public QtSession {};
//     TEST_F(ListTest, ...) {
//       ShowBar({.language = "ar"});
//       Open(HostControl);
//       Key(Qt::Key_Escape);
//     }
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QRect>
#include <QWidget>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "host/scenario/session.h"
#include "vellomar/lorimel.h"

class QtSession : public testing::Test {
 protected:
  using json = nlohmann::json;
  using EventKey = VELLOMAR_LORIMEL::EventKey;
  using enum VELLOMAR_LORIMEL::EventKey;

  QtSession();

  struct BarOptions {
    std::string language = "en";
    bool simplified = false;
    QRect display{0, 0, 1920, 1080};  // in pixels
  };

  // A host's bar in a meeting with chat and participants.
  void ShowBar(const BarOptions& options);
  void ShowBar() { ShowBar(BarOptions()); }
  void CloseBar() { Send("closeSharedControlbar", json::object()); }
  json Send(const char* name, const json& arguments);
  void SendTexts(const std::string& language);
  void SendParticipants(int count, const std::string& avatar = "");
  // Runs what is posted and shows what has changed.
  void Settle();

  // In pixels; nothing where it is not shown.
  static std::optional<QRect> Place(EventKey key);
  // The same; fails the test where it is not shown.
  static QRect Area(EventKey key);
  static bool IsShown(EventKey key) { return Place(key).has_value(); }
  static std::map<EventKey, QRect> ShownButtons();

  // The number of rows of the list; -1 where a user could not open it.
  int Open(EventKey key);

  // By mouse and keyboard. Points are Qt's, those of widgets.
  void Click(const QPoint& global);
  void Drag(const QPoint& from, const QPoint& to);
  void Key(Qt::Key key);
  // Gives the control the focus, as a user does who presses Tab until it is there.
  void TabTo(const QString& name);

  // The visible window whose title or accessible name it is; null where there is none.
  static QWidget* Window(const QString& name);
  static QWidget* BarWidget() { return Window("Quarterly figures"); }
  // The visible widget with this accessible name, on the bar first; null where there is none.
  static QWidget* Named(const QString& name);
  static QString FocusName();
  // Of the row that has the focus in the open list.
  static QString FocusedRow();
  // The middle of the row of this text in the open list, which has the focus. Fails the test where
  // there is no such row.
  static QPoint RowCenter(const std::string& text);
  static QPoint Center(const QWidget& widget) { return widget.mapToGlobal(widget.rect().center()); }
  static QImage Grab(QWidget& widget);
  // How many pixels are so.
  static int Count(const QImage& image, const std::function<bool(const QColor&)>& is_so);

  // The notifications by name since Forget.
  std::vector<std::string> Told() const;
  void Forget() { forgotten_ = session.notifications().size(); }
  json LastPayload(const std::string& name) const;

  // Writes the picture and reads it again.
  QImage Picture(const std::string& name);

 private:
  std::ostringstream lines_;
  vellomar_host::Transcript transcript_{lines_, vellomar_host::Transcript::Form::kNone};
  std::size_t forgotten_ = 0;

 protected:
  vellomar_host::Session session{
      {VELLOMAR_PLUGIN_PATH, VELLOMAR_LORIMEL_PATH, ""}, {}, transcript_};
};
