// SPDX-License-Identifier: MIT
#include "support/qt_session.h"

#include <QApplication>
#include <QTest>
#include <QWindow>
#include <filesystem>

#include "host/abi/tables.h"
#include "host/scenario/scenario.h"
#include "support/qt_application.h"

using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::Lorimel;

QtSession::QtSession() {
  BringApplication();
}

void QtSession::ShowBar(const BarOptions& options) {
  Send("setMeetingSubType", {{"type", 1}});
  SendTexts(options.language);
  Send("setHostType", {{"type", 1}});
  Send("setMeetingNumber", {{"number", "482 913 770"}});
  Send("setSketchVisible", {{"visible", true}});
  Send("setParticipantsCount", {{"count", 128}});
  Send("setChatMessageCount", {{"count", 7}});
  Send("setMeetingDuration", {{"seconds", "754"}});
  Send("setWindowTitle", {{"title", "Quarterly figures"}});
  Send("setControlBarSimplifyEnable", {{"enable", options.simplified}});
  const json display = {{"x", options.display.x()},
                        {"y", options.display.y()},
                        {"width", options.display.width()},
                        {"height", options.display.height()}};
  ASSERT_EQ(Send("showSharedControlbar", {{"display", display}}), json({{"result", true}}));
  BarWidget()->activateWindow();
  Settle();
}

QtSession::json QtSession::Send(const char* name, const json& arguments) {
  json answer = session.Send(*vellomar_host::FindCommand(name), arguments);
  Settle();
  return answer;
}

void QtSession::SendTexts(const std::string& language) {
  json arguments = {{"ids", json::array()}, {"texts", json::array()}};
  const json texts = json::parse(vellomar_host::ReadFile(std::filesystem::path(VELLOMAR_SCENARIOS) /
                                                         "texts" / (language + ".json")));
  for (const auto& [id, text] : texts.items()) {
    arguments["ids"].push_back(std::stoll(id));
    arguments["texts"].push_back(text);
  }
  Send("setTextMap", arguments);
}

void QtSession::SendParticipants(int count, const std::string& avatar) {
  json participants = json::array();
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(1'000'000 + i);
    json person = json::parse(R"({"instanceId": "i", "room": "", "avatarKey": "", "flag": true})");
    person.update({{"userId", "u" + number}, {"number", i}, {"displayName", "Person " + number}});
    person["avatarPath"] = i == 0 ? avatar : "";
    participants.push_back(person);
  }
  Send("updateParticipants", {{"participants", participants}});
  Send("setRemoteControlEnabled", {{"enable", true}});
}

void QtSession::Settle() {
  EXPECT_TRUE(session.loop().RunUntilIdle(vellomar_host::EventLoop::Clock::now() +
                                          std::chrono::seconds(30)));
  session.driver()->pump(0);
  session.driver()->pump(0);  // what a timer of 0 ms has done shows
}

std::optional<QRect> QtSession::Place(EventKey key) {
  int x = 0, y = 0, width = 0, height = 0;
  const bool is_shown = Lorimel::GetInstance()->GetPositionByEventKey(key, x, y, width, height);
  return is_shown ? std::optional(QRect(x, y, width, height)) : std::nullopt;
}

QRect QtSession::Area(EventKey key) {
  const std::optional<QRect> place = Place(key);
  EXPECT_TRUE(place) << static_cast<int>(key);
  return place.value_or(QRect());
}

std::map<EventKey, QRect> QtSession::ShownButtons() {
  std::map<EventKey, QRect> shown;
  for (int i = 0; i < VELLOMAR_LORIMEL::kKeyCount; ++i) {
    const EventKey key{VELLOMAR_LORIMEL::kFirstKey + i};
    if (const std::optional<QRect> place = Place(key)) {
      shown[key] = *place;
    }
  }
  return shown;
}

int QtSession::Open(EventKey key) {
  const int rows = session.driver()->open(static_cast<std::int32_t>(key));
  Settle();
  return rows;
}

void QtSession::Click(const QPoint& global) {
  QWindow* window = QGuiApplication::topLevelAt(global);
  ASSERT_NE(window, nullptr);
  QTest::mouseMove(window, window->mapFromGlobal(global));
  QTest::mouseClick(window, Qt::LeftButton, {}, window->mapFromGlobal(global));
  Settle();
}

void QtSession::Drag(const QPoint& from, const QPoint& to) {
  constexpr int kSteps = 8;
  QWindow* window = QGuiApplication::topLevelAt(from);
  ASSERT_NE(window, nullptr);
  QTest::mousePress(window, Qt::LeftButton, {}, window->mapFromGlobal(from));
  for (int step = 1; step <= kSteps; ++step) {
    QTest::mouseMove(window, window->mapFromGlobal(from + (to - from) * step / kSteps));
  }
  QTest::mouseRelease(window, Qt::LeftButton, {}, window->mapFromGlobal(to));
  Settle();
}

void QtSession::Key(Qt::Key key) {
  ASSERT_NE(QGuiApplication::focusWindow(), nullptr);
  QTest::keyClick(QGuiApplication::focusWindow(), key);
  Settle();
}

void QtSession::TabTo(const QString& name) {
  constexpr int kMost = 60;
  for (int i = 0; i < kMost && FocusName() != name; ++i) {
    Key(Qt::Key_Tab);
  }
  ASSERT_EQ(FocusName(), name);
}

QWidget* QtSession::Window(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() &&
        (window->windowTitle() == name || window->accessibleName() == name)) {
      return window;
    }
  }
  return nullptr;
}

QWidget* QtSession::Named(const QString& name) {
  QWidget* found = nullptr;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (!widget->isVisible() || widget->isWindow() || widget->accessibleName() != name) {
      continue;
    }
    if (found == nullptr || widget->window() == BarWidget()) {
      found = widget;
    }
  }
  return found;
}

QString QtSession::FocusName() {
  const QWidget* focus = QApplication::focusWidget();
  return focus != nullptr ? focus->accessibleName() : QString();
}

QString QtSession::FocusedRow() {
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
  QAccessibleInterface* row = list != nullptr ? list->focusChild() : nullptr;
  return row != nullptr ? row->text(QAccessible::Name) : QString();
}

QPoint QtSession::RowCenter(const std::string& text) {
  QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
  for (int i = 0; rows != nullptr && i < rows->childCount(); ++i) {
    if (rows->child(i)->text(QAccessible::Name).toStdString() == text) {
      return rows->child(i)->rect().center();
    }
  }
  ADD_FAILURE() << text;
  return {};
}

QImage QtSession::Grab(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

int QtSession::Count(const QImage& image, const std::function<bool(const QColor&)>& is_so) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += is_so(image.pixelColor(x, y)) ? 1 : 0;
    }
  }
  return count;
}

std::vector<std::string> QtSession::Told() const {
  std::vector<std::string> names;
  for (std::size_t i = forgotten_; i < session.notifications().size(); ++i) {
    names.emplace_back(session.notifications()[i].notification->name);
  }
  return names;
}

QtSession::json QtSession::LastPayload(const std::string& name) const {
  const auto& all = session.notifications();
  for (auto received = all.rbegin(); received != all.rend(); ++received) {
    if (received->notification->name == name) {
      return received->payload;
    }
  }
  ADD_FAILURE() << name;
  return {};
}

QImage QtSession::Picture(const std::string& name) {
  const std::filesystem::path path = std::filesystem::path(VELLOMAR_PICTURES) / (name + ".png");
  std::filesystem::create_directories(path.parent_path());
  std::filesystem::remove(path);
  EXPECT_TRUE(session.driver()->screenshot(path.string().c_str()));
  return QImage(QString::fromStdString(path.string()));
}
